#include "registers/solved_problem_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/chess_exception.h"
#include "base/little_endian.h"

#include "chess/fen.h"
#include "support/random_positions.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using TRegister = TChessboardRegister<bool>;
using TSummary = TSolvedProblemSummary;

TChessboard BoardOfFen(const std::string& fen) {
    TChessboard board = EmptyChessboard();
    bool bIgnored = false;
    EXPECT_TRUE(ReadFen(board, fen, bIgnored, bIgnored)) << fen;
    return board;
}

/// A register of one problem with its files in a folder of its own.
class SolvedProblemFilesTest : public testing::Test {
  protected:
    void SetUp() override { Open(m_register); }

    void Open(TRegister& target) {
        target.UpdateLimits(ComputeRegisterLimits(1U << 30, 1024));
        target.SetFiles(&m_files);
        target.SetRootPosition(m_root);
    }
    fs::path PathOf(const char* extension) const {
        for (const auto& entry : fs::directory_iterator(m_folder.Path())) {
            if (entry.path().extension() == extension) {
                return entry.path();
            }
        }
        return {};
    }
    /// How many answers, of both kinds, a fresh register reads.
    std::size_t CountAfterReload() {
        TRegister target;
        Open(target);
        std::size_t count = 0;
        for (const auto& [plies, positions] : target.Answers()) {
            count += positions.size();
        }
        return count;
    }

    const CTempFolder m_folder;
    CSolvedProblemFiles m_files{m_folder.Path()};
    const TChessboard m_root = BoardOfFen("8/8/8/8/8/k7/8/K1R5");
    const TChessboardRegisterItem m_item = ItemOf(m_root);
    const TMove m_move = {2, 58, 0, 0};
    TRegister m_register;
};

TEST_F(SolvedProblemFilesTest, AnswersOfBothSidesComeBackWithTheirMoves) {
    const auto other = ItemOf(BoardOfFen("8/8/8/8/8/k7/8/KR6"));
    m_register.Insert(7, m_item, true, &m_move, false);
    m_register.Insert(3, m_item, false, nullptr, false);
    m_register.InsertDefence(6, other, true, &m_move, true);
    EXPECT_EQ(fs::file_size(PathOf(".cspdb")), 3 * 76U);

    TRegister target;
    Open(target);
    EXPECT_EQ(target.FindAnswer(7, m_item), TSolvedAnswer::Yes);
    EXPECT_EQ(target.FindAnswer(3, m_item), TSolvedAnswer::No);
    EXPECT_EQ(target.FindAnswer(5, m_item), TSolvedAnswer::Unknown);
    TMove defence;
    EXPECT_EQ(target.FindDefenceAnswer(6, other, &defence), TSolvedAnswer::Yes);
    EXPECT_TRUE(defence.SameAs(m_move));
    EXPECT_EQ(target.ElementCount(), 2U) << "defences are not counted";
}

TEST_F(SolvedProblemFilesTest, ARecordIsLaidOutByteByByte) {
    m_register.Insert(0x0105, m_item, true, &m_move, true);
    std::string expected(reinterpret_cast<const char*>(m_item.m_fields), 64);
    expected += std::string("\x05\x01\xCB\x03\x02\x3A\0\0\x01\0\0\0", 12);
    EXPECT_EQ(ReadBytes(PathOf(".cspdb")), expected);
}

TEST_F(SolvedProblemFilesTest, TheContentBeforeTheLastSaveStaysAsBackup) {
    m_register.Insert(5, m_item, false, nullptr, true);
    const std::string before = ReadBytes(PathOf(".cspdb"));
    m_register.Insert(7, m_item, true, nullptr, true);
    EXPECT_EQ(ReadBytes(PathOf(".BAK")), before);
    EXPECT_EQ(m_folder.Count(), 2U);
}

TEST_F(SolvedProblemFilesTest, ACutLosesOneRecordAtMost) {
    slow::CRandomPositions random(1);
    for (int i = 0; i < 5; ++i) {
        m_register.Insert(7, ItemOf(BoardOfFen(random.Next())), true, nullptr, true);
    }
    const std::string whole = ReadBytes(PathOf(".cspdb"));
    ASSERT_EQ(whole.size(), 5 * 76U);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        WriteBytes(PathOf(".cspdb"), whole.substr(0, size));
        EXPECT_EQ(CountAfterReload(), size / 76) << size;
    }
}

TEST_F(SolvedProblemFilesTest, DamagedRecordsAreSkipped) {
    m_register.Insert(5, m_item, true, &m_move, true);
    const fs::path path = PathOf(".cspdb");
    const std::string good = ReadBytes(path);
    struct TDamage {
        std::size_t offset;
        char value;
    };
    const TDamage damages[] = {{30, '\x7F'}, {0, '\0'},    {65, '\x70'},
                               {66, '\0'},   {68, '\x40'}, {69, '\xFF'}};
    std::string content;
    for (const TDamage& damage : damages) {
        std::string bad = good;
        bad[damage.offset] = damage.value;
        content += bad;
    }
    WriteBytes(path, content + good);
    EXPECT_EQ(CountAfterReload(), 1U);
}

