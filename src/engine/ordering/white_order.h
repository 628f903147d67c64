#pragma once
// The order of White's moves: the move that leaves Black the fewest replies first.

#include "chess/chessboard.h"
#include "chess/move_list.h"

namespace tarnwick {

/// What is known of one white move before it is searched.
struct TMoveInfo {
    TMove move{};
    int replies = 0;  ///< Legal black replies.
    bool bGivesCheck = false;
    bool bDoubleCheck = false;
    bool bDiscoveredOrDouble = false;
    bool bCaptures = false;
    bool bBlackHasNoMoves = false;
    bool bRepetition = false;
    bool bHopeless = false;  ///< A reply leaves White without the force to mate.
};

// Sort scores with a meaning of their own; the real ones lie between.
inline constexpr std::uint8_t ScoreFirst = 0;  ///< Named by the user's hints or the main variant.
inline constexpr std::uint8_t ScoreHighest = 252;
inline constexpr std::uint8_t ScoreNegativeHint = 253;
inline constexpr std::uint8_t ScoreBad = 254;      ///< Leaves Black without a useful reply.
inline constexpr std::uint8_t ScoreIllegal = 255;  ///< Dropped from the list.

/// Black's legal replies, up to the first one that leaves White hopeless.
struct TReplyCount {
    int legal = 0;
    bool bHopeless = false;
};
TReplyCount CountReplies(TChessboard& afterWhite) noexcept;

/// Makes the move on the next slot and counts Black's replies. Returns their number, or -1 for an
/// illegal move. A reply that leaves White hopeless ends the count and adds 96.
int AnalyseWhiteMove(TChessboard& board, TMove move, TMoveInfo& info) noexcept;

/// Orders the list in place and returns the new count (illegal moves are left out). *pbMate is set when
/// a move mates at once; it then stands first. The user's hints of the job come before or behind all
/// else. *pNearBest, if given, receives how many moves named by a hint leave Black at most one reply;
/// they carry NearBestMark. bLight leaves out the fine adjustments.
int SortWhiteMoves(TChessboard& board, int count, TMove* pMoves, bool bLight, bool* pbMate,
                   int* pNearBest = nullptr) noexcept;

/// The score of a legal move by the job's hints, or else by its replies and by what it does.
std::uint8_t ScoreWhiteMove(const TChessboard& board, const TMoveInfo& info, bool bLight) noexcept;

}  // namespace tarnwick
