#include "engine/heuristics/search_hooks.h"

#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/heuristics/single_queen_mate.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// The area around the black king counts as held up to that many free fields.
constexpr int MostFieldsOfHeldKing = 3;

bool MayWhitePlay(const TChessboard& board, TMove move) {
    return MayWhitePlayInOneColour(board, move);
}

bool MayWhiteKingEnter(const TChessboard& board, int field) {
    return (FieldsForbiddenToWhiteKing(board) & FieldBit(field)) == 0;
}

void UpdateKingArea(TChessboard& board) {
    if (CountFreeFields(board) > MostFieldsOfHeldKing) {
        board.m_searchFlags.Clear(TSearchFlag::KingAreaState);
    }
}

void UpdateKeyField(TChessboard& board, int captureField) {
    if (captureField == Thread(board).m_heuristics.KeyField) {
        SetHeuristics(board, board.m_heuristicFlags.Raw() & ~SH_KEYFIELD);
    }
}

}  // namespace

const TMakeHooks HeuristicMakeHooks = {
    .m_pMayWhitePlayInOneColour = MayWhitePlay,
    .m_pMayWhiteKingEnter = MayWhiteKingEnter,
    .m_pUpdateKingArea = UpdateKingArea,
    .m_pUpdateKeyField = UpdateKeyField,
};

bool IsRefusedByHeuristic(const TChessboard& board, TMove move) noexcept {
    return !MayWhitePlayInOneColour(board, move) ||
           (board.m_heuristicFlags.Has(TMakeHeuristic::ForbiddenKingFields) &&
            board.m_fields[move.from] == WhiteKing && !MayWhiteKingEnter(board, move.to));
}

}  // namespace tarnwick
