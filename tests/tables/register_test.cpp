// Registers of tables: every form of a file gives the same answers, memory stays within its quota, and a table
// in use is never taken away.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/chess_exception.h"
#include "base/language.h"
#include "base/user_dialog.h"

#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "support/table_folder.h"
#include "table_contents.h"
#include "tables/register/global_register_set.h"
#include "tables/register/max_mates.h"
#include "tables/register/register_reports.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t IndicesOfQ = 40960;

TChessboard BoardOf(const std::string& placing, int plies = 41) {
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    EXPECT_TRUE(ReadFen(board, placing + " w - -", bCastlingWithheld, bEnPassantGiven)) << placing;
    EXPECT_TRUE(PreparePositionNoThrow(board, true)) << placing;
    board.m_shPlies = static_cast<std::uint16_t>(plies);
    return board;
}

/// All values of a type as plies, as the register gives them.
std::vector<std::uint16_t> AllPlies(TGlobalRegisterSet& registers, const std::string& type) {
    TGlobalRegister* pRegister = registers.FindDataForType(type);
    std::vector<std::uint16_t> plies;
    for (std::uint64_t i = 0; pRegister != nullptr && i < pRegister->GetIndexCount(); ++i) {
        plies.push_back(pRegister->PliesAt(i));
    }
    registers.ReleaseData(pRegister);
    return plies;
}

struct TForm {
    const char* name;
    void (CTableFolder::*turnInto)(const std::string& type) const;  ///< Null: plain.
    int useDataPacked;
    bool bOnDisk;
};

class RegisterForms : public testing::TestWithParam<TForm> {};

