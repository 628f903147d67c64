#pragma once
// What is already known of a position in the forced search. Private to this folder.

#include <optional>

#include "engine/search/known_positions.h"
#include "engine/search/node_hooks.h"

namespace tarnwick {

/// An exact mate may be asked for, and stored, whatever heuristics are in force: they only leave moves out.
inline TKnowable WhatForcedMayKnow(const TChessboard& board) noexcept {
    TKnowable may = WhatMayBeKnown(board);
    may.bMemory = !IsOneColourPlay(board) && IsPositionFullyDescribed(board);
    return may;
}

/// What the stores answer for a white node; nothing if the search has to.
inline std::optional<TNodeResult> AskForcedKnown(TChessboard& board, TKnowable may) noexcept {
    if (MayTablesHold(board)) {
        if (const auto answer = AskGlobalRegister(board)) {
            return answer;
        }
    }
    switch (FindKnown(board, may)) {
        case TRegisterResult::Mate:
            return ResultMate;
        case TRegisterResult::NoMate:
            return ResultNoMate;
        case TRegisterResult::NoMateUnderHeuristics:
            return ResultDoubtful;
        default:
            return std::nullopt;
    }
}

}  // namespace tarnwick
