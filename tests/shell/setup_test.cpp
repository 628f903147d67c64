// Position setting in the real window: the palette, the mouse, the keys, and positions that are refused.

#include <QAccessible>
#include <QPushButton>

#include "app/document/variants.h"
#include "app/shell/picture_button.h"
#include "problems/cp_writer.h"
#include "setup_support.h"

namespace tarnwick {
namespace {

constexpr int D5 = 35;
constexpr int E4 = 28;
constexpr const char* FirstPlacement = "7k/8/5K2/8/8/8/8/R7";

TEST(SettingPosition, MouseSetsUpAProblemThatIsOneStepOfUndo) {
    TSetupWindow test;
    const std::string before = ProblemToText(test.Problem());
    QTest::mouseClick(test.pWindow->BottomBar().Button(TBarButton::SetPosition), Qt::LeftButton);
    ASSERT_TRUE(test.IsSetting());
    EXPECT_TRUE(test.Panel().isVisible());
    EXPECT_FALSE(test.pWindow->Moves().isVisible());
    EXPECT_TRUE(test.Panel().Text().contains(
        "Position setting mode\n(use the \"hand\" tool - at the bottom right corner of the board - "
        "to exit the position setting mode)\n\nHere drag'n'drop pieces you want to remo"));

    CPaletteButton& queen = *test.Panel().Button(WhiteQueen);
    test.Drag(queen, {10, 10}, test.Centre(D5));
    test.Drag(test.Board(), test.Centre(A1), test.Centre(E4));  // the rook
    test.Drag(test.Board(), test.Centre(E4), QPoint(-30, 50));  // and away with it
    QTest::mouseClick(test.Panel().Button(BlackPawn), Qt::LeftButton);
    EXPECT_TRUE(test.Panel().Button(BlackPawn)->isChecked());
    test.Click(48);
    test.Click(49);
    test.Click(49, Qt::RightButton);
    EXPECT_EQ(test.SetPlacement(), "7k/p7/5K2/3Q4/8/8/8/8");
    EXPECT_EQ(ProblemToText(test.Problem()), before) << "nothing is changed before the end";

    test.pWindow->Run(TCommand::UndoChange);
    test.pWindow->Run(TCommand::UndoChange);
    test.pWindow->Run(TCommand::RedoChange);
    EXPECT_EQ(test.SetPlacement(), "7k/pp6/5K2/3Q4/8/8/8/8");
    test.pWindow->Run(TCommand::IncreaseStipulationBy10);
    test.pWindow->Run(TCommand::DecreaseStipulation);
    test.pWindow->Run(TCommand::PositionSettingMode);
    ASSERT_FALSE(test.IsSetting());
    EXPECT_TRUE(test.pWindow->Moves().isVisible());
    EXPECT_EQ(test.Placement(), "7k/pp6/5K2/3Q4/8/8/8/8");
    EXPECT_EQ(MovesOfStipulation(test.Problem()), 11);
    EXPECT_EQ(test.Board().Board().m_fields[D5], WhiteQueen);
    test.pWindow->Run(TCommand::UndoChange);
    EXPECT_EQ(ProblemToText(test.Problem()), before);
    test.pWindow->Run(TCommand::RedoChange);
    EXPECT_EQ(test.Placement(), "7k/pp6/5K2/3Q4/8/8/8/8");
}

TEST(SettingPosition, KeyboardAloneIsEnough) {
    TSetupWindow test;
    test.pWindow->Run(TCommand::PositionSettingMode);
    CBoardWidget& board = test.Board();
    QTest::keyClick(&board, Qt::Key_Up);  // shows the cursor at the white king, on f6
    QTest::keyClick(&board, Qt::Key_Left);
    QTest::keyClicks(&board, "Q");
    QTest::keyClick(&board, Qt::Key_Down);
    QTest::keyClicks(&board, "h");  // a queen in Polish
    QTest::keyClick(&board, Qt::Key_Left);
    QTest::keyClicks(&board, "n");
    QTest::keyClick(&board, Qt::Key_Delete);
    QTest::keyClicks(&board, "+");
    QTest::keyClick(&board, Qt::Key_PageDown);
    EXPECT_EQ(test.SetPlacement(), "7k/8/4QK2/4q3/8/8/8/R7");
    EXPECT_EQ(test.pWindow->Setup().Moves(), 1);

    // A man of the palette by Space, put by Enter; and by a screen reader's action.
    QTest::keyClick(test.Panel().Button(BlackBishop), Qt::Key_Space);
    QTest::keyClick(&board, Qt::Key_Return);
    EXPECT_EQ(test.SetPlacement(), "7k/8/4QK2/3bq3/8/8/8/R7");
    board.ActivateField(A1);
    EXPECT_EQ(test.SetPlacement(), "7k/8/4QK2/3bq3/8/8/8/b7");

    QTest::keyClick(&board, Qt::Key_Escape);  // gives the bishop up
    EXPECT_TRUE(test.IsSetting());
    test.dialog.m_bYes = false;
    QTest::keyClick(&board, Qt::Key_Escape);
    EXPECT_TRUE(test.IsSetting());
    test.dialog.m_bYes = true;
    QTest::keyClick(&board, Qt::Key_Escape);
    EXPECT_FALSE(test.IsSetting());
    EXPECT_EQ(test.Placement(), FirstPlacement);
    EXPECT_FALSE(test.Workbench().CanUndo());
}

TEST(SettingPosition, RefusedPositionsAreExplainedAndTheModeStays) {
    TSetupWindow test;
    test.pWindow->Run(TCommand::PositionSettingMode);
    test.Drag(test.Board(), test.Centre(A1), test.Centre(A8));  // now the rook gives check
    test.pWindow->Run(TCommand::PositionSettingMode);
    EXPECT_TRUE(test.IsSetting());
    EXPECT_TRUE(
        test.WasTold("Invalid position: Black king cannot be checked in starting position."));
    EXPECT_TRUE(test.WasTold("h8 is attacked from a8"));
    EXPECT_TRUE(test.Panel().Text().contains("attacked from a8"));
    ASSERT_NE(test.Board().SetupMarks(), nullptr);
    EXPECT_EQ(test.Board().SetupMarks()->faulty, FieldBit(A8) | FieldBit(H8));

    test.Click(H8, Qt::RightButton);
    EXPECT_EQ(test.Board().SetupMarks()->faulty, 0U);
    EXPECT_TRUE(test.Panel().Text().contains("The black king is missing"));
    QTest::mouseClick(test.Panel().EmptyBoardButton(), Qt::LeftButton);
    QTest::mouseClick(test.Panel().DoneButton(), Qt::LeftButton);
    EXPECT_TRUE(test.IsSetting());
    EXPECT_EQ(test.Placement(), FirstPlacement);
    test.dialog.m_bYes = false;
    EXPECT_FALSE(test.pWindow->close()) << "the user wants to go on setting up";
}

TEST(SettingPosition, AsksBeforeVariantsAreLost) {
    TSetupWindow test;
    ASSERT_TRUE(test.Workbench().Play(TMove{.from = A1, .to = 8}));
    test.pWindow->Run(TCommand::SaveMainVariant);
    test.pWindow->Run(TCommand::PositionSettingMode);
    test.Click(A1, Qt::RightButton);
    test.dialog.m_bYes = false;
    test.pWindow->Run(TCommand::PositionSettingMode);
    EXPECT_TRUE(test.IsSetting());
    EXPECT_TRUE(test.WasTold("Variants that cannot be played in the new position: 1"));
    test.dialog.m_bYes = true;
    test.pWindow->Run(TCommand::PositionSettingMode);
    EXPECT_FALSE(test.IsSetting());
    EXPECT_TRUE(test.Problem().m_variants.empty());
    test.pWindow->Run(TCommand::UndoChange);
    EXPECT_EQ(test.Problem().m_variants.size(), 1U);
    EXPECT_EQ(test.Placement(), FirstPlacement);
}

TEST(SettingPosition, WaitsForTheEngineAndKeepsOtherCommandsAway) {
    TSetupWindow test("r1bqk2r/pp1n1ppp/2p1pn2/3p4/2PP4/2N1PN2/PPQ1BPPP/R1B1K2R");
    test.Workbench().Edit([](TChessProblem& problem) { SetPlies(problem, 17); });
    test.pWindow->Run(TCommand::Solve);
    ASSERT_TRUE(test.pWindow->Solving().IsRunning());
    for (const TCommand command : {TCommand::PositionSettingMode, TCommand::Paste}) {
        test.pWindow->Run(command);
        EXPECT_FALSE(test.IsSetting());
        EXPECT_TRUE(test.StatusHas("Analysis pending - position cannot be modified"));
    }
    test.pWindow->Run(TCommand::StopSolving);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !test.pWindow->Solving().IsRunning(); }, 60'000));
    test.pWindow->Run(TCommand::PositionSettingMode);
    ASSERT_TRUE(test.IsSetting());
    const std::string before = test.SetPlacement();
    for (const TCommand command : {TCommand::Solve, TCommand::NextProblem, TCommand::NewProblem,
                                   TCommand::ShiftUp, TCommand::SaveFile, TCommand::MoveBack}) {
        test.pWindow->Run(command);
    }
    test.pWindow->Run(TCommand::Polish);  // the mode speaks Polish and goes on
    EXPECT_TRUE(test.Panel().Text().contains(QString::fromUtf8("Tryb ustawiania pozycji")));
    test.pWindow->Run(TCommand::English);
    EXPECT_TRUE(test.IsSetting());
    EXPECT_EQ(test.SetPlacement(), before);
    EXPECT_NE(test.Board().SetupMarks(), nullptr);
    EXPECT_EQ(test.Workbench().Document().Count(), 1U);
}

TEST(SettingPosition, EveryPartOfThePanelHasANameInAllLanguages) {
    TSetupWindow test;
    test.pWindow->Run(TCommand::PositionSettingMode);
    for (const TCommand language : {TCommand::Polish, TCommand::Ukrainian, TCommand::English}) {
        test.pWindow->Run(language);
        for (QWidget* const pWidget : test.Panel().findChildren<QWidget*>()) {
            const auto* const pButton = qobject_cast<QAbstractButton*>(pWidget);
            const bool bNamed = !pWidget->accessibleName().isEmpty() ||
                                (pButton != nullptr && !pButton->text().isEmpty());
            EXPECT_TRUE(bNamed || pWidget->focusPolicy() == Qt::NoFocus ||
                        pWidget->objectName().startsWith("qt_"))
                << pWidget->metaObject()->className();
            if (pButton != nullptr && !pButton->text().isEmpty()) {
                EXPECT_LE(pButton->fontMetrics().horizontalAdvance(pButton->text()),
                          pButton->width() - 4)
                    << pButton->text().toStdString();
            }
        }
    }
}

}  // namespace
}  // namespace tarnwick