/// A mark of an unknown position is in the table, too: no form may take it for a mate in 255.
TEST_P(RegisterForms, GiveTheSameValues) {
    const CTableFolder folder({"P"});
    std::vector<std::uint8_t> bytes = folder.BytesOf("P");
    for (std::size_t i = 1000; i < bytes.size(); i += 1000) {
        bytes[i] = 0xFF;
    }
    folder.WriteBytes("P", bytes);
    const TForm& form = GetParam();
    if (form.turnInto != nullptr) {
        (folder.*form.turnInto)("P");
    }
    TTableOptions options = folder.Options();
    options.bGlobalRegisterForceDiskAccess = form.bOnDisk;
    options.useDataPackedForRandomAccess = form.useDataPacked;
    TGlobalRegisterSet registers(options);
    const std::vector<std::uint16_t> plies = AllPlies(registers, "P");
    ASSERT_EQ(plies.size(), bytes.size());
    for (std::size_t i = 5; i < bytes.size(); i += 5) {  // Unpacking takes its time.
        const int want = bytes[i] == 0xFF ? UnknownPlies : (bytes[i] == 0 ? 0 : 2 * bytes[i] - 1);
        ASSERT_EQ(plies[i], want) << "index " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, RegisterForms,
    testing::Values(TForm{"PlainInMemory", nullptr, 2, false},
                    TForm{"PlainOnDisk", nullptr, 2, true},
                    TForm{"Lz4", &CTableFolder::TurnIntoLz4, 2, false},
                    TForm{"Lz4ThoughDiskIsWanted", &CTableFolder::TurnIntoLz4, 2, true},
                    TForm{"PackedInMemory", &CTableFolder::TurnIntoPackedLzw, 2, false},
                    TForm{"PackedOnDisk", &CTableFolder::TurnIntoPackedLzw, 2, true},
                    TForm{"PackedAndExpanded", &CTableFolder::TurnIntoPackedLzw, 1, false}),
    [](const auto& form) { return std::string(form.param.name); });

TEST(Registers, AnswerBoardsInAnyOrientation) {
    const CTableFolder folder({"R"});
    TGlobalRegisterSet registers(folder.Options());
    for (const char* placing : {"8/8/8/8/8/1K6/7R/k7", "k7/7R/1K6/8/8/8/8/8", "7k/R7/6K1/8/8/8/8/8",
                                "8/8/8/8/8/6K1/R7/7k"}) {
        const TChessboard board = BoardOf(placing);
        TGlobalRegister* pRegister = registers.FindDataFor(board);
        ASSERT_NE(pRegister, nullptr);
        EXPECT_EQ(pRegister->IsMateByIndex(board), 1) << placing;
        registers.ReleaseData(pRegister);
    }
}

TEST(Registers, AreLoadedForTheSearchOnlyWhereThatPays) {
    const CTableFolder folder({"Q", "R"});
    struct TCase {
        const char* placing;
        int plies;
        TLookupLimits limits;
        bool bLoaded;
    };
    const char* queen = "8/8/8/8/8/1K6/7Q/k7";
    const char* rook = "8/8/8/8/8/1K6/7R/k7";
    const TCase cases[] = {
        {queen, 15, {}, true},
        {queen, 13, {}, false},
        {queen, 9, {.bAllSolutions = true}, true},
        {queen, 7, {.bAllSolutions = true}, false},
        {queen, 15, {.bQueenIsSlow = true}, false},
        {queen, 17, {.bQueenIsSlow = true}, true},
        {rook, 19, {}, true},
        {rook, 17, {}, false},
        {rook, 13, {.bAllSolutions = true}, true},
        {rook, 11, {.bAllSolutions = true}, false},
    };
    for (const TCase& test : cases) {
        TGlobalRegisterSet registers(folder.Options());
        const TChessboard board = BoardOf(test.placing, test.plies);
        TGlobalRegister* pRegister = registers.FindDataFor(board, test.limits);
        EXPECT_EQ(pRegister != nullptr, test.bLoaded) << test.placing << " " << test.plies;
        registers.ReleaseData(pRegister);
        if (!test.bLoaded) {  // What somebody else has loaded is there for all.
            registers.ReleaseData(registers.FindDataFor(board));
            pRegister = registers.FindDataFor(board, test.limits);
            EXPECT_NE(pRegister, nullptr);
            registers.ReleaseData(pRegister);
        }
    }
}

TEST(Registers, DoNotLookTwiceForATypeWithoutData) {
    const CTableFolder folder({});
    TGlobalRegisterSet registers(folder.Options());
    const TChessboard board = BoardOf("8/8/8/8/8/1K6/7R/k7");
    EXPECT_EQ(registers.FindDataFor(board), nullptr);
    folder.WriteBytes("R", std::vector<std::uint8_t>(IndicesOfQ));
    EXPECT_EQ(registers.FindDataFor(board), nullptr);
    registers.Clear(true);
    EXPECT_EQ(registers.FindDataFor(board), nullptr);
    registers.Clear(false);
    TGlobalRegister* pRegister = registers.FindDataFor(board);
    ASSERT_NE(pRegister, nullptr);
    registers.Clear(true);  // In use: stays.
    EXPECT_EQ(pRegister->IsMateByIndex(board), 0);
    registers.ReleaseData(pRegister);
    registers.Clear(true);
    EXPECT_TRUE(registers.Status().empty());
}

/// Room for one table of three: the one that was used longest ago goes, and one that is in use stays.
TEST(Registers, EvictWhatIsNotInUse) {
    const CTableFolder folder({"Q", "R"});
    folder.TurnIntoLz4("Q");
    folder.TurnIntoLz4("R");
    TGlobalRegisterSet registers(folder.Options());
    registers.SetQuota(IndicesOfQ + IndicesOfQ / 2);
    TGlobalRegister* pQueen = registers.FindDataForType("Q");
    ASSERT_NE(pQueen, nullptr);
    EXPECT_EQ(registers.CurrentUse(), IndicesOfQ);
    EXPECT_EQ(registers.FindDataForType("R"), nullptr) << "there is no room beside a table in use";
    registers.ReleaseData(pQueen);
    EXPECT_TRUE(registers.IsSettled(PositionTypeId("R")));
    registers.Clear(false);

    registers.ReleaseData(registers.FindDataForType("Q"));
    TGlobalRegister* pRook = registers.FindDataForType("R");
    ASSERT_NE(pRook, nullptr);
    EXPECT_FALSE(registers.IsSettled(PositionTypeId("Q")));
    EXPECT_EQ(registers.CurrentUse(), IndicesOfQ);
    registers.ReleaseData(pRook);
    TGlobalRegister* pAgain = registers.FindDataForType("Q");
    EXPECT_NE(pAgain, nullptr) << "an evicted type comes back when it is wanted";
    registers.ReleaseData(pAgain);
}

TEST(Registers, StayOnDiskWhereTheQuotaIsTooSmall) {
    const CTableFolder folder({"Q"});
    TGlobalRegisterSet registers(folder.Options());
    registers.SetQuota(IndicesOfQ / 2);
    TGlobalRegister* pQueen = registers.FindDataForType("Q");
    ASSERT_NE(pQueen, nullptr);
    EXPECT_FALSE(pQueen->IsInMemory());
    EXPECT_EQ(registers.CurrentUse(), 0U);
    registers.ReleaseData(pQueen);
}

/// Nothing of a damaged file may be taken for a value, whatever its form.
TEST(Registers, RefuseDamagedFiles) {
    for (const TTableFileMode mode :
         {TTableFileMode::Unpacked, TTableFileMode::Lz4, TTableFileMode::PackedLzw}) {
        const CTableFolder folder({"Q"});
        if (mode == TTableFileMode::Lz4) {
            folder.TurnIntoLz4("Q");
        } else if (mode == TTableFileMode::PackedLzw) {
            folder.TurnIntoPackedLzw("Q");
        }
        const std::filesystem::path path = folder.FileOf("Q", mode);
        const auto size = std::filesystem::file_size(path);
        for (const std::uintmax_t kept :
             {size - 1, size / 2, std::uintmax_t{33}, std::uintmax_t{1}, std::uintmax_t{0}}) {
            std::filesystem::resize_file(path, kept);
            CKeptDialog dialog;
            TGlobalRegisterSet registers(folder.Options(), &dialog);
            TGlobalRegister* pRegister = registers.FindDataForType("Q");
            if (mode != TTableFileMode::Unpacked || kept == 0) {
                EXPECT_EQ(pRegister, nullptr) << path << " of " << kept << " bytes";
                continue;
            }
            ASSERT_NE(pRegister, nullptr);  // What is left of a plain table may be used.
            EXPECT_EQ(dialog.told.size(), 1U);
            EXPECT_EQ(pRegister->PliesAt(IndicesOfQ - 1), UnknownPlies);
            registers.ReleaseData(pRegister);
        }
    }
}

TEST(Registers, TellOfAPartialTable) {
    const CTableFolder folder({"Q"});
    std::vector<std::uint8_t> bytes = folder.BytesOf("Q");
    bytes.back() = 0xFF;
    folder.WriteBytes("Q", bytes);
    CKeptDialog dialog;
    TGlobalRegisterSet registers(folder.Options(), &dialog);
    registers.ReleaseData(registers.FindDataForType("Q"));
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_NE(dialog.told[0].find("Q"), std::string::npos);
}

TEST(MaxMates, AreFoundOnceAndKept) {
    const CTableFolder folder({"Q"});
    std::filesystem::create_directory(folder.Path() / "MaxMateIndexesCache");
    TGlobalRegisterSet registers(folder.Options());
    TGlobalRegister* pRegister = registers.FindDataForType("Q");
    ASSERT_NE(pRegister, nullptr);
    const TMaxMates found = FindMaxMate(*pRegister, registers.Folders(), 100, true);
    EXPECT_EQ(found.moves, 10U);
    ASSERT_FALSE(found.indexes.empty());
    for (const std::uint64_t index : found.indexes) {
        EXPECT_EQ(pRegister->PliesAt(index), 19);
    }
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "MaxMateIndexesCache" / "Q.idx"));
    EXPECT_EQ(FindMaxMate(*pRegister, registers.Folders(), 100, true).indexes, found.indexes);
    EXPECT_EQ(FindMaxMate(*pRegister, registers.Folders(), 2, true).indexes.size(), 2U);

    CMaxMateWalk walk(*pRegister, registers.Folders());
    TChessboard board = EmptyChessboard();
    CKeptDialog says(true);
    ASSERT_TRUE(walk.Previous(board, says));
    EXPECT_EQ(pRegister->IndexOfPosition([&] {
        PreparePositionNoThrow(board, true);
        return board;
    }()),
              found.indexes.back());
    EXPECT_TRUE(says.asked.empty());
    ASSERT_TRUE(walk.Next(board, says));
    EXPECT_EQ(says.asked.size(), 1U);
    EXPECT_EQ(walk.Text(), "#10 (1/" + std::to_string(found.indexes.size()) + ")");
    registers.ReleaseData(pRegister);
}

