// Types, indices and numbers of sets: what a file's layout hangs on.

#include "tables/table_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "base/chess_exception.h"

#include "chess/chessboard_id.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

/// A board with the men of the type on the fields of the place.
TChessboard BoardOf(const CTableIndex& index, const TTablePlace& place) {
    TChessboard board = EmptyChessboard();
    board.m_fields[place.whiteKing] = WhiteKing;
    board.m_fields[place.blackKing] = BlackKing;
    for (std::size_t i = 0; i < index.Letters(); ++i) {
        board.m_fields[place.men[i]] = index.ManOf(i);
    }
    board.m_shPlies = 3;
    PreparePositionNoThrow(board, true);
    return board;
}

TEST(PositionType, IsReadFromBoardsAndKeysAlike) {
    for (const std::string type : {"Q", "Qr", "RBp", "NNn", "QRBNP", "qrbnp", "PPPpp"}) {
        const CTableIndex index(type);
        TTablePlace place{4, 60, {8, 9, 10, 11, 12}};
        const TChessboard board = BoardOf(index, place);
        EXPECT_EQ(PositionTypeOf(board), type);
        EXPECT_EQ(PositionTypeId(board), PositionTypeId(type));
        EXPECT_EQ(PositionTypeId(board) & 1, 0U) << "odd keys are those of types with fixed men";
        EXPECT_EQ(PositionTypeName(PositionTypeId(type)), type);
    }
    TChessboard kings = BoardOf(CTableIndex("Q"), {4, 60, {8}});
    kings.m_fields[8] = EmptyField;
    PreparePosition(kings, true);
    EXPECT_EQ(PositionTypeId(kings), 0U);
}

TEST(PositionType, OrdersLettersAndRefusesOthers) {
    EXPECT_EQ(OrderedType("pBrRq"), "RBqrp");
    for (const char* bad : {"", "K", "QX", "QRBNPq", "Q r", "Qk"}) {
        EXPECT_THROW(OrderedType(bad), ChessException) << bad;
    }
    EXPECT_EQ(RemoveFromPosType("QRRp", 'R'), "QRp");
    EXPECT_THROW(RemoveFromPosType("QR", 'p'), ChessException);
    EXPECT_EQ(GetIndexToRemoveToObtainOtherPosType("QRp", "QR"), 2);
    EXPECT_EQ(GetIndexToRemoveToObtainOtherPosType("QRp", "Qp"), -1);
    EXPECT_THROW(GetIndexToRemoveToObtainOtherPosType("QRp", "Q"), ChessException);
}

TEST(PositionType, NamesWhatCapturesAndPromotionsLeadTo) {
    const std::vector<std::string> reached = TypesReachedFrom("Pq");
    EXPECT_EQ(reached,
              (std::vector<std::string>{"B", "Bq", "N", "Nq", "P", "Q", "Qq", "R", "Rq", "q"}));
    EXPECT_EQ(AllTypes(1, false), (std::vector<std::string>{"Q", "R", "B", "N"}));
    EXPECT_EQ(AllTypes(2, false).size() + AllTypes(2, true).size(), 40U);
    EXPECT_TRUE(IsPositionTypeWithoutData("Nqr"));
    EXPECT_FALSE(IsPositionTypeWithoutData("Npq"));
}

TEST(TableIndex, CountsTheIndicesOfATable) {
    EXPECT_EQ(CTableIndex("Q").GetIndexCount(), 40960U);
    EXPECT_EQ(CTableIndex("P").GetIndexCount(), 98304U);
    EXPECT_EQ(CTableIndex("Qq").GetIndexCount(), 2621440U);
    EXPECT_EQ(CTableIndex("QP").GetIndexCount(), 6291456U);
    EXPECT_EQ(CTableIndex("NNNn").GetIndexCount(), 1706557440U);
    EXPECT_EQ(CTableIndex("NNn").GetIndexCount(), 167772160U) << "five men: no numbers of sets";
    EXPECT_EQ(CTableIndex("NNNn", CompactPawnsFlag).GetIndexCount(), 10737418240U);
    EXPECT_EQ(CTableIndex("P", 0).GetIndexCount(), 131072U);
}

