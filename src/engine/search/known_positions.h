#pragma once
// What is already known of a position with White to move: the thread's own memory first, because it is
// near, then the job's register. And the gates that keep out of both what their keys do not tell.

#include "chess/castling.h"
#include "chess/chessboard.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/search/node_result.h"
#include "engine/search/thread_context.h"
#include "registers/aggregated_register.h"

namespace tarnwick {

/// In problems of five moves and less the register costs more than it gives.
inline constexpr int MostPliesWithoutRegister = 9;
/// Below, searching is cheaper than remembering.
inline constexpr int LeastRegisterPlies = 3;

/// Which stores may hold the position.
struct TKnowable {
    bool bMemory = false;
    bool bRegister = false;
};

/// Neither store knows of castling or en passant, nor of the simplified game on one colour of fields.
inline TKnowable WhatMayBeKnown(const TChessboard& board) noexcept {
    if (!IsPositionFullyDescribed(board) || IsOneColourPlay(board) || IsBishopTakenOff(board)) {
        return {};
    }
    return {.bMemory = true, .bRegister = Thread(board).m_pRegister != nullptr};
}

/// For a white node with so many plies left. QuickerMate is a mate within the additional moves.
TRegisterResult FindKnown(const TChessboard& board, TKnowable may) noexcept;

/// What a white node has proved. The plies may exceed those left by additional moves.
void StoreKnownMate(const TChessboard& board, TKnowable may, int plies, TMove mate) noexcept;
void StoreKnownNoMate(const TChessboard& board, TKnowable may) noexcept;
/// No mate under the heuristics in force, which is no proof.
void StoreKnownDoubtful(const TChessboard& board, TKnowable may) noexcept;

}  // namespace tarnwick
