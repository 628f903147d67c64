// The scout proves mates and, on small trees, that there is none; both must be true.

#include "engine/scout/mate_scout.h"

#include <gtest/gtest.h>

#include "solve_support.h"
#include "support/random_positions.h"
#include "support/shared_problems.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t NoLimit = std::uint64_t{1} << 60;

/// The key that the scout finds, in full notation; empty: none.
std::string ScoutedKey(const std::string& fen, int moves, std::uint64_t nodes = NoLimit) {
    CSearchLine line(fen, 2 * moves - 1);
    TProofTable table(1);
    TMateScout scout(line.SearchThread(), table, nodes);
    const auto key = scout.FindKey(line.Root());
    return key ? MoveToDisplayText(*key, line.Root()) : "";
}

void CheckAgainstSlowSolver(std::uint64_t seed, int moves, int count, int maxMen,
                            std::optional<slow::TSetting> setting = std::nullopt) {
    slow::CRandomPositions positions(seed, {.minMen = 3, .maxMen = maxMen});
    int mates = 0;
    for (int i = 0; i < count; ++i) {
        const std::string fen = setting ? positions.Next(*setting) : positions.Next();
        const auto keys = slow::AllKeys(slow::FromFen(fen), moves);
        const std::string key = ScoutedKey(fen, moves);
        ASSERT_EQ(key.empty(), keys.empty()) << fen << " #" << moves << " " << positions.Story();
        ASSERT_TRUE(key.empty() || std::find(keys.begin(), keys.end(), key) != keys.end())
            << fen << " #" << moves << " " << key;
        mates += keys.empty() ? 0 : 1;
    }
    EXPECT_GT(mates, count / 50);
}

TEST(MateScout, AgreesWithTheSlowSolver) {
    CheckAgainstSlowSolver(slow::TestSeed() + 40, 2, 500, 12);
    CheckAgainstSlowSolver(slow::TestSeed() + 41, 3, 150, 10);
}

TEST(MateScout, KeepsCastlingAndEnPassantApart) {
    CheckAgainstSlowSolver(slow::TestSeed() + 42, 3, 80, 7, slow::TSetting::Castling);
    CheckAgainstSlowSolver(slow::TestSeed() + 43, 3, 80, 7, slow::TSetting::EnPassant);
}

TEST(SlowMateScout, AgreesWithTheSlowSolver) {
    CheckAgainstSlowSolver(slow::TestSeed() + 44, 2, 10000, 12);
    CheckAgainstSlowSolver(slow::TestSeed() + 45, 3, 4000, 11);
    CheckAgainstSlowSolver(slow::TestSeed() + 46, 4, 400, 7);
    CheckAgainstSlowSolver(slow::TestSeed() + 47, 3, 2000, 7, slow::TSetting::Castling);
    CheckAgainstSlowSolver(slow::TestSeed() + 48, 3, 2000, 7, slow::TSetting::EnPassant);
}

TEST(MateScout, FindsKeysOfProblems) {
    const std::vector<TSharedProblem> problems = ReadSharedProblems();
    if (problems.empty()) {
        GTEST_SKIP() << "short.cp is not there: set TARNWICK_SHARED_DATA_DIR to its folder";
    }
    for (const TSharedProblem& problem : problems) {
        if (problem.moves <= 4) {
            const std::string key = ScoutedKey(problem.fen, problem.moves);
            EXPECT_NE(std::find(problem.keys.begin(), problem.keys.end(), key), problem.keys.end())
                << problem.name << " " << key;
            EXPECT_EQ(ScoutedKey(problem.fen, problem.moves - 1), "")
                << problem.name << ", shorter";
        }
    }
}

TEST(MateScout, StalemateIsNoMate) {
    EXPECT_EQ(ScoutedKey("7k/8/8/6K1/8/8/8/5Q2", 2), "");
    EXPECT_EQ(ScoutedKey("k7/2Q5/8/8/8/8/8/K7", 2), "") << "Black is stalemated by many moves";
}

TEST(MateScout, GivesUpAfterItsBudget) {
    const std::string endless = "7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5";
    CSearchLine line(endless, 119);
    TProofTable table(1);
    TMateScout scout(line.SearchThread(), table, 1000);
    EXPECT_FALSE(scout.FindKey(line.Root()));
    EXPECT_LE(scout.Expanded(), 1001u);
    line.Task().Stop();
    TMateScout stopped(line.SearchThread(), table, NoLimit);
    EXPECT_FALSE(stopped.FindKey(line.Root()));
    EXPECT_LE(stopped.Expanded(), 1u);
}

/// A long mate by force, which no search of all moves reaches.
TEST(MateScout, SolvesALongProblemInAJob) {
    SKIP_IF_MISSING("6-8.19");
    const TChessboard board = BoardOf("6-8.19");
    TEngineOptions options;
    const TSolveResult scouted = Solve(board, 8, options);
    options.bScout = false;
    const TSolveResult searched = Solve(board, 8, options);
    EXPECT_EQ(KeyTexts(board, scouted.keys), KeyTexts(board, searched.keys));
    EXPECT_LT(scouted.workNodes, searched.workNodes);
}

}  // namespace
}  // namespace tarnwick
