#pragma once
// Seams that the make operations call behind a mask test on the board's flags. The engine fills them;
// a plain stack has NoMakeHooks, whose entries change nothing and refuse nothing.

#include "chess/chessboard.h"

namespace tarnwick {

struct TMakeHooks {
    /// One-colour play mode set (bits 0-1 of m_captureState): may refuse a white move before the board
    /// is touched.
    bool (*m_pMayWhitePlayInOneColour)(const TChessboard& board, TMove move);
    /// ForbiddenKingFields set: may refuse a field to the white king.
    bool (*m_pMayWhiteKingEnter)(const TChessboard& board, int field);
    /// After a white move, KingAreaState set: computes that flag anew.
    void (*m_pUpdateKingArea)(TChessboard& board);
    /// After a capture, KeyFieldInPlay set: clears it if the man captured on the field was the key.
    void (*m_pUpdateKeyField)(TChessboard& board, int captureField);
};

extern const TMakeHooks NoMakeHooks;

}  // namespace tarnwick
