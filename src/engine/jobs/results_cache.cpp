// The summary of the cache belongs to one length of the problem: its plies stand in the summary's block,
// behind the flags.

#include "engine/jobs/results_cache.h"

#include <algorithm>

#include "base/little_endian.h"

#include "chess/generate_moves.h"
#include "chess/make_move.h"

namespace tarnwick {
namespace {

constexpr int SummaryPliesOffset = 4;

std::uint16_t SummaryPlies(const TSolvedProblemSummary& summary) {
    return LoadLittleEndian<std::uint16_t>(summary.m_block.data() + SummaryPliesOffset);
}

/// Whether each is a move that White can make: a file may be damaged or of another hand.
bool AreFirstMoves(const std::vector<TMove>& keys, TChessboard& root) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateAllWhiteMoves(root, moves);
    return std::all_of(keys.begin(), keys.end(), [&](TMove key) {
        const bool bGenerated =
            std::any_of(moves, moves + count, [key](TMove move) { return move.SameAs(key); });
        TChessboard child = root;
        child.m_pPrevious = &root;
        return bGenerated && MakeWhiteMove(child, key) != MoveRefused;
    });
}

/// White's stored move at the root for these plies, if the register holds one.
std::optional<TMove> StoredKey(const TChessboardRegister<bool>& cache, const TChessboard& root) {
    for (const auto& [plies, positions] : cache.Answers()) {
        if ((plies & 1) == 0 || plies > root.m_shPlies) {
            continue;
        }
        const auto found = positions.find(ItemOf(root));
        if (found != positions.end() && found->second.m_answer && !found->second.m_move.IsPass()) {
            return found->second.m_move;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<TSolveResult> FindInResultsCache(TChessboardRegister<bool>& cache, TChessboard& root,
                                               const TEngineOptions& options) {
    TSolveResult result;
    result.bFromResultsCache = true;
    const TSolvedAnswer answer = cache.FindAnswer(root.m_shPlies, ItemOf(root));
    if (answer == TSolvedAnswer::No) {
        result.status = TSolveStatus::NoMate;
        result.bComplete = true;
        return result;
    }
    if (answer != TSolvedAnswer::Yes) {
        return std::nullopt;
    }
    const TSolvedProblemSummary& summary = cache.Summary();
    result.status = TSolveStatus::Mate;
    if (options.bAllSolutions) {
        const bool bAllKnown = summary.m_block[TSolvedProblemSummary::SolvedMovesByte] != 0 &&
                               SummaryPlies(summary) == root.m_shPlies && !summary.m_moves.empty();
        if (!bAllKnown || !AreFirstMoves(summary.m_moves, root)) {
            return std::nullopt;
        }
        result.keys = summary.m_moves;
        result.bComplete = true;
        return result;
    }
    const std::optional<TMove> key = StoredKey(cache, root);
    if (!key || !AreFirstMoves({*key}, root)) {
        return std::nullopt;
    }
    result.keys = {*key};
    return result;
}

void StoreInResultsCache(TChessboardRegister<bool>& cache, const TChessboard& root,
                         const TSolveResult& result) {
    const bool bProved =
        !result.keys.empty() || (result.status == TSolveStatus::NoMate && result.bSafeMode);
    if (root.m_shPlies < LeastCachedPlies || result.status == TSolveStatus::Stopped || !bProved) {
        return;
    }
    TSolvedProblemSummary& summary = cache.Summary();
    cache.Insert(root.m_shPlies, ItemOf(root), !result.keys.empty(),
                 result.keys.empty() ? nullptr : result.keys.data(), true);
    if (result.bComplete && result.bSafeMode && !result.keys.empty()) {
        summary.m_moves = result.keys;
        summary.m_block[TSolvedProblemSummary::SolvedMovesByte] = 1;
        StoreLittleEndian(summary.m_block.data() + SummaryPliesOffset, root.m_shPlies);
        StoreLittleEndian(summary.m_block.data() + TSolvedProblemSummary::MoveCountOffset,
                          static_cast<std::uint32_t>(result.keys.size()));
    }
    if (!result.keys.empty()) {
        summary.m_block[TSolvedProblemSummary::SolvedByte] = 1;
    }
}

}  // namespace tarnwick
