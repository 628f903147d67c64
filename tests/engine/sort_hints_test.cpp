// The user's hints order White's moves and never change an answer.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "chess/fen.h"
#include "chess/generate_moves.h"
#include "chess/move_text.h"
#include "engine/jobs/start_solving.h"
#include "engine/ordering/root_order.h"
#include "engine/ordering/white_order.h"
#include "engine/search/thread_context.h"
#include "problems/chess_problem.h"

namespace tarnwick {
namespace {

constexpr const char* Placement = "8/8/8/8/8/2k5/8/R3K2R";

/// A root of a job in which five plies are left.
struct TRoot {
    explicit TRoot(const std::string& hints) : thread(task, 1) {
        bool bWithheld = false;
        bool bEnPassant = false;
        board = EmptyChessboard();
        EXPECT_TRUE(ReadFen(board, Placement, bWithheld, bEnPassant));
        task.m_sortHints = TSortHints(ParseSortIndications(hints));
        board.m_shPlies = board.m_shRootPlies = 5;
        board.m_pTask = &task;
        board.m_pThread = &thread;
        thread.m_pRootBoard = &board;
    }
    std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const TMove move : SortFirstMoves(board)) {
            texts.push_back(MoveToDisplayText(move, board));
        }
        return texts;
    }
    TSolveTask task;
    TThreadContext thread;
    TChessboard board;
};

TEST(SortHints, NamedMovesComeFirstAndNegatedOnesLast) {
    const std::vector<std::string> plain = TRoot("").Texts();
    std::vector<std::string> hinted = TRoot("Rh1-h7; ~1.Ra1-b1").Texts();
    EXPECT_EQ(hinted.front(), "Rh1-h7");
    EXPECT_EQ(hinted.back(), "Ra1-b1");
    EXPECT_NE(plain.front(), "Rh1-h7");
    EXPECT_EQ(hinted.size(), plain.size()) << "a hint removes no move";
}

TEST(SortHints, EveryPartOfAnItemMustFit) {
    const std::string plainFirst = TRoot("").Texts().front();
    EXPECT_EQ(TRoot("0-0-0").Texts().front(), "0-0-0");
    EXPECT_EQ(TRoot("Kd1").Texts().front(), "Ke1-d1");
    for (const char* misfit : {"2.Rh1-h7", "Rh1:h7", "Qh7", "Rh1-h7++", "h7Q"}) {
        EXPECT_EQ(TRoot(misfit).Texts().front(), plainFirst) << misfit;
    }
}

TEST(SortHints, FirstMatchingItemDecidesAndOwnNumberComesBeforeAny) {
    EXPECT_EQ(TRoot("~Rh7; 1.Rh1-h7").Texts().front(), "Rh1-h7");
    EXPECT_EQ(TRoot("~Rh7; Rh1-h7").Texts().back(), "Rh1-h7");
}

TEST(SortHints, CheckItemCountsOnceInAJobAndDoubleCheckItemAlways) {
    TRoot root("Ra1-a3+");
    EXPECT_EQ(root.Texts().front(), "Ra1-a3");
    EXPECT_NE(root.Texts().front(), "Ra1-a3") << "its one effect is spent";
}

TEST(SortHints, MainVariantLeadsTheOrderWhenTheProblemAsksForIt) {
    TChessProblem problem;
    bool bWithheld = false;
    bool bEnPassant = false;
    ASSERT_TRUE(ReadFen(*problem.m_pBoard, Placement, bWithheld, bEnPassant));
    const TVariant variant = TVariant::FromText(L"{Main variant} Rh1-h7 Kc3-d3 Ra1-a8", false);
    problem.m_variants.emplace(variant.ToText(), variant);
    TRoot root("");
    root.task.m_sortHints = HintsOfProblem(problem, false);
    EXPECT_TRUE(root.task.m_sortHints.IsEmpty());
    problem.m_shOptions.Set(TProblemOption::UseMainVariant);
    root.task.m_sortHints = HintsOfProblem(problem, false);
    EXPECT_EQ(root.Texts().front(), "Rh1-h7");
}

}  // namespace
}  // namespace tarnwick
