#include "app/solving/result_view.h"

#include <gtest/gtest.h>

#include <numeric>
#include <thread>

#include "app/solving/known_position.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "session_support.h"

namespace tarnwick {
namespace {

TChessboard BoardWith(const std::string& fen, std::uint16_t plies) {
    TChessboard board = EmptyChessboard();
    bool bCastling = false;
    bool bEnPassant = false;
    if (!ReadFen(board, fen, bCastling, bEnPassant)) {
        throw std::invalid_argument(fen);
    }
    board.m_shPlies = board.m_shRootPlies = plies;
    PreparePosition(board, true);
    return board;
}

TSolveOutcome OutcomeWith(TSolveStatus status, std::vector<TMove> keys) {
    TSolveOutcome outcome;
    outcome.board = BoardWith("7k/8/5K2/8/8/8/8/6R1", 3);
    outcome.problemNumber = 12;
    outcome.moves = 2;
    outcome.options.bAllSolutions = true;
    outcome.result.status = status;
    outcome.result.keys = std::move(keys);
    return outcome;
}

constexpr TMove KingMove{45, 53, 0, 0};
constexpr TMove RookMove{6, 14, 0, 0};

TEST(ResultView, OneKeyIsPlayedWithoutABox) {
    const TResultView view = ResultView(OutcomeWith(TSolveStatus::Mate, {KingMove}));
    EXPECT_EQ(view.boxText, "");
    EXPECT_EQ(view.statusText, "12 >> #2 | Kf6-f7");
    ASSERT_TRUE(view.play);
    EXPECT_TRUE(view.play->SameAs(KingMove));
    ASSERT_FALSE(view.flash.empty());
    EXPECT_TRUE(view.flash.front().bMarked);
    for (const bool bBatch : {false, true}) {
        const auto steps = FlashSteps(bBatch);
        EXPECT_EQ(std::accumulate(steps.begin(), steps.end(), 0,
                                  [](int sum, const TFlashStep& step) { return sum + step.ms; }),
                  bBatch ? 100 : 800);
    }
}

TEST(ResultView, SeveralKeysOrNoneGetABoxButNotInABatch) {
    const TSolveOutcome dual = OutcomeWith(TSolveStatus::Mate, {KingMove, RookMove});
    EXPECT_EQ(ResultView(dual).boxText, "More than one solution found: 2");
    EXPECT_EQ(ResultView(dual).statusText, "12 >> #2 | Kf6-f7, Rg1-g2");
    EXPECT_EQ(ResultView(dual, true).boxText, "");
    const TResultView none = ResultView(OutcomeWith(TSolveStatus::NoMate, {}));
    EXPECT_EQ(none.boxText, "Not found any solutions for #2");
    EXPECT_FALSE(none.play);
}

TEST(ResultView, AStopIsNoBoxAndAFaultIsOne) {
    const TResultView stopped = ResultView(OutcomeWith(TSolveStatus::Stopped, {KingMove}));
    EXPECT_EQ(stopped.boxText, "");
    EXPECT_EQ(stopped.statusText, "Analysis stopped by user: Kf6-f7");
    EXPECT_FALSE(stopped.play);
    EXPECT_EQ(stopped.logLines.front().substr(0, 16), "Engine stopped: ");
    TSolveOutcome fault = OutcomeWith(TSolveStatus::Mate, {KingMove});
    fault.bEndedByError = true;
    fault.result.message = "a thread ended with an error";
    EXPECT_EQ(ResultView(fault).boxText, fault.result.message);
    EXPECT_EQ(ResultView(fault).logLines.back(), fault.result.message);
}

std::string KnownText(const TChessboard& board,
                      const TAggregatedTemporaryChessboardRegister* pRegister = nullptr) {
    return KnownPositionText(LookUpPosition(board, pRegister), board);
}

TEST(KnownPosition, IsSeenWithoutARegisterNearTheEnd) {
    EXPECT_EQ(KnownText(BoardWith("7k/8/5K2/8/8/8/8/6R1", 3)), "");
    EXPECT_EQ(KnownText(BoardWith("8/5K1k/8/8/8/8/8/6R1", 3)), "#1 in current position");
    EXPECT_EQ(KnownText(BoardWith("7k/5K2/8/8/8/8/8/6R1", 2)),
              "#1 in current position; threat: Rg1-h1 (#1)");
    EXPECT_EQ(KnownText(BoardWith("7k/5K2/6Q1/8/8/8/8/8", 2)), "Stalemate");
    EXPECT_EQ(KnownText(BoardWith("7k/6Q1/5K2/8/8/8/8/8", 2)), "") << "mate needs no words";
    EXPECT_EQ(KnownText(BoardWith("7k/8/8/8/8/8/8/K5R1", 1)), "No mate in this position");
    EXPECT_EQ(KnownText(BoardWith("7k/8/8/8/8/8/8/K5R1", 0)), "");
}

TEST(KnownPosition, RegisterTellsMatesAndTheirExactness) {
    TEngineOptions options;
    options.memoryMiB = 16;
    const CKeptRegister kept(options, 13);
    TAggregatedTemporaryChessboardRegister& known = *kept.Register();
    const auto store = [&known](const TChessboard& board, std::uint16_t plies, bool bMate) {
        const TChessboardRegisterItem item = ItemOf(board);
        known.StoreResult(plies, item, HashOf(item), bMate);
    };
    const TChessboard rook = BoardWith("8/7k/4K3/8/8/8/8/6R1", 9);
    store(rook, 7, true);
    EXPECT_EQ(KnownText(rook, &known), "Temp.reg.: #4 (or less) in current position");
    store(rook, 5, false);
    EXPECT_EQ(KnownText(rook, &known), "#4 in current position");
    EXPECT_EQ(KnownText(BoardWith("8/7k/4K3/8/8/8/8/6R1", 5), &known), "No mate in this position");
    // Black's one reply leads to the position that is known.
    EXPECT_EQ(LookUpPosition(BoardWith("7k/8/4K3/8/8/8/8/6R1", 10), &known).moves, 4);
}

TEST(KnownPosition, DoesNotWaitForARegisterThatIsCleared) {
    TEngineOptions options;
    options.memoryMiB = 16;
    const CKeptRegister kept(options, 13);
    const TChessboard rook = BoardWith("8/7k/4K3/8/8/8/8/6R1", 9);
    kept.Register()->StoreResult(7, ItemOf(rook), HashOf(ItemOf(rook)), true);
    ASSERT_EQ(LookUpPosition(rook, kept.Register().get()).mate, TKnownMate::AtMost);
    int asked = 0;
    kept.Register()->ClearTable(true, [&](std::uint32_t) {
        std::thread([&] {
            EXPECT_EQ(LookUpPosition(rook, kept.Register().get()).mate, TKnownMate::Unknown);
            EXPECT_FALSE(kept.Register()->TotalBytesUsedSoon());
            ++asked;
        }).join();
    });
    EXPECT_GT(asked, 0);
    EXPECT_TRUE(kept.Register()->TotalBytesUsedSoon());
}

TEST(KnownPosition, ARightToCastleIsNotInTheRegister) {
    TEngineOptions options;
    options.memoryMiB = 16;
    const CKeptRegister kept(options, 13);
    TChessboard root = BoardWith("7k/8/8/8/8/8/8/4K2R", 13);
    const TChessboardRegisterItem item = ItemOf(root);
    kept.Register()->StoreResult(13, item, HashOf(item), true);
    EXPECT_EQ(LookUpPosition(root, kept.Register().get()).mate, TKnownMate::AtMost);
    TChessboard rookHadMoved = BoardWith("7k/8/8/8/8/8/7R/4K3", 13);
    root.m_pPrevious = &rookHadMoved;  // no right to castle: not the position that was stored
    EXPECT_EQ(LookUpPosition(root, kept.Register().get()).mate, TKnownMate::Unknown);
}

}  // namespace
}  // namespace tarnwick
