// Whole solves against two judges: the slow solver on random positions, and problems by other people
// with all their keys. Every comparison is of the whole set of keys.

#include <gtest/gtest.h>

#include "chess/field_transforms.h"
#include "solve_support.h"
#include "support/random_positions.h"
#include "support/shared_problems.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

std::string Join(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += text + " ";
    }
    return all;
}

/// All keys as one text; the text of another status than mate or no mate agrees with nothing.
std::string AllKeysText(const TChessboard& board, int moves, std::size_t memoryMiB) {
    const TSolveResult result = Solve(board, moves, AllKeysWanted(memoryMiB));
    if (!result.bComplete || (result.status == TSolveStatus::Mate) == result.keys.empty()) {
        return "broken result: " + result.message;
    }
    return Join(KeyTexts(board, result.keys));
}

/// What the position memory may do wrong shows as a difference between its sizes.
std::size_t MemoryOfCase(int i) {
    constexpr std::size_t Sizes[] = {0, 1, 1, 8};
    return Sizes[i % 4];
}

/// Compares `count` random positions and stops at the first difference.
void CheckAgainstSlowSolver(std::uint64_t seed, int moves, int count, int maxMen = 12) {
    slow::CRandomPositions positions(seed, {.minMen = 3, .maxMen = maxMen});
    int mates = 0;
    for (int i = 0; i < count; ++i) {
        const std::string fen = positions.Next();
        const std::string want = Join(slow::AllKeys(slow::FromFen(fen), moves));
        const std::string got = AllKeysText(BoardOf(fen), moves, MemoryOfCase(i));
        ASSERT_EQ(got, want) << fen << " #" << moves << ", memory " << MemoryOfCase(i) << " MiB, "
                             << positions.Story();
        mates += want.empty() ? 0 : 1;
    }
    EXPECT_GT(mates, count / 50) << "hardly any mate among the positions: they test little";
}

TEST(ReferenceAgreement, MatesInOne) {
    CheckAgainstSlowSolver(slow::TestSeed(), 1, 500);
}

TEST(ReferenceAgreement, MatesInTwo) {
    CheckAgainstSlowSolver(slow::TestSeed() + 1, 2, 1200);
}

TEST(ReferenceAgreement, MatesInThree) {
    CheckAgainstSlowSolver(slow::TestSeed() + 2, 3, 300);
}

/// One eighth of a hundred thousand positions.
class SlowReferenceAgreement : public testing::TestWithParam<int> {
  protected:
    std::uint64_t Seed(int moves) const {
        return slow::TestSeed() + 1000 + 10 * static_cast<std::uint64_t>(GetParam()) +
               static_cast<std::uint64_t>(moves);
    }
};

TEST_P(SlowReferenceAgreement, MatesInOneAndTwo) {
    CheckAgainstSlowSolver(Seed(1), 1, 1500);
    CheckAgainstSlowSolver(Seed(2), 2, 8000);
}

TEST_P(SlowReferenceAgreement, MatesInThree) {
    CheckAgainstSlowSolver(Seed(3), 3, 2900);
}

TEST_P(SlowReferenceAgreement, MatesInFourOfFewMen) {
    CheckAgainstSlowSolver(Seed(4), 4, 100, 7);
}

INSTANTIATE_TEST_SUITE_P(Part, SlowReferenceAgreement, testing::Range(0, 8));

/// Neither side nor its mirror image can castle: with castling the two sides of the board differ.
bool IsCastlingOutOfQuestion(const std::string& fen) {
    const slow::TSlowBoard board = slow::FromFen(fen).board;
    const auto atHome = [&](std::size_t rank, char king, char rook) {
        return (board[rank + 3] == king || board[rank + 4] == king) &&
               (board[rank] == rook || board[rank + 7] == rook);
    };
    return !atHome(0, 'K', 'R') && !atHome(56, 'k', 'r');
}

/// The mirrored position has the mirrored keys.
void CheckMirrored(const std::string& fen, int moves) {
    TChessboard board = BoardOf(fen);
    std::vector<TMove> keys = Solve(board, moves, AllKeysWanted()).keys;
    TransformPosition(TTransform::Mirror, board);
    for (TMove& key : keys) {
        TransformMove(TTransform::Mirror, key);
    }
    ASSERT_EQ(AllKeysText(board, moves, 1), Join(KeyTexts(board, keys)))
        << "mirrored: " << fen << " #" << moves;
}

TEST(MirroredPositions, RandomPositionsHaveTheMirroredKeys) {
    slow::CRandomPositions positions(slow::TestSeed() + 3);
    int checked = 0;
    while (checked < 600) {
        const std::string fen = positions.Next();
        if (IsCastlingOutOfQuestion(fen)) {
            ASSERT_NO_FATAL_FAILURE(CheckMirrored(fen, 2 + checked % 3)) << positions.Story();
            ++checked;
        }
    }
}

TEST(MirroredPositions, ShortProblemsHaveTheMirroredKeys) {
    const std::vector<TSharedProblem> problems = ReadSharedProblems();
    if (problems.empty()) {
        GTEST_SKIP() << "short.cp is not there: set TARNWICK_SHARED_DATA_DIR to its folder";
    }
    for (const TSharedProblem& problem : problems) {
        if (problem.moves <= 4 && IsCastlingOutOfQuestion(problem.fen)) {
            ASSERT_NO_FATAL_FAILURE(CheckMirrored(problem.fen, problem.moves)) << problem.name;
        }
    }
}

