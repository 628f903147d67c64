#include "chess/attacks.h"

#include <gtest/gtest.h>

#include <set>

#include "support/board_line.h"
#include "support/random_positions.h"
#include "support/slow_attackers.h"

namespace tarnwick {
namespace {

std::set<int> FieldsOf(TFieldSet set) {
    std::set<int> fields;
    while (set != 0) {
        fields.insert(PopLowest(set));
    }
    return fields;
}

int CheckerFor(const std::set<int>& attackers) {
    if (attackers.empty()) {
        return NoChecker;
    }
    return attackers.size() > 1 ? DoubleCheck : *attackers.begin();
}

std::set<int> FieldsOf(const TFilePlace* pPlaces, int count) {
    std::set<int> fields;
    for (int i = 0; i < count; ++i) {
        fields.insert(FieldAt(pPlaces[i].file, pPlaces[i].rank));
    }
    return fields;
}

void ExpectWhiteAttacksAgree(CBoardLine& line, int field) {
    const TChessboard& board = line.Board();
    const int file = FileOf(field);
    const int rank = RankOf(field);
    std::set<int> attackers = slow::AttackersOf(line.Slow(), field, true);
    EXPECT_EQ(FieldsOf(WhiteAttackersOf(board, field)), attackers);
    EXPECT_EQ(IsFieldAttackedByWhite(board, file, rank), !attackers.empty());
    TFilePlace places[16];
    int count = -1;
    EXPECT_EQ(FindWhiteAttackers(board, file, rank, places, &count), CheckerFor(attackers));
    attackers.erase(WhiteKingField(board));
    EXPECT_EQ(IsFieldAttackedByWhiteNoKing(board, file, rank), !attackers.empty());
    EXPECT_EQ(FieldsOf(places, count), attackers);
}

void ExpectBlackAttacksAgree(CBoardLine& line, int field) {
    const TChessboard& board = line.Board();
    const int file = FileOf(field);
    const int rank = RankOf(field);
    std::set<int> attackers = slow::AttackersOf(line.Slow(), field, false);
    EXPECT_EQ(FieldsOf(BlackAttackersOf(board, field)), attackers);
    EXPECT_EQ(IsFieldAttackedByBlack(board, file, rank), !attackers.empty());
    TFilePlace places[16];
    int count = -1;
    EXPECT_EQ(FindBlackAttackers(board, file, rank, places, &count), CheckerFor(attackers));
    attackers.erase(BlackKingField(board));
    EXPECT_EQ(FieldsOf(places, count), attackers);
}

TEST(Attacks, AgreeWithTheSlowRulesOnEveryField) {
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 1500 && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story() + ": " + fen);
        line.Restart(slow::FromFen(fen));
        for (int field = 0; field < FieldCount; ++field) {
            SCOPED_TRACE(slow::FieldText(field));
            ExpectWhiteAttacksAgree(line, field);
            ExpectBlackAttacksAgree(line, field);
        }
    }
}

TEST(Attacks, WithoutAManOpensItsLinesAndDropsItsOwnAttacks) {
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 400 && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story() + ": " + fen);
        const slow::TSlowPosition root = slow::FromFen(fen);
        line.Restart(root);
        for (std::size_t removed = 0; removed < 64; ++removed) {
            slow::TSlowPosition without = root;
            without.board[removed] = '.';
            for (int field = 0; field < FieldCount; ++field) {
                EXPECT_EQ(IsFieldAttackedByBlackWithout(line.Board(), FileOf(field), RankOf(field),
                                                        static_cast<int>(removed)),
                          slow::IsAttacked(without, field, false))
                    << slow::FieldText(field) << " without the man on "
                    << slow::FieldText(static_cast<int>(removed));
            }
        }
    }
}

TEST(Attacks, AttackerListsNamePawnsThenKnightsThenSliders) {
    CBoardLine line("6k1/8/8/4p3/3p1P2/3N1N2/1B6/K3R3");
    TFilePlace places[16];
    int count = 0;
    EXPECT_EQ(FindWhiteAttackers(line.Board(), 4, 4, places, &count), DoubleCheck);
    std::string order;
    for (int i = 0; i < count; ++i) {
        order += slow::FieldText(FieldAt(places[i].file, places[i].rank)) + " ";
    }
    EXPECT_EQ(order, "f4 d3 f3 e1 ");
    EXPECT_EQ(FindBlackAttackers(line.Board(), 4, 2, nullptr, nullptr), FieldOf("d4"));
}

}  // namespace
}  // namespace tarnwick
