#pragma once
// The problems that a command works on: from a file of either form, standard input, or a FEN typed on
// the command line.

#include <memory>
#include <string>
#include <vector>

#include "cli/console_dialog.h"
#include "cli/id_list.h"
#include "cli/text_input.h"
#include "problems/chess_problem.h"

namespace tarnwick {

struct TInputProblem {
    std::unique_ptr<TChessProblem> pProblem;  ///< Never null.
    int nLine = 0;                            ///< In the input, from 1; 0: from the command line.
    bool bColoursSwapped = false;             ///< Black was to mate; the record has White mating.
    std::vector<std::string> lost = {};  ///< Operations of an EPD line that have no place in it.
};

/// Whether the problem asks for a direct mate. A line of moves takes the place of a stipulation.
bool AsksForMate(const TChessProblem& problem);

/// Why the problem is not one for the engine; null if it is.
const char* WhyNotForEngine(const TChessProblem& problem);

/// Something that the user should know about the input.
struct TInputRemark {
    int nLine = 0;        ///< From 1; 0: about the whole input.
    bool bFault = false;  ///< Something could not be read. Otherwise a word by the way.
    std::string text;
};

struct TProblemInput {
    std::string name;                     ///< For messages: a file, or "standard input".
    std::vector<TInputProblem> problems;  ///< By rising number, or by line for EPD.
    std::vector<TInputRemark> remarks;    ///< By rising line.

    bool HasFault() const;
};

/// Reads the problems of a text. Never throws for what the text says: a .cp text is read up to its first
/// fault; of an EPD text every line is read that can be. The numbers of EPD problems count the lines that
/// hold anything, from 1; lines that begin with "#" are comments.
TProblemInput ReadProblems(const TTextInput& input);

/// A position that a user typed as FEN.
struct TTypedPosition {
    TChessboard board;  ///< Fresh, White to move, as ReadFen leaves it.
    bool bBlackToMove = false;
    bool bNoteDue = false;  ///< The user should see FenNoteText (chess/notation_texts.h).
};

/// Throws ChessException for a text that is no FEN and for a position that cannot be.
TTypedPosition ReadTypedPosition(const std::string& fen);

/// The position that a user typed as a mate in so many moves, problem number 1; moves 0: a position
/// without a stipulation. Throws as ReadTypedPosition does.
TProblemInput ReadTypedProblem(const std::string& fen, int moves);

/// The problems of a file, or with an empty name the typed one. Throws as ReadTextInput and
/// ReadTypedProblem do.
TProblemInput ReadFileOrFen(const std::string& file, const std::string& fen, int moves);

/// Keeps the problems whose numbers are in the list. Tells the user which parts of the list met none.
/// False, after a word about the numbers there are, if no problem is left.
bool SelectProblems(TProblemInput& input, const CIdList& ids, CConsoleDialog& dialog);

/// Tells which operations of EPD lines have no place in a problem, all in one line.
void TellLostOperations(const TProblemInput& input, CConsoleDialog& dialog);

/// Tells which problems had Black to mate: they go on with colours exchanged.
void TellExchangedColours(const TProblemInput& input, CConsoleDialog& dialog);

/// Tells all remarks as "NAME:LINE: text", the form that editors and other tools follow.
void TellRemarks(const TProblemInput& input, CConsoleDialog& dialog);

/// "NAME:LINE: text", without the line if it is 0.
std::string PlacedText(const std::string& name, int nLine, const std::string& text);

}  // namespace tarnwick