TEST(MaxMates, NameAPositionOfLikeMenOnce) {
    const CTableFolder folder({});
    const CTableIndex index("QQ");
    std::vector<std::uint8_t> bytes(index.GetIndexCount());
    TChessboard board = BoardOf("8/8/8/8/7k/8/3Q3Q/K7");
    bytes[index.IndexOfPosition(board)] = 4;
    TTablePlace place = index.PlaceOf(board);
    std::swap(place.men[0], place.men[1]);
    bytes[index.IndexOfPlace(place)] = 4;
    folder.WriteBytes("QQ", bytes);
    TGlobalRegisterSet registers(folder.Options());
    TGlobalRegister* pRegister = registers.FindDataForType("QQ");
    ASSERT_NE(pRegister, nullptr);
    EXPECT_EQ(FindMaxMate(*pRegister, registers.Folders(), 10, false).indexes.size(), 1U);
    registers.ReleaseData(pRegister);
}

TEST(RegisterReports, TellWhatIsKnownOfAPosition) {
    const CTableFolder folder({"R"});
    TGlobalRegisterSet registers(folder.Options());
    const LanguageId before = g_language.exchange(LanguageId::English);
    TChessboard board = BoardOf("8/8/8/8/8/1K6/7R/k7");
    const std::uint64_t index = CTableIndex("R").IndexOfPosition(board);
    EXPECT_EQ(PositionInformation(registers, board),
              "#1 (index of this position: " + std::to_string(index) + ")");
    board.m_shPlies = 4;
    EXPECT_EQ(PositionInformation(registers, board),
              "No information about positions before Black's move");
    EXPECT_EQ(PositionInformation(registers, BoardOf("8/8/8/8/8/1K6/7B/k7")),
              "No information about positions of this type");
    const std::string status = RegisterStatusText(registers);
    EXPECT_NE(status.find("R 0 MB AllocCount=0 LastAccess 0 sec(s). ago\n"), std::string::npos)
        << status;
    EXPECT_NE(status.find("B unavailable/redundant/not enough memory\n"), std::string::npos)
        << status;
    g_language = before;
}

TEST(RegisterReports, StepThroughTheIndicesThatArePositions) {
    const CTableFolder folder({"R"});
    TGlobalRegisterSet registers(folder.Options());
    TGlobalRegister* pRegister = registers.FindDataForType("R");
    ASSERT_NE(pRegister, nullptr);
    TChessboard board = EmptyChessboard();
    const auto first = NeighbourPosition(*pRegister, 0, 1, board);
    ASSERT_TRUE(first);
    const auto second = NeighbourPosition(*pRegister, *first, 1, board);
    ASSERT_TRUE(second);
    EXPECT_EQ(NeighbourPosition(*pRegister, *second, -1, board), first);
    EXPECT_FALSE(NeighbourPosition(*pRegister, *first, -1, board));
    EXPECT_FALSE(NeighbourPosition(*pRegister, IndicesOfQ - 1, 1, board));
    EXPECT_EQ(ParsePositionIndex("123"), 123U);
    for (const char* text : {"", "12a", "-1", " 5", "99999999999999999999999"}) {
        EXPECT_THROW(ParsePositionIndex(text), ChessException) << text;
    }
    registers.ReleaseData(pRegister);
}

}  // namespace
}  // namespace tarnwick