/// Every index is a position's own, and mirrored positions share one.
TEST(TableIndex, GoesToPositionsAndBack) {
    std::mt19937_64 random(7);
    for (const std::string type : {"Q", "P", "Qr", "RP", "BBn", "QPp", "NNNn", "PPpp"}) {
        const CTableIndex index(type);
        int positions = 0;
        for (int i = 0; i < 4000; ++i) {
            const std::uint64_t number = random() % index.GetIndexCount();
            TTablePlace place;
            if (!index.PlaceOfIndex(number, place)) {
                continue;
            }
            ++positions;
            ASSERT_EQ(index.IndexOfPlace(place), number) << type;
            TChessboard fields = EmptyChessboard();
            ASSERT_TRUE(index.PositionOfIndex(number, fields));
            const TChessboard board = BoardOf(index, place);
            ASSERT_TRUE(std::ranges::equal(fields.m_fields, board.m_fields));
            TTablePlace first = place;
            index.SortLikeMen(first);
            ASSERT_EQ(index.IndexOfPosition(board), index.IndexOfPlace(first)) << type;
            // The mirror image in the middle of the files has an index of the same position.
            TTablePlace mirrored = first;
            for (std::uint8_t* pField : {&mirrored.whiteKing, &mirrored.blackKing}) {
                *pField ^= 7;
            }
            for (std::size_t letter = 0; letter < index.Letters(); ++letter) {
                mirrored.men[letter] ^= 7;
            }
            ASSERT_EQ(index.IndexOfPlace(mirrored), index.IndexOfPlace(first)) << type;
        }
        EXPECT_GT(positions, 2000) << type;
    }
}

TEST(TableIndex, FoldsTheBoardByTheWhiteKing) {
    const CTableIndex index("Q");
    // From d4 nothing moves; e5 is brought to d4 by turning files and ranks.
    EXPECT_EQ(index.IndexOfPlace({27, 0, {63}}) % 10, 9U);
    EXPECT_EQ(index.IndexOfPlace({27, 0, {63}}), index.IndexOfPlace({36, 63, {0}}));
    TTablePlace place;
    EXPECT_FALSE(index.PlaceOfIndex(0, place)) << "both kings on a1";
    // A king on the diagonal: mirror images in it have an index each.
    EXPECT_NE(index.IndexOfPlace({0, 40, {1}}), index.IndexOfPlace({0, 5, {8}}));
}

TEST(TableIndex, KeepsPawnsOffTheFirstAndLastRank) {
    const CTableIndex index("Pp");
    std::set<int> ranks;
    for (std::uint64_t number = 0; number < index.GetIndexCount(); number += 641) {
        TTablePlace place;
        index.PlaceOfIndex(number, place);
        ranks.insert(RankOf(place.men[0]));
        ranks.insert(RankOf(place.men[1]));
    }
    EXPECT_EQ(ranks, (std::set<int>{1, 2, 3, 4, 5, 6}));
}

TEST(CombinationMapping, NumbersSetsInOrder) {
    struct TCase {
        int men;
        bool bPawns;
        std::uint32_t count;
    };
    for (const TCase& c : {TCase{2, true, 1128}, TCase{3, true, 17296}, TCase{4, true, 194580},
                           TCase{5, true, 1712304}, TCase{2, false, 2016}, TCase{3, false, 41664},
                           TCase{4, false, 635376}, TCase{5, false, 7624512}}) {
        const auto pMapping = MakeCombinationMapping(c.men, c.bPawns);
        ASSERT_EQ(pMapping->GetSetCount(), c.count);
        const auto size = static_cast<std::size_t>(c.men);
        const std::uint32_t step = c.count > 100000 ? 997 : 1;
        for (std::uint32_t i = 0; i < c.count; i += step) {
            const std::uint8_t* pSet = pMapping->GetSetByIndex(i);
            ASSERT_EQ(pMapping->GetIndexOfSet(pSet), i);
            ASSERT_TRUE(std::is_sorted(pSet, pSet + size));
            if (i > 0) {
                const std::uint8_t* pBefore = pMapping->GetSetByIndex(i - 1);
                ASSERT_TRUE(
                    std::lexicographical_compare(pBefore, pBefore + size, pSet, pSet + size));
            }
        }
        EXPECT_EQ(pMapping->GetSetByIndex(0)[0], c.bPawns ? 8 : 0);
        EXPECT_EQ(pMapping->GetSetByIndex(c.count - 1)[size - 1], c.bPawns ? 55 : 63);
    }
}

}  // namespace
}  // namespace tarnwick