constexpr int SharedGroups = 8;

class SharedProblems : public testing::TestWithParam<int> {};

TEST_P(SharedProblems, HaveTheirKeysAndNoOthers) {
    const std::vector<TSharedProblem> problems = ReadSharedProblems();
    if (problems.empty()) {
        GTEST_SKIP() << "short.cp is not there: set TARNWICK_SHARED_DATA_DIR to its folder";
    }
    const std::size_t group = static_cast<std::size_t>(GetParam());
    for (std::size_t i = group; i < problems.size(); i += SharedGroups) {
        const TSharedProblem& problem = problems[i];
        EXPECT_EQ(AllKeysText(BoardOf(problem.fen), problem.moves, 16), Join(problem.keys))
            << problem.name << ", #" << problem.moves << " " << problem.fen;
    }
}

INSTANTIATE_TEST_SUITE_P(Group, SharedProblems, testing::Range(0, SharedGroups));

/// The memory is lossy at its smallest and off at zero: neither may change an answer.
TEST(SharedProblemsWithLittleMemory, HaveTheSameKeys) {
    const std::vector<TSharedProblem> problems = ReadSharedProblems();
    if (problems.empty()) {
        GTEST_SKIP() << "short.cp is not there: set TARNWICK_SHARED_DATA_DIR to its folder";
    }
    for (std::size_t i = 0; i < problems.size(); i += 6) {
        const TSharedProblem& problem = problems[i];
        EXPECT_EQ(AllKeysText(BoardOf(problem.fen), problem.moves, i % 4 == 0 ? 1 : 0),
                  Join(problem.keys))
            << problem.name << ", #" << problem.moves << " " << problem.fen;
    }
}

// The memory knows placings only. Where a castling or a capture en passant makes two positions of one
// placing, a memory that mixed them up would lose or invent keys, but rarely: among random positions one
// in some thousands.

TEST(MemoryOfPlacings, KeepsEnPassantApart) {
    for (const char* fen : {"8/3p4/6R1/4P3/8/8/8/k1K5"}) {
        EXPECT_EQ(AllKeysText(BoardOf(fen), 4, 1), Join(slow::AllKeys(slow::FromFen(fen), 4)))
            << fen;
    }
}

TEST(SlowMemoryOfPlacings, ChangesNoKey) {
    slow::CRandomPositions positions(slow::TestSeed() + 7, {.minMen = 4, .maxMen = 7});
    for (int i = 0; i < 10000; ++i) {
        const std::string fen =
            positions.Next(i % 2 == 0 ? slow::TSetting::Castling : slow::TSetting::EnPassant);
        const TChessboard board = BoardOf(fen);
        ASSERT_EQ(AllKeysText(board, 4, 1), AllKeysText(board, 4, 0)) << fen << " #4";
    }
}

/// A key of n moves is a move after which every reply allows a mate in n - 1. Compares a whole solve
/// with the shorter solves that must add up to it, for lengths that no slow solver reaches.
std::vector<std::string> KeysByShorterSolves(const std::string& fen, int moves) {
    TEngineOptions anyKey;
    anyKey.positionMemoryMiB = 1;
    const slow::TSlowPosition root = slow::FromFen(fen);
    std::vector<std::string> keys;
    for (const slow::TSlowMove& move : slow::LegalMoves(root)) {
        const slow::TSlowPosition next = slow::Play(root, move);
        const std::vector<slow::TSlowMove> replies = slow::LegalMoves(next);
        const bool isKey =
            replies.empty()
                ? slow::InCheck(next)
                : std::all_of(replies.begin(), replies.end(), [&](const auto& reply) {
                      const auto after = slow::PlacementText(slow::Play(next, reply));
                      return Solve(after, moves - 1, anyKey).status == TSolveStatus::Mate;
                  });
        if (isKey) {
            keys.push_back(slow::FullText(root, move));
        }
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

/// A placement alone forgets lost castlings and a double step beside a pawn.
bool IsToldByPlacement(const std::string& fen) {
    return IsCastlingOutOfQuestion(fen) &&
           (fen.find('P') == std::string::npos || fen.find('p') == std::string::npos);
}

void CheckAgainstShorterSolves(std::uint64_t seed, int moves, int maxMen, int count) {
    slow::CRandomPositions positions(seed, {.minMen = 4, .maxMen = maxMen});
    int mates = 0;
    for (int checked = 0; checked < count;) {
        const std::string fen = positions.Next();
        if (!IsToldByPlacement(fen)) {
            continue;
        }
        const std::string want = Join(KeysByShorterSolves(fen, moves));
        ASSERT_EQ(AllKeysText(BoardOf(fen), moves, MemoryOfCase(checked)), want)
            << fen << " #" << moves << ", memory " << MemoryOfCase(checked) << " MiB, "
            << positions.Story();
        mates += want.empty() ? 0 : 1;
        ++checked;
    }
    EXPECT_GT(mates, count / 50);
}

TEST(ShorterSolves, AddUpToMatesInFive) {
    CheckAgainstShorterSolves(slow::TestSeed() + 4, 5, 6, 40);
}

TEST(SlowShorterSolves, AddUpToMatesInFive) {
    CheckAgainstShorterSolves(slow::TestSeed() + 5, 5, 7, 400);
}

TEST(SlowShorterSolves, AddUpToMatesInSix) {
    CheckAgainstShorterSolves(slow::TestSeed() + 6, 6, 5, 200);
}

}  // namespace
}  // namespace tarnwick
