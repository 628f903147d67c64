// Tables of few men as the user of the window has them: made, asked, walked, verified.

#include <gtest/gtest.h>

#include <QClipboard>

#include "chess/fen.h"
#include "problems/chess_problem.h"
#include "window_support.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class CTableCommands : public ::testing::Test {
  protected:
    CTableCommands() { test.Open(TARNWICK_SAMPLE_FILE); }

    void SetUpPosition(const std::string& fen, int moves) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(fen));
        TChessboard board = EmptyChessboard();
        bool bIgnored = false;
        ReadFen(board, fen, bIgnored, bIgnored);
        TNewPosition position{.fields = {}, .nMoves = moves};
        std::ranges::copy(board.m_fields, position.fields.begin());
        ASSERT_TRUE(test.pWindow->Setup().GiveToProblem(position));
    }
    bool RunToEnd(TCommand command) {
        test.pWindow->Run(command);
        return QTest::qWaitFor([&] { return !test.Workbench().State().bTableRun; }, 60'000) &&
               (QTest::qWait(50), true);
    }
    std::string Status() { return test.pWindow->BottomBar().Status().toStdString(); }
    std::string Fen() { return WriteFen(test.Line().Board(), false); }
    fs::path Table(const std::string& name) { return test.folder.Path() / "Precalc" / name; }

    TTestWindow test;
};

TEST_F(CTableCommands, MakeAskWalkAndVerify) {
    SetUpPosition("8/8/8/3k4/8/8/1Q6/K7 w - - 0 1", 9);
    ASSERT_TRUE(RunToEnd(TCommand::InformationAboutPosition));
    EXPECT_EQ(Status(), "No information about positions of this type");

    ASSERT_TRUE(RunToEnd(TCommand::GenerateTable));
    EXPECT_TRUE(Status().starts_with("Q: longest mate #10")) << Status();
    ASSERT_TRUE(RunToEnd(TCommand::InformationAboutPosition));
    EXPECT_TRUE(Status().starts_with("#8 (index of this position: ")) << Status();

    const std::string before = Fen();
    ASSERT_TRUE(RunToEnd(TCommand::ShowMaxMate));
    EXPECT_TRUE(Status().starts_with("#10 (1/")) << Status();
    EXPECT_EQ(MovesOfStipulation(test.Problem()), 10);
    const std::string first = Fen();
    ASSERT_TRUE(RunToEnd(TCommand::ShowMaxMate));
    EXPECT_NE(Fen(), first);
    ASSERT_TRUE(RunToEnd(TCommand::ShowPreviousMaxMate));
    EXPECT_EQ(Fen(), first);
    test.pWindow->Run(TCommand::UndoChange);
    test.pWindow->Run(TCommand::UndoChange);
    test.pWindow->Run(TCommand::UndoChange);
    EXPECT_EQ(Fen(), before);

    ASSERT_TRUE(RunToEnd(TCommand::NextPositionOfType));
    EXPECT_NE(Fen(), before);
    ASSERT_TRUE(RunToEnd(TCommand::PreviousPositionOfType));
    EXPECT_EQ(Fen(), before);
    QGuiApplication::clipboard()->setText("no number");
    ASSERT_TRUE(RunToEnd(TCommand::PastePositionByIndex));
    EXPECT_EQ(test.dialog.m_told.back(), "Expected a integer number");

    ASSERT_TRUE(RunToEnd(TCommand::VerifyTable));
    EXPECT_EQ(Status(), "Q: Complete (0 fault(s) found, 0 fixable, 0 fixed)");
    test.pWindow->Run(TCommand::GlobalRegisterStatus);
    EXPECT_TRUE(test.dialog.m_told.back().starts_with("Current size of global register in memory"));
    test.dialog.m_bYes = false;  // no more pieces
    ASSERT_TRUE(RunToEnd(TCommand::VerifyAllTables));
    EXPECT_EQ(Status(), "Types verified: 1, with faults: 0, missing: 1");
}

/// A solve finds at once what was generated a moment ago.
TEST_F(CTableCommands, ServeTheNextSolve) {
    SetUpPosition("8/8/8/8/8/4k3/5R2/K7 w - - 0 1", 16);
    ASSERT_TRUE(RunToEnd(TCommand::InformationAboutPosition));  // so that "no table" is known
    ASSERT_TRUE(RunToEnd(TCommand::GenerateTable));
    test.pWindow->Run(TCommand::Solve);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !test.pWindow->Solving().IsRunning() && test.Line().Ply() == 1; }, 30'000));
}

TEST_F(CTableCommands, StopPauseAndLeaveTheUserFree) {
    SetUpPosition("8/8/8/3k4/8/8/1Q5r/K7 w - - 0 1", 9);
    test.pWindow->Run(TCommand::GenerateTable);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return fs::exists(Table("3pieces-pawns/Q.precalc")) || fs::exists(Table("Q.precalc"));
        },
        60'000));
    test.pWindow->Run(TCommand::Solve);
    EXPECT_EQ(Status(), "Work on tables is pending.");
    test.pWindow->Run(TCommand::PauseSolving);
    EXPECT_TRUE(test.Workbench().State().bPaused);
    test.pWindow->Run(TCommand::NextProblem);
    test.pWindow->Run(TCommand::RotatePosition);
    EXPECT_TRUE(test.Workbench().Document().HasUnsavedChanges());
    test.pWindow->Run(TCommand::StopSolving);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !test.Workbench().State().bTableRun; }, 60'000));
    QTest::qWait(50);
    EXPECT_NE(Status().find("stopped; the same command goes on"), std::string::npos) << Status();
}

}  // namespace
}  // namespace tarnwick
