// Types with fixed men.

#include "tables/custom_type.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "support/temp_folder.h"
#include "table_contents.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {
namespace {

TChessboard BoardOf(const std::string& placing) {
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    EXPECT_TRUE(ReadFen(board, placing + " w - -", bCastlingWithheld, bEnPassantGiven)) << placing;
    EXPECT_TRUE(PreparePositionNoThrow(board, true)) << placing;
    board.m_shPlies = 41;
    return board;
}

/// White's men stand but for the queen, the pawn on a3 is blocked, those on c and h can go.
constexpr const char* SomeBoard = "7k/8/2p5/7p/8/p7/P6Q/BKR5";

TEST(CustomTypes, TellFreeMenFirstAndWhereTheOthersStand) {
    EXPECT_EQ(CustomTypeOf(BoardOf(SomeBoard)), "Qkp(c7)p(h7)+Kb1+Rc1+Ba1+Pa2+pa3");
    EXPECT_EQ(CustomTypeOf(BoardOf("7k/8/8/8/8/p7/P6Q/BKR5")), "") << "few men have a plain type";
    EXPECT_EQ(CustomTypeOf(BoardOf("7k/pppppppp/8/8/8/8/P6Q/BKR5")), "") << "too many are free";
}

/// A pawn that came from above b4 could have taken the man beside it.
TEST(CustomTypes, EndTheRoadOfAPawnWhereItCouldHaveCaptured) {
    EXPECT_EQ(CustomTypeOf(BoardOf("7k/8/8/8/NpK4p/8/RR5B/8")), "kp(b4)p(h7)+Kc4+Ra2b2+Bh2+Na4");
}

TEST(CustomTypes, NumberTheirPositions) {
    const CCustomType type("Qkp(c7)p(h7)+Kb1+Rc1+Ba1+Pa2+pa3");
    EXPECT_EQ(type.GetIndexCount(), 59U * 59 * 6 * 7);  // c1 is taken, h1 is not.
    std::mt19937_64 random(1);
    int positions = 0;
    TChessboard board = EmptyChessboard();
    for (int i = 0; i < 2000; ++i) {
        const std::uint64_t index = random() % type.GetIndexCount();
        board = EmptyChessboard();
        if (type.PositionOfIndex(index, board) && PreparePositionNoThrow(board, true)) {
            ++positions;
            ASSERT_EQ(type.IndexOfPosition(board), index);
        }
    }
    EXPECT_GT(positions, 1000);
    const TChessboard some = BoardOf(SomeBoard);
    TChessboard back = EmptyChessboard();
    ASSERT_TRUE(type.PositionOfIndex(type.IndexOfPosition(some), back));
    EXPECT_TRUE(std::equal(std::begin(some.m_fields), std::end(some.m_fields), back.m_fields));
    EXPECT_FALSE(type.ArePawnsAtTop(some));
}

TEST(CustomTypes, RefuseTextsThatAreNone) {
    for (const char* text :
         {"", "+Kb1", "Qx+Kb1", "Qkp+Kb1", "Qkp(c7+Kb1", "Qkp(i7)+Kb1", "Qk+Kb", "Qk+", "Qk+Kb1b1",
          "Qk+Kb1+Rb1", "QQQQQQQQ+Kb1", "kp(b1)+Kb1", "Qk+K1b"}) {
        EXPECT_THROW(CCustomType{text}, ChessException) << text;
    }
}

/// The register of such a board comes from CustomPrecalc under an odd key; the search does not ask it.
TEST(CustomTypes, HaveTablesOfTheirOwn) {
    const CTempFolder folder;
    const TChessboard board = BoardOf("7k/8/8/8/NpK4p/8/RR5B/8");
    const CCustomType type(CustomTypeOf(board));
    std::vector<char> bytes(type.GetIndexCount());
    bytes[type.IndexOfPosition(board)] = 12;
    std::filesystem::create_directory(folder / "CustomPrecalc");
    std::ofstream file(folder / "CustomPrecalc" / (StemOfTable(type.Text()) + ".precalc"),
                       std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    TTableOptions options;
    options.programFolder = folder.Path();
    options.askForGlobalRegisterRecompression = 2;
    CKeptDialog dialog;
    TGlobalRegisterSet registers(options, &dialog);
    EXPECT_EQ(registers.FindDataFor(board, {}), nullptr);
    TGlobalRegister* pRegister = registers.FindDataFor(board);
    ASSERT_NE(pRegister, nullptr);
    EXPECT_EQ(pRegister->Key() & 1, 1U);
    EXPECT_EQ(pRegister->IsMateByIndex(board), 23);
    registers.ReleaseData(pRegister);

    // Three free men: both packed forms were offered, asked for and made, and the packed table answers alike.
    EXPECT_EQ(dialog.asked.size(), 3U) << "simple, its saving, LZW";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "CustomPrecalc"), {}), 3);
    registers.Clear(false);
    dialog.asked.clear();
    pRegister = registers.FindDataFor(board);
    ASSERT_NE(pRegister, nullptr);
    EXPECT_TRUE(pRegister->Store().IsPacked());
    EXPECT_EQ(pRegister->IsMateByIndex(board), 23);
    EXPECT_TRUE(dialog.asked.empty());
    registers.ReleaseData(pRegister);
}

}  // namespace
}  // namespace tarnwick
