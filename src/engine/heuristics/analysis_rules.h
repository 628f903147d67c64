#pragma once
// The rules of the position analysis, in the order in which they are applied. Private to the analysis.

#include <cstdint>

#include "chess/chessboard.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/position_analysis.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// An analysis at work.
struct TAnalysis {
    TChessboard& board;
    TSpecialHeuristics& parameters;
    const TAnalysisOptions& options;
    std::uint32_t set = 0;
    std::uint16_t flags = Bit(TPositionFlag::Analysed);
    int queens = 0;        ///< White queens that Black cannot win at once.
    int whiteFigures = 0;  ///< White figures, of the queens only those.
    int losableQueens = 0;

    bool Has(std::uint32_t bits) const { return (set & bits) != 0; }
    bool HasFlag(TPositionFlag flag) const { return (flags & Bit(flag)) != 0; }
    void Add(std::uint32_t bits) { set |= bits; }
    void Clear(std::uint32_t bits) { set &= ~bits; }
    void Replace(std::uint32_t from, std::uint32_t to) { set = (set & ~from) | to; }
};

using TAnalysisRule = void (*)(TAnalysis&);

/// Positions with no more men are miniatures.
inline constexpr int MostMenOfMiniature = 7;
bool IsMiniature(const TChessboard& board) noexcept;

// analysis_material.cpp
void JudgeMaterial(TAnalysis& a);
void CountBlockedMen(TAnalysis& a);
void JudgeFewBlackFigures(TAnalysis& a);
void JudgeRoomOnEdge(TAnalysis& a);
void KeepRookWithBishops(TAnalysis& a);
void PlayOnOneColour(TAnalysis& a);
void WatchQueenChecks(TAnalysis& a);
void SaveQueenFromPawn(TAnalysis& a);
void HoldPromotedMen(TAnalysis& a);
void SaveFigures(TAnalysis& a);
void RelaxSavingOfFigures(TAnalysis& a);
void FollowMenAgainstKnights(TAnalysis& a);
void LetPromotedQueenMove(TAnalysis& a);

// analysis_king.cpp
void BringKingsTogether(TAnalysis& a);
void KeepWhiteKingNear(TAnalysis& a);
void HoldKingOnEdge(TAnalysis& a);
void SurroundKing(TAnalysis& a);
void WidenEdgeForFreeKing(TAnalysis& a);
void JudgeMiniature(TAnalysis& a);
void HoldBareKing(TAnalysis& a);
void TryEdgeOfLongProblem(TAnalysis& a);

// analysis_types.cpp
void RecogniseSeaSnake(TAnalysis& a);
void RecogniseZugzwang(TAnalysis& a);
void RecogniseSingleQueen(TAnalysis& a);
void RecogniseSweepingRook(TAnalysis& a);
void RecogniseKeyFigure(TAnalysis& a);
void RecogniseBlockedMen(TAnalysis& a);
void ForceSafeModeInDuels(TAnalysis& a);
void StartWithForcedMate(TAnalysis& a);
void CheckThreeMoves(TAnalysis& a);

}  // namespace tarnwick
