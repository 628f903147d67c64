#pragma once
// TChessProblem: one problem of a problem file, with everything that the file says about it.
//
// The list of the open file owns it (problem_list.h). The reader fills it, the commands of the user
// change it, a solving job copies what it needs. The record has no lock: it is changed by one thread,
// and only while nothing solves it.

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/field_flags.h"

#include "chess/chessboard.h"
#include "problems/sort_indication.h"
#include "problems/variant.h"

namespace tarnwick {

enum class TProblemType : int {
    DirectMate = 1,
    SelfMate = 2,
    Position = 4  ///< A position, perhaps with moves, that asks for nothing.
};

/// m_shOptions: what the words behind the stipulation switch on. A bit, not a count of them: the numbers
/// are also kept in logs of regression runs.
enum class TProblemOption : std::uint16_t {
    NoMirror = 0x1,               ///< A regression run leaves the mirrored position out.
    AllSolutions = 0x2,           ///< Look for every key, not for the first.
    HasAnswers = 0x4,             ///< m_answers holds the correct keys.
    StopOnDual = 0x8,             ///< Stop at the second key.
    StopOn3Sol = 0x10,            ///< Stop at the third key.
    UseMainVariant = 0x20,        ///< The main variant's moves are tried first.
    NoGlobReg = 0x40,             ///< No tables of few men.
    SafeMode = 0x80,              ///< No heuristic that may overlook a mate.
    MirrorOnly = 0x100,           ///< A regression run takes the mirrored position only.
    HasExpectedSort = 0x200,      ///< m_expectedSortWhiteMoves is given.
    ExpectedSortOnly = 0x400,     ///< The order of moves is checked, the problem is not solved.
    GuiCheckBestDefence = 0x800,  ///< Check Black's replies against the main variant.
    GuiCheck = 0x1000,            ///< Check Black's replies and White's answers to them.
    RequiresSyzygy = 0x2000,      ///< Needs the online tablebase.
    AllSolutionsRequiresSyzygy = 0x4000  ///< Needs it to find every key.
};

/// m_shPlies of a position that asks for nothing, and of a problem with a section of moves.
inline constexpr std::uint16_t PliesOfPosition = 255;

/// The longest stipulation of a file in moves: the most for which plies of either kind fit their type.
/// The solver's own limit is far lower (MaxPlies).
inline constexpr int MaxStipulationMoves = 32767;

/// The most half-moves of a section of moves: a board counts them down from PliesOfPosition.
inline constexpr int MaxMovesOfLine = PliesOfPosition;

inline constexpr std::uint8_t ThreadsNotGiven = 255;

struct TChessProblem {
    TChessProblem();
    // Boards point to each other, so the record stays where it was made.
    TChessProblem(const TChessProblem&) = delete;
    TChessProblem& operator=(const TChessProblem&) = delete;

    TProblemType m_type = TProblemType::DirectMate;
    int m_id = 0;                 ///< Number in the file, not negative; the key of the list.
    std::uint16_t m_shPlies = 0;  ///< 2n - 1 for a mate in n, 2n + 1 for a self-mate in n, else
                                  ///< PliesOfPosition.

    /// The starting position; both ply counters hold m_shPlies. A position that was given as two lists
    /// of men need not be a legal one: then only m_fields counts, and PreparePosition says what is
    /// wrong.
    TChessboard* const m_pBoard;
    /// The position after the section of moves; m_pBoard if there is none.
    TChessboard* m_pLastBoard;
    /// The boards after each of those moves. Their m_lastMove is the move, m_pPrevious leads back to
    /// m_pBoard, and m_pThread is null.
    std::vector<std::unique_ptr<TChessboard>> m_lineBoards;

    std::vector<TMove> m_answers;                 ///< The keys, valid with HasAnswers.
    std::vector<TMove> m_expectedSortWhiteMoves;  ///< Valid with HasExpectedSort. Not written.

    TFlagWord<TProblemOption> m_shOptions;
    std::uint8_t m_threads = ThreadsNotGiven;
    std::uint8_t m_threadsAux = ThreadsNotGiven;  ///< Not written, as all to the next blank line.
    std::uint8_t m_schedulerLevels = 255;         ///< 255: not given.
    int m_lichessLevels = 0;
    int m_globRegMB = 0;  ///< MiB; 0: not given.
    bool m_bStopRelaxHeuristicsOnFirstSolution = false;
    /// Bit of a special heuristic to the words in brackets behind its name, or the word OFF.
    std::map<std::uint32_t, std::vector<std::string>> m_heuristicSettings;
    std::set<std::string> m_allSolutionsRequires;

    std::uint16_t m_shGuiCheckCount = 1;  ///< Moves that GUICHECK and its kin check, at least 1.
    std::set<std::string> m_requires;     ///< Position types whose tables the problem needs.
    std::wstring m_description;           ///< One line, no blanks at its ends.
    std::set<std::wstring> m_tags;
    TVariantMap m_variants;
    TSortIndications m_sortIndications;

    bool m_bMirrored = false;   ///< The position stands mirrored for a regression run.
    bool m_bMirrorRun = false;  ///< The run on the mirrored position is on.

    /// The starting position when the record was complete.
    TChessboard m_originalBoard;

  private:
    TChessboard m_startBoard;
};

/// Plies of a stipulation; nMoves from 1 to MaxStipulationMoves.
std::uint16_t PliesOfStipulation(TProblemType type, int nMoves);

/// The n of the stipulation; 0 for a position.
int MovesOfStipulation(const TChessProblem& problem);

/// Sets m_shPlies and the counters of the starting board.
void SetPlies(TChessProblem& problem, std::uint16_t shPlies);

/// Sets the description without the blanks and tabs at its ends, which a file cannot keep.
void SetDescription(TChessProblem& problem, std::wstring text);

/// Takes the section of moves away.
void ClearLine(TChessProblem& problem);

/// Plays a move at the end of the line, if all rules of chess allow it; false and nothing changed if
/// not, or if the line has MaxMovesOfLine moves. The starting board must be prepared, with both
/// counters at PliesOfPosition. White moves first; castling and en passant are the king's and the
/// pawn's moves, a promotion must be named.
bool PlayOnLine(TChessProblem& problem, TMove move, TBoardStack& stack);

/// The board from which the move of that index (from 0) in the line was made.
const TChessboard& BoardBeforeMove(const TChessProblem& problem, std::size_t index);

}  // namespace tarnwick
