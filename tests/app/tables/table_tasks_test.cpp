#include "app/tables/table_tasks.h"

#include <gtest/gtest.h>

#include <set>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "support/table_folder.h"
#include "tables/register/register_reports.h"

namespace tarnwick {
namespace {

class CAnsweringDialog final : public TUserDialog {
  public:
    void Tell(std::string_view text) override { told.emplace_back(text); }
    bool Ask(std::string_view text) override {
        told.emplace_back(text);
        return bYes;
    }
    void Progress(std::string_view text) override { progress.emplace_back(text); }

    bool bYes = true;
    std::vector<std::string> told;
    std::vector<std::string> progress;
};

struct TWorkplace {
    explicit TWorkplace(std::initializer_list<const char*> types)
        : tables(types), folders(tables.Path(), {}) {}
    TTableTask Task() {
        return {.folders = folders,
                .threads = 2,
                .control = NeverStopped,
                .dialog = dialog,
                .logFolder = tables.Path()};
    }

    CTableFolder tables;
    CTableFolders folders;
    CAnsweringDialog dialog;
};

TChessboard BoardOf(const std::string& fen) {
    TChessboard board = EmptyChessboard();
    bool bIgnored = false;
    ReadFen(board, fen, bIgnored, bIgnored);
    board.m_shPlies = board.m_shRootPlies = 5;
    PreparePosition(board, true);
    return board;
}

TChessboard BoardOf(const TTablePosition& position) {
    TChessboard board = BoardOfFields(position.fields.value());
    PreparePosition(board, true);
    return board;
}

TEST(TableTasks, GeneratesWhatTheTypeNeedsAfterAsking) {
    TWorkplace place({});
    place.dialog.bYes = false;
    EXPECT_EQ(GenerateTable(place.Task(), "P"), "");
    EXPECT_FALSE(std::filesystem::exists(place.tables.FileOf("Q")));
    ASSERT_EQ(place.dialog.told.size(), 1U);
    EXPECT_TRUE(place.dialog.told[0].starts_with("To be made: Q R P (")) << place.dialog.told[0];

    place.dialog.bYes = true;
    const std::string end = GenerateTable(place.Task(), "P");
    EXPECT_TRUE(end.starts_with("P: longest mate #28 (")) << end;
    EXPECT_TRUE(std::filesystem::exists(place.tables.FileOf("P")));
    ASSERT_FALSE(place.dialog.progress.empty());
    EXPECT_TRUE(place.dialog.progress[0].starts_with("Table 1 of 3. Q: "))
        << place.dialog.progress[0];

    place.dialog.told.clear();
    place.dialog.bYes = false;
    EXPECT_EQ(GenerateTable(place.Task(), "P"), "");
    EXPECT_EQ(place.dialog.told,
              std::vector<std::string>{"The table of P is complete. Make it anew?"});
}

TEST(TableTasks, VerifiesAndSaysWhereTheFaultsStand) {
    TWorkplace place({"Q"});
    EXPECT_EQ(VerifyTable(place.Task(), "Q", TRepair::No, false),
              "Q: Complete (0 fault(s) found, 0 fixable, 0 fixed)");
    EXPECT_EQ(VerifyTable(place.Task(), "R", TRepair::No, false),
              "No information about positions of this type");
    const std::vector<std::uint8_t> good = place.tables.BytesOf("Q");
    std::vector<std::uint8_t> bad = good;
    *std::ranges::find(bad.begin() + 1, bad.end(), 10) = 0;
    place.tables.WriteBytes("Q", bad);
    const std::string end = VerifyTable(place.Task(), "Q", TRepair::Ask, false);
    EXPECT_TRUE(end.starts_with("Q: Complete (1 fault(s) found, 1 fixable, 1 fixed)\n")) << end;
    EXPECT_NE(end.find("PrecalcFailuresQ.txt"), std::string::npos);
    EXPECT_EQ(place.dialog.told, std::vector<std::string>{"Error encountered. Try fix?"});
    EXPECT_EQ(place.tables.BytesOf("Q"), good);
}

TEST(TableTasks, StepsThroughThePositionsOfAType) {
    TWorkplace place({"Q"});
    TGlobalRegisterSet registers(place.tables.Options());
    const TChessboard start = BoardOf("8/8/8/3k4/8/8/1Q6/K7 w - - 0 1");
    TTablePosition position = NeighbourOfType(registers, start, 1);
    const TTablePosition second = NeighbourOfType(registers, BoardOf(position), 1);
    EXPECT_NE(second.fields, position.fields);
    EXPECT_EQ(NeighbourOfType(registers, BoardOf(second), -1).fields, position.fields);
    EXPECT_EQ(second.text, PositionInformation(registers, BoardOf(second)));

    // The index that the text names leads back to the position.
    const std::string index = second.text.substr(second.text.rfind(' ') + 1);
    const TTablePosition pasted =
        PositionByIndex(registers, start, index.substr(0, index.size() - 1));
    EXPECT_EQ(pasted.fields, second.fields);
    EXPECT_EQ(pasted.text, second.text);
    EXPECT_THROW(PositionByIndex(registers, start, "12a"), ChessException);
    for (const char* none : {"0", "40960", "18446744073709551615"}) {
        EXPECT_FALSE(PositionByIndex(registers, start, none).fields) << none;
    }

    // To the end of the table.
    int steps = 0;
    for (; position.fields; ++steps) {
        const TSetupFields fields = *position.fields;
        ASSERT_TRUE(FaultsOfPosition(fields).empty());
        position = NeighbourOfType(registers, BoardOf(position), 1);
    }
    EXPECT_GT(steps, 1000);
    EXPECT_EQ(position.text, "There is no further position of this type.");

    const TChessboard rook = BoardOf("8/8/8/3k4/8/8/1R6/K7 w - - 0 1");
    EXPECT_EQ(NeighbourOfType(registers, rook, 1).text, "No info on positions of this type");
}

TEST(TableTasks, ShowsTheLongestMatesOfTheTypeOnTheBoard) {
    TWorkplace place({"P"});
    const auto pRegisters = std::make_shared<TGlobalRegisterSet>(place.tables.Options());
    const TChessboard queen = BoardOf("8/8/8/3k4/8/8/1Q6/K7 w - - 0 1");
    const TChessboard pawn = BoardOf("8/8/8/3k4/8/8/1P6/K7 w - - 0 1");
    {
        CLongestMates longest(pRegisters);
        const TTablePosition first = longest.Step(queen, true, place.dialog);
        EXPECT_EQ(first.nMoves, 10);
        EXPECT_TRUE(first.text.starts_with("#10 (1/")) << first.text;
        EXPECT_TRUE(PositionInformation(*pRegisters, BoardOf(first)).starts_with("#10 "));
        const TTablePosition second = longest.Step(queen, true, place.dialog);
        EXPECT_TRUE(second.text.starts_with("#10 (2/")) << second.text;
        EXPECT_EQ(longest.Step(queen, false, place.dialog).fields, first.fields);
        EXPECT_EQ(longest.Step(pawn, true, place.dialog).nMoves, 28);
        EXPECT_EQ(longest.Step(BoardOf("8/8/8/3k4/8/8/1B6/K7 w - - 0 1"), true, place.dialog).text,
                  "No info on positions of this type");
    }
    for (const TRegisterStatus& status : pRegisters->Status()) {
        EXPECT_EQ(status.useCount, 0) << status.type;
    }
}

}  // namespace
}  // namespace tarnwick