TEST_F(SolvedProblemFilesTest, AnswersThatContradictEachOtherAreRefusedAndStayInTheFile) {
    m_register.Insert(7, m_item, true, &m_move, true);
    const fs::path path = PathOf(".cspdb");
    const std::string mateIn7 = ReadBytes(path);
    std::string noMateIn9 = mateIn7;
    noMateIn9[64] = 9;
    noMateIn9[72] = 0;
    for (const std::string& content : {mateIn7 + noMateIn9, noMateIn9 + mateIn7}) {
        WriteBytes(path, content);
        TRegister target;
        EXPECT_THROW(Open(target), ChessException);
        EXPECT_TRUE(target.bRemoveDominated);
        EXPECT_EQ(ReadBytes(path), content);
    }
}

TEST_F(SolvedProblemFilesTest, AnswersLostInAnInsertAreToldUntilASaveHasThem) {
    const fs::path folder = m_folder / "later";
    CSolvedProblemFiles files(folder);
    m_register.SetFiles(&files);
    m_register.Insert(5, m_item, false, nullptr, true);
    EXPECT_TRUE(files.HasLostAnswers());
    fs::create_directory(folder);
    m_register.Insert(7, m_item, true, &m_move, true);
    EXPECT_FALSE(files.HasLostAnswers());
    EXPECT_EQ(fs::file_size(fs::directory_iterator(folder)->path()), 2 * 76U);
}

TEST_F(SolvedProblemFilesTest, WritingStopsAtItsGreatestNumberOfRecords) {
    slow::CRandomPositions random(1);
    while (m_register.ElementCount() < CSolvedProblemFiles::MostAnswers - 1) {
        m_register.Insert(5, ItemOf(BoardOfFen(random.Next())), true, nullptr, false);
    }
    EXPECT_TRUE(m_files.SaveAnswers(m_register));
    EXPECT_EQ(fs::file_size(PathOf(".cspdb")), 13796 * 76U);
    for (int i = 0; i < 10; ++i) {
        m_register.Insert(5, ItemOf(BoardOfFen(random.Next())), true, nullptr, false);
    }
    EXPECT_FALSE(m_files.SaveAnswers(m_register));
    EXPECT_TRUE(m_files.HasLostAnswers());
    EXPECT_EQ(fs::file_size(PathOf(".cspdb")), 13797 * 76U);
}

TEST_F(SolvedProblemFilesTest, AMissingFolderIsNoFileAndNoError) {
    CSolvedProblemFiles files(m_folder / "missing");
    TRegister target;
    target.UpdateLimits(ComputeRegisterLimits(1U << 30, 1024));
    target.SetFiles(&files);
    target.SetRootPosition(m_root);
    target.Insert(5, m_item, true, nullptr, true);
    EXPECT_FALSE(files.SaveAnswers(target));
    EXPECT_FALSE(files.SaveSummary(target));
    EXPECT_FALSE(files.LoadSummary(target));
}

TEST_F(SolvedProblemFilesTest, SummaryComesBackWithItsMovesIfTheyArePresent) {
    TSummary& summary = m_register.Summary();
    summary.m_block[1] = 77;
    summary.m_moves = {m_move, {1, 2, 12, 1}};
    ASSERT_TRUE(m_files.SaveSummary(m_register));
    EXPECT_EQ(fs::file_size(PathOf(".cpdb")), 48U) << "not marked as having moves";

    summary.m_block[TSummary::SolvedMovesByte] = 1;
    ASSERT_TRUE(m_files.SaveSummary(m_register));
    EXPECT_EQ(fs::file_size(PathOf(".cpdb")), 48U + 8U);
    TRegister target;
    Open(target);
    EXPECT_TRUE(target.Summary().IsSolved());
    EXPECT_EQ(target.Summary().m_block[1], 77);
    ASSERT_EQ(target.Summary().m_moves.size(), 2U);
    EXPECT_TRUE(target.Summary().m_moves[1].SameAs({1, 2, 12, 1}));
}

TEST_F(SolvedProblemFilesTest, ASummaryThatIsNotWholeHasNoMoves) {
    m_register.Summary().m_block[TSummary::SolvedMovesByte] = 1;
    m_register.Summary().m_moves = {m_move, m_move};
    ASSERT_TRUE(m_files.SaveSummary(m_register));
    const fs::path path = PathOf(".cpdb");
    const std::string whole = ReadBytes(path);
    const auto reload = [&](const std::string& content) {
        WriteBytes(path, content);
        m_register.Summary() = TSummary();
        return m_files.LoadSummary(m_register);
    };
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(reload(whole.substr(0, size))) << size;
        EXPECT_TRUE(m_register.Summary().m_moves.empty()) << size;
    }
    std::string hostile = whole;
    hostile.replace(TSummary::MoveCountOffset, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_FALSE(reload(hostile)) << "a count of billions of moves";
    std::string noField = whole;
    noField[49] = '\x40';
    EXPECT_FALSE(reload(noField)) << "a move to no field";
    std::string farField = whole;
    farField[TSummary::FieldByte] = '\x47';
    EXPECT_TRUE(reload(farField));
    EXPECT_EQ(m_register.Summary().m_block[TSummary::FieldByte], 7);
}

}  // namespace
}  // namespace tarnwick
