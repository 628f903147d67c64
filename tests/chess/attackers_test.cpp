#include "chess/attackers.h"

#include <gtest/gtest.h>

#include <map>

#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_attackers.h"

namespace tarnwick {
namespace {

using TList = int (*)(const TChessboard&, int, int, std::uint8_t*) noexcept;
using TFind = bool (*)(const TChessboard&, int, int, std::uint8_t*) noexcept;

/// "e4 d3* f1+": * pinned, + behind another.
std::string TextOf(const std::uint8_t* pList, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += (i > 0 ? " " : "") + slow::FieldText(pList[i] & AttackerFieldMask);
        text += (pList[i] & AttackerPinned) != 0 ? "*" : "";
        text += (pList[i] & AttackerBehind) != 0 ? "+" : "";
    }
    return text;
}

std::string Listed(TList list, const TChessboard& board, int field) {
    std::uint8_t entries[MaxAttackers];
    return TextOf(entries, list(board, FileOf(field), RankOf(field), entries));
}

std::string Found(TFind find, const TChessboard& board, int field) {
    std::uint8_t entry = 0;
    return find(board, FileOf(field), RankOf(field), &entry) ? TextOf(&entry, 1) : "";
}

struct TCase {
    const char* name;
    const char* fen;
    const char* field;
    const char* white;        ///< ListWhiteAttackers
    const char* whiteOnRays;  ///< ListWhiteAttackersFirstOnRay
    const char* whiteFree;    ///< ListWhiteFreeAttackers
    const char* black;        ///< ListBlackAttackers
    const char* blackFree;    ///< ListBlackFreeAttackers
    const char* blackFound;   ///< FindBlackFreeAttacker
    const char* blackFirst;   ///< FindFirstBlackAttacker
};

const TCase Cases[] = {
    {"KindsInOrderAndTheKingLast", "k3q3/8/3p4/4p3/3P1K2/5N2/1B6/4R3", "e5",  //
     "d4 f3 b2+ e1 f4", "d4 f3 e1 f4", "d4 f3 e1",                            //
     "d6 e8", "d6 e8", "d6", "d6"},
    {"RaysFromTheFieldOutward", "7k/4r3/1b3q2/4P3/4K3/2Q5/1B6/7B", "e5",  //
     "c3 b2+ e4", "c3 e4", "c3",                                          //
     "f6 e7", "f6 e7", "f6", "f6"},
    {"BatteryBehindPawnAndKing", "3b3k/4p3/8/4b3/3P1K2/2B3Q1/8/8", "e5",  //
     "d4 g3+ c3+ f4", "d4 f4", "d4",                                      //
     "", "", "", ""},
    {"PinnedRookMayTakeAlongItsLine", "k3r3/8/8/8/4R3/8/8/4K3", "e8",  //
     "e4", "e4", "e4",                                                 //
     "", "", "", ""},
    {"PinnedRookIsMarkedAside", "k3r3/8/8/8/4R2p/8/8/4K3", "h4",  //
     "e4*", "e4*", "",                                            //
     "", "", "", ""},
    {"PinnedFrontManKeepsTheRayClosed", "3rk3/3r4/8/8/B2P4/8/8/K7", "d4",  //
     "", "", "",                                                           //
     "d7* d8+", "", "", "d7*"},
    {"FirstFreeManIsNotTheFirstMan", "k7/n7/8/1P6/8/R7/1r6/7K", "b5",  //
     "", "", "",                                                       //
     "a7* b2", "b2", "b2", "a7*"},
};

class AttackerLists : public ::testing::TestWithParam<TCase> {};

TEST_P(AttackerLists, AreAsNamed) {
    const TCase& c = GetParam();
    CBoardLine line(c.fen);
    const TChessboard& board = line.Board();
    const int field = FieldOf(c.field);
    EXPECT_EQ(Listed(ListWhiteAttackers, board, field), c.white);
    EXPECT_EQ(Listed(ListWhiteAttackersFirstOnRay, board, field), c.whiteOnRays);
    EXPECT_EQ(Listed(ListWhiteFreeAttackers, board, field), c.whiteFree);
    EXPECT_EQ(Listed(ListBlackAttackers, board, field), c.black);
    EXPECT_EQ(Listed(ListBlackFreeAttackers, board, field), c.blackFree);
    EXPECT_EQ(Found(FindBlackFreeAttacker, board, field), c.blackFound);
    EXPECT_EQ(Listed(FindFirstBlackAttacker, board, field), c.blackFirst);
}

INSTANTIATE_TEST_SUITE_P(Attackers, AttackerLists, ::testing::ValuesIn(Cases), CaseName);

/// Attackers in waves: those that attack at once, then those that attack once the wave before is off
/// the board. Men that are pinned stay where they are if `pinnedStay`.
std::map<int, int> AttackersWithMarks(const slow::TSlowPosition& position, int field, bool byWhite,
                                      bool pinnedStay) {
    std::map<int, int> entries;
    slow::TSlowPosition rest = position;
    int marks = 0;
    for (bool found = true; found; marks = AttackerBehind) {
        found = false;
        for (const int attacker : slow::AttackersOf(rest, field, byWhite)) {
            if (entries.contains(attacker)) {
                continue;
            }
            const bool pinned = slow::IsPinnedFor(position, attacker, field);
            entries[attacker] = marks | (pinned ? AttackerPinned : 0);
            found = found || !(pinned && pinnedStay);
        }
        for (const auto& [attacker, mark] : entries) {
            if (!pinnedStay || (mark & AttackerPinned) == 0) {
                rest.board[static_cast<std::size_t>(attacker)] = '.';
            }
        }
    }
    return entries;
}

std::map<int, int> EntriesOf(TList list, const TChessboard& board, int field) {
    std::uint8_t entries[MaxAttackers];
    const int count = list(board, FileOf(field), RankOf(field), entries);
    std::map<int, int> result;
    for (int i = 0; i < count; ++i) {
        result[entries[i] & AttackerFieldMask] = entries[i] & ~AttackerFieldMask;
    }
    EXPECT_EQ(result.size(), static_cast<std::size_t>(count)) << "a man is listed twice";
    return result;
}

std::map<int, int> Without(std::map<int, int> entries, int marks, int king) {
    std::erase_if(entries, [&](const auto& entry) {
        return (entry.second & marks) != 0 || entry.first == king;
    });
    return entries;
}

TEST(Attackers, ListsFollowFromAttacksOnBoardsWithMenRemoved) {
    constexpr int nobody = -1;
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 1000 && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        line.Restart(slow::FromFen(fen));
        const TChessboard& board = line.Board();
        for (int field = 0; field < FieldCount; ++field) {
            SCOPED_TRACE(positions.Story() + ": " + fen + " " + slow::FieldText(field));
            const auto white = AttackersWithMarks(line.Slow(), field, true, false);
            EXPECT_EQ(EntriesOf(ListWhiteAttackers, board, field), white);
            EXPECT_EQ(EntriesOf(ListWhiteAttackersFirstOnRay, board, field),
                      Without(white, AttackerBehind, nobody));
            const auto free =
                Without(white, AttackerBehind | AttackerPinned, WhiteKingField(board));
            EXPECT_EQ(EntriesOf(ListWhiteFreeAttackers, board, field), free);
            EXPECT_EQ(FindWhiteFreeAttacker(board, FileOf(field), RankOf(field), nullptr),
                      !free.empty());

            const auto black = AttackersWithMarks(line.Slow(), field, false, false);
            EXPECT_EQ(EntriesOf(ListBlackAttackers, board, field), black);
            const auto blackFree = AttackersWithMarks(line.Slow(), field, false, true);
            EXPECT_EQ(EntriesOf(ListBlackFreeAttackers, board, field),
                      Without(blackFree, AttackerPinned, nobody));
            EXPECT_EQ(
                FindBlackFreeAttacker(board, FileOf(field), RankOf(field), nullptr),
                !Without(black, AttackerBehind | AttackerPinned, BlackKingField(board)).empty());
            EXPECT_EQ(EntriesOf(FindFirstBlackAttacker, board, field).empty(),
                      Without(black, AttackerBehind, BlackKingField(board)).empty());
        }
    }
}

}  // namespace
}  // namespace tarnwick
