#pragma once
// SH_ONECOLORPLAYPOSSIBLE: with bishops on opposite colours, Black's bishop is taken off the board and
// Black may pass instead of moving it, while White's men keep to the fields that it cannot reach.
//
// A mate of that game is a mate of the real one. The bishop could take no white man, check no king, shield
// Black's king from no check, and stand in nobody's way but Black's: White has only men that do not
// cross its fields, and the hook of the make operation keeps it so. Only stalemate needs care: the bishop
// may be buried behind Black's own men, and then Black cannot pass at all (MayBlackBeStalemated). That
// White does not mate proves nothing, though, because the real game allows White more: it is doubtful at
// best.

#include "chess/chessboard.h"

namespace tarnwick {

/// White to move: besides the kings and pawns there is one bishop on each side, of opposite colours, and
/// perhaps white knights; no white man stands on the black bishop's colour; Black's pawns are blocked.
bool AreOppositeBishopsSeparable(const TChessboard& board) noexcept;

/// A mode in which White keeps to one colour of fields.
inline bool IsOneColourPlay(const TChessboard& board) noexcept {
    const int mode = board.m_captureState & OneColourMask;
    return mode == WhiteFieldsOnly || mode == BlackFieldsOnly;
}

/// A free bit of m_captureState: Black has a bishop that is not on the board, on fields of the colour that
/// White keeps off.
inline constexpr std::uint8_t BishopTakenOff = 0x40;

/// Black's bishop is off the board, and Black may pass when it is not in check.
inline bool IsBishopTakenOff(const TChessboard& board) noexcept {
    return (board.m_captureState & BishopTakenOff) != 0;
}

/// Takes Black's bishop off and sets the one-colour mode, if the heuristic is set and the bishops are
/// separable. Far from the end only.
void SeparateOppositeBishops(TChessboard& child) noexcept;

/// Black to move and not in check, his bishop taken off: with the bishop on some field that its men
/// leave it, Black might have no move. A false answer is certain.
bool MayBlackBeStalemated(TChessboard& board) noexcept;

/// In the modes with a colour: whether the move keeps to it. It goes to a field of the colour, without a
/// double step across the other, and promotes to no line piece.
bool MayWhitePlayInOneColour(const TChessboard& board, TMove move) noexcept;

/// In the modes with a colour, White to move: a mate in one that keeps to the colour. IsMateInOne does
/// not ask that, and would believe moves that the bishop answers.
bool IsKnownOneColourMate(const TChessboard& board) noexcept;

}  // namespace tarnwick
