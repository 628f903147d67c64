#pragma once
// What the user does with the variants of a problem: lines of moves with a name and comments.
//
// The functions change the record itself: call them inside CDocument::Edit, which notes the step of
// undo and puts the problem back if one of them throws. All refusals are ChessExceptions for the user.
//
// A variant is found by its key in TChessProblem::m_variants, which is its text in the file and so
// changes with every change of the variant: functions that change one return the new key.

#include <string>
#include <string_view>
#include <vector>

#include "problems/chess_problem.h"

namespace tarnwick {

class CPlayedLine;

/// The name as it is kept: blanks at its ends and line ends removed, a main variant in the present
/// language. Refuses an empty name and braces, which end a name in the file.
std::wstring CheckedVariantName(std::wstring_view name);

/// Key of the first variant of that name; null if there is none. A main variant has its name in any
/// language.
const std::wstring* FindVariant(const TChessProblem& problem, std::wstring_view name);
const std::wstring* FindMainVariant(const TChessProblem& problem);

/// Saves the line up to its cursor under the name, in place of all variants of that name. Moves that
/// belonged to a variant keep their comments. Refuses a line without moves. Returns the key.
std::wstring SaveVariant(TChessProblem& problem, std::wstring_view name, const CPlayedLine& line);
std::wstring SaveMainVariant(TChessProblem& problem, const CPlayedLine& line);

/// Refuses a name that another variant has. Returns the new key.
std::wstring RenameVariant(TChessProblem& problem, const std::wstring& key,
                           std::wstring_view newName);

/// False if there is no such variant.
bool RemoveVariant(TChessProblem& problem, const std::wstring& key);

/// Puts the variant into the line; the position after its last move is on show. Throws ChessException,
/// naming the move, when one cannot be played here: the line then holds the moves before it.
void ShowVariant(const TVariant& variant, CPlayedLine& line);

/// Plays a variant move by move on the board: the window does the steps at their times.
struct TAnimationStep {
    int nAfterMs = 0;  ///< From the animation's start.
    int nPly = 0;      ///< CPlayedLine::GoTo this one.
    std::wstring comment;
};
/// The start position at once, then each move of the line after another nDelayMs; nothing for a line
/// without moves. The variant must have been shown.
std::vector<TAnimationStep> AnimationOf(const TVariant& variant, const CPlayedLine& line,
                                        int nDelayMs);

/// For each move of a line from the start: the entry of a variant that goes the same way up to it, null
/// if there is none. Of several, one with a comment, then the main variant's, then the first.
std::vector<const TVariantEntry*> EntriesOfLine(const TChessProblem& problem,
                                                const std::vector<TMove>& moves);

/// Sets the comment of the last of the moves in the variant that EntriesOfLine names; an empty one takes
/// the comments away in all variants. Refuses "]", which ends a comment in the file, and a line that
/// belongs to no variant. Line ends become blanks.
void SetMoveComment(TChessProblem& problem, const std::vector<TMove>& moves,
                    std::wstring_view comment);

// Tags.

/// False if the problem has it already. Refuses an empty tag.
bool AddTag(TChessProblem& problem, std::wstring_view tag);
/// False if the problem does not have it.
bool RemoveTag(TChessProblem& problem, const std::wstring& tag);

}  // namespace tarnwick
