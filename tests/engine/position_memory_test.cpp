#include "engine/search/position_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "chess/prepare_position.h"
#include "solve_support.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

constexpr TMove SomeMove{A1, B1, 0, 0};
constexpr TMove OtherMove{C1, D1, 0, 0};

/// Different positions, many of them with the same fields occupied: only what stands there differs.
std::vector<TChessboard> LookAlikePositions(std::size_t count) {
    slow::CRandomPositions positions(slow::TestSeed(), {.minMen = 4, .maxMen = 9});
    slow::CDice dice(slow::TestSeed());
    std::map<std::string, TChessboard> different;
    constexpr TFigureCode Types[] = {TypeBishop, TypeRook, TypeQueen, TypeKnight};
    while (different.size() < count) {
        TChessboard board = BoardOf(positions.Next());
        different.emplace(WriteFen(board, true), board);
        for (int change = 0; change < 6; ++change) {
            TFigureCode& code = board.m_fields[dice.Below(64)];
            if (code != EmptyField && TypeOf(code) != TypeKing) {
                code = static_cast<TFigureCode>((dice.Chance(50) ? BlackFlag : WhiteFlag) |
                                                Types[dice.Below(4)]);
            }
            if (PreparePositionNoThrow(board, true)) {
                different.emplace(WriteFen(board, true), board);
            }
        }
    }
    std::vector<TChessboard> boards;
    for (const auto& [fen, board] : different) {
        boards.push_back(board);
    }
    return boards;
}

/// What is true of a position, as the search would prove it: no mate below `mate` plies, one from there.
struct TTruth {
    int mate = 0;
    int bestMateStored = 0;  ///< 0: none.
    int noMateStored = 0;
};

TRegisterAnswer ModelAnswer(const TTruth& truth, int plies) {
    if (plies <= truth.noMateStored) {
        return TRegisterAnswer::NoMate;
    }
    return truth.bestMateStored != 0 && plies >= truth.bestMateStored ? TRegisterAnswer::Mate
                                                                      : TRegisterAnswer::Unknown;
}

/// Stores something true about a random position, in the memory and in the model.
void StoreSomething(TPositionMemory& memory, const TChessboard& board, TTruth& truth,
                    slow::CDice& dice) {
    const int plies = 3 + 2 * dice.Below(10);
    if (plies >= truth.mate) {
        memory.StoreMate(board, plies, SomeMove);
        truth.bestMateStored =
            truth.bestMateStored == 0 ? plies : std::min(truth.bestMateStored, plies);
    } else {
        memory.StoreNoMate(board, plies);
        truth.noMateStored = std::max(truth.noMateStored, plies);
    }
}

/// Random stores and queries; counts the answers that the model has and the memory has lost. Every
/// other answer must be the model's.
int CountLostAnswers(TPositionMemory& memory, const std::vector<TChessboard>& boards, int rounds) {
    slow::CDice dice(slow::TestSeed());
    std::vector<TTruth> truths(boards.size());
    for (TTruth& truth : truths) {
        truth.mate = 3 + 2 * dice.Below(12);
    }
    int lost = 0;
    for (int i = 0; i < rounds; ++i) {
        auto which = static_cast<std::size_t>(dice.Below(static_cast<int>(boards.size())));
        StoreSomething(memory, boards[which], truths[which], dice);
        which = static_cast<std::size_t>(dice.Below(static_cast<int>(boards.size())));
        const int plies = 3 + 2 * dice.Below(13);
        const TRegisterAnswer got = memory.Find(boards[which], plies);
        const TRegisterAnswer known = ModelAnswer(truths[which], plies);
        if (got == TRegisterAnswer::Unknown && known != TRegisterAnswer::Unknown) {
            ++lost;
        } else {
            EXPECT_EQ(got, known) << WriteFen(boards[which], true) << " plies " << plies;
        }
    }
    return lost;
}

TEST(PositionMemory, AnswersAsAMapWhileThereIsRoom) {
    TPositionMemory memory(64);
    // Two positions may still meet in one bucket, and one of them then goes.
    EXPECT_LT(CountLostAnswers(memory, LookAlikePositions(1500), 60000), 300);
}

TEST(PositionMemory, ForgetsButNeverLiesWhenItIsFull) {
    TPositionMemory memory(1);
    // Room for 16384 positions, asked to hold more than twice as many.
    const int lost = CountLostAnswers(memory, LookAlikePositions(40000), 300000);
    EXPECT_GT(lost, 1000) << "nothing was replaced: the test is too small";
    EXPECT_LT(lost, 200000);
}

TEST(PositionMemory, DeepWorkOutlivesAFloodOfShallowOnes) {
    const std::vector<TChessboard> boards = LookAlikePositions(40000);
    TPositionMemory memory(1);
    for (std::size_t i = 0; i < 2000; ++i) {
        memory.StoreNoMate(boards[i], 21);
    }
    for (std::size_t i = 2000; i < boards.size(); ++i) {
        memory.StoreNoMate(boards[i], 3);
    }
    const auto isKnown = [&](const TChessboard& board) {
        return memory.Find(board, 3) == TRegisterAnswer::NoMate;
    };
    EXPECT_GT(std::count_if(boards.begin(), boards.begin() + 2000, isKnown), 1500);
    EXPECT_TRUE(isKnown(boards.back())) << "the newest always finds room";
}

TEST(PositionMemory, AMateHoldsForMorePliesAndNoMateForFewer) {
    TPositionMemory memory(1);
    const TChessboard board = BoardOf("8/8/8/3k4/8/8/1Q6/4K3");
    memory.StoreNoMate(board, 7);
    memory.StoreMate(board, 13, SomeMove);
    for (const auto& [plies, answer] :
         std::map<int, TRegisterAnswer>{{3, TRegisterAnswer::NoMate},
                                        {7, TRegisterAnswer::NoMate},
                                        {9, TRegisterAnswer::Unknown},
                                        {11, TRegisterAnswer::Unknown},
                                        {13, TRegisterAnswer::Mate},
                                        {599, TRegisterAnswer::Mate}}) {
        EXPECT_EQ(memory.Find(board, plies), answer) << plies;
    }
    // The shorter mate brings its move; the longer one and the smaller no-mate bring nothing.
    memory.StoreMate(board, 11, OtherMove);
    memory.StoreMate(board, 15, SomeMove);
    memory.StoreNoMate(board, 5);
    EXPECT_EQ(memory.Find(board, 11), TRegisterAnswer::Mate);
    EXPECT_EQ(memory.Find(board, 7), TRegisterAnswer::NoMate);
    EXPECT_TRUE(memory.FindMateMove(board).SameAs(OtherMove));
}

TEST(PositionMemory, KnowsNothingThatItWasNotTold) {
    TPositionMemory memory(1);
    EXPECT_TRUE(memory.IsOn());
    for (const TChessboard& board : LookAlikePositions(200)) {
        EXPECT_EQ(memory.Find(board, 3), TRegisterAnswer::Unknown);
        EXPECT_TRUE(memory.FindMateMove(board).IsPass());
    }
}

TEST(PositionMemory, SwitchedOffItTakesEverythingAndKnowsNothing) {
    TPositionMemory memory(0);
    const TChessboard board = BoardOf("8/8/8/3k4/8/8/1Q6/4K3");
    memory.StoreMate(board, 5, SomeMove);
    memory.StoreNoMate(board, 3);
    EXPECT_FALSE(memory.IsOn());
    EXPECT_EQ(memory.Find(board, 5), TRegisterAnswer::Unknown);
    EXPECT_TRUE(memory.FindMateMove(board).IsPass());
}

}  // namespace
}  // namespace tarnwick
