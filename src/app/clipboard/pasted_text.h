#pragma once
// What a text from the clipboard, or one that was dropped, means: a problem as a .cp file has it, a FEN
// code somewhere among other words, or moves from the position on the board. Tried in this order; the
// first that fits counts.

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "app/setup/position_faults.h"
#include "problems/chess_problem.h"
#include "problems/problem_transforms.h"

namespace tarnwick {

class CPlayedLine;

/// Exactly one of the three is there.
struct TPastedText {
    std::unique_ptr<TChessProblem> pProblem;
    bool bMoreProblems = false;  ///< Others follow it in the text.
    std::optional<TSetupFields> fields;
    bool bFenNote = false;  ///< The FEN told of castlings or en passant what is not considered.
    std::vector<TMove> moves;
};

/// A longer text is refused at once.
inline constexpr std::size_t MaxPastedText = 16U << 20;

/// Reads the UTF-8 text. The problem is the one on show, null for none, and the line is what was played
/// from it. bMirror: moves are read in the mirrored position and mirrored; the caller does that to the
/// other two (MirrorPasted).
///
/// Throws ChessException "Operation failed" with the reason on the next line: what the reader of
/// problems or PreparePosition says, the faults of the position, or the word that is no move.
TPastedText ReadPastedText(std::string_view text, const TChessProblem* pProblem,
                           const CPlayedLine& line, bool bMirror);

/// Mirrors the whole problem. "Mirror: " is put in front of its description, or taken away.
TTransformNotes MirrorPasted(TChessProblem& problem);

}  // namespace tarnwick
