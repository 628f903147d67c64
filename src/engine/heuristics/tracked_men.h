#pragma once
// SH_DONTLETFIGUREUNBLOCK: black men that are blocked, or that are not to go far, are followed through
// the line. Their initial fields are a parameter of the pass; where they stand now is in the board's
// m_trackedFields, which the make operations keep. A mate found after one of them has got away is
// doubtful, because a man that White counted on being locked in could have come to the defence.

#include "chess/chessboard.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// Black figures, with bWithPawns also pawns, that cannot leave their place by more than one field: shut
/// in by other men or held by a pin.
TFieldSet BlockedBlackMen(const TChessboard& board, bool bWithPawns) noexcept;

/// Notes the blocked men, those nearest to the black king first and at most MaxTrackedMen, in the
/// parameters, and on the board where they stand. Men that the user has chosen stay chosen. Returns their
/// number. Neither the mask nor the key of the board is touched.
int CollectTrackedMen(TChessboard& board, TSpecialHeuristics& parameters) noexcept;

/// Puts the men of the parameters on the board as the ones to follow; free places are NoField.
void StartFollowing(TChessboard& board, const TSpecialHeuristics& parameters) noexcept;

/// After a black move: a followed man is more than one field from its home, and White cannot win it. Home
/// is where it stood when it was set to be followed: at the root, or, set during the search, later.
bool HasManUnblocked(const TChessboard& afterBlack) noexcept;

/// Each followed man still in play stands at home.
bool AreFollowedMenAtHome(const TChessboard& board) noexcept;

// ---- What Black's moves do to the heuristics that follow men

/// Keeps what the line has to know after a black move: the flags of saved figures, the mark of a watched
/// move, and the heuristics that the move ends. A second call changes nothing. To be called before the
/// registers are asked, because the key may change.
void NoteBlackMove(TChessboard& afterBlack) noexcept;

/// After a black move, White to move: a mate from here is doubtful because a followed man got away, a
/// promoted man roams, or White lost what was to be kept. Calls NoteBlackMove. One test when none of
/// these heuristics is set. An immediate mate is never doubtful.
bool BreaksFollowedMen(TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
