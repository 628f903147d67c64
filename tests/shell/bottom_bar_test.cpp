#include "app/shell/bottom_bar.h"

#include <QLineEdit>
#include <vector>

#include "app/shell/elided_text.h"
#include "app/shell/message_strip.h"
#include "app/shell/picture_button.h"
#include "app/solving/solving_indicator.h"
#include "shell/panel_support.h"

namespace tarnwick {
namespace {

class BottomBar : public CPanelTest<CBottomBar> {
  protected:
    BottomBar() {
        QObject::connect(&m_part, &CBottomBar::commandWanted,
                         [this](TCommand command) { m_commands.push_back(command); });
        m_state.nProblems = 1;
        m_state.nCurrent = 1;
        m_part.ShowState(m_state);
    }

    TCommand Press(TPress press) {
        m_commands.clear();
        emit m_part.findChildren<CPictureButton*>().front()->pressedWith(press);
        return m_commands.size() == 1 ? m_commands.front() : TCommand::None;
    }

    TWindowState m_state;
    std::vector<TCommand> m_commands;
};

TEST_F(BottomBar, TheStartButtonMeansWhatFitsTheState) {
    const TPress left{.button = Qt::LeftButton};
    const TPress right{.button = Qt::RightButton};
    const TPress leftCtrl{.button = Qt::LeftButton, .bCtrl = true};
    const TPress rightCtrl{.button = Qt::RightButton, .bCtrl = true};
    EXPECT_EQ(Press(left), TCommand::Solve);
    EXPECT_EQ(Press(right), TCommand::FindAllSolutions);
    EXPECT_EQ(Press(leftCtrl), TCommand::ChooseHeuristicsAndSolve);
    EXPECT_EQ(Press(rightCtrl), TCommand::ChooseHeuristicsAndFindAll);
    EXPECT_EQ(Press({.button = Qt::MiddleButton}), TCommand::ShowWholeMainVariant);
    m_state.bBlackToMove = true;
    m_part.ShowState(m_state);
    EXPECT_EQ(Press(left), TCommand::FindBestDefence);
    m_state.bSolving = true;
    m_state.nThreads = 4;
    m_part.ShowState(m_state);
    EXPECT_EQ(Press(left), TCommand::StopSolving);
    EXPECT_EQ(Press(right), TCommand::PauseSolving);
    EXPECT_EQ(Press(rightCtrl), TCommand::PauseOneThread);
    m_state.bPaused = true;
    m_part.ShowState(m_state);
    EXPECT_EQ(Press(right), TCommand::ResumeSolving);
}

TEST_F(BottomBar, ButtonsStepCountThreadsAndAskForCommands) {
    std::vector<int> steps;
    std::vector<int> threads;
    QObject::connect(&m_part, &CBottomBar::stepWanted, [&](int n) { steps.push_back(n); });
    QObject::connect(&m_part, &CBottomBar::threadsWanted, [&](int n) { threads.push_back(n); });
    m_state.bCanStepBack = m_state.bCanStepForward = true;
    m_part.ShowState(m_state);
    const auto click = [&](TBarButton button, Qt::MouseButton mouse, int y) {
        QTest::mouseClick(m_part.Button(button), mouse, {}, QPoint(10, y));
    };
    click(TBarButton::Back, Qt::LeftButton, 5);
    click(TBarButton::Forward, Qt::RightButton, 5);
    click(TBarButton::Threads, Qt::LeftButton, 4);
    click(TBarButton::Threads, Qt::LeftButton, 25);
    click(TBarButton::Rotate, Qt::LeftButton, 5);
    click(TBarButton::Rotate, Qt::RightButton, 5);
    click(TBarButton::Options, Qt::LeftButton, 5);
    EXPECT_EQ(steps, (std::vector{-1, FewPlies}));
    EXPECT_EQ(threads, (std::vector{1, -1}));
    EXPECT_EQ(m_commands, std::vector{TCommand::RotateView}) << "options are not built yet";
    QTest::keyClick(m_part.Button(TBarButton::Rotate), Qt::Key_Space);
    EXPECT_EQ(m_commands.size(), 2U);
}

TEST_F(BottomBar, BesideTheStartButtonTheStripAboveShowsThrough) {
    const CPictureButton* pStart = m_part.findChildren<CPictureButton*>().front();
    EXPECT_EQ(m_window.childAt(pStart->mapTo(&m_window, QPoint(20, 2))), pStart);
    const QPoint beside = m_part.geometry().topLeft() + QPoint(pStart->width() + 5, 2);
    EXPECT_EQ(m_window.childAt(beside), nullptr);
    EXPECT_LE(m_part.geometry().bottom(), m_window.height() - 1);
}

TEST_F(BottomBar, AStatusWithoutRoomIsWholeInItsTooltip) {
    auto* pStatus = Child<CElidedText>();
    m_part.SetStatus("Number of problems: 3");
    EXPECT_EQ(pStatus->toolTip(), "");
    const QString whole = QString("very long status ").repeated(20);
    m_part.SetStatus(whole);
    EXPECT_EQ(pStatus->toolTip(), whole);
    const QStringList lines = pStatus->ShownText().split('\n');
    for (const QString& line : lines) {
        EXPECT_LE(pStatus->fontMetrics().horizontalAdvance(line.trimmed()), pStatus->width());
    }
    EXPECT_LE(lines.size() * pStatus->fontMetrics().lineSpacing(), pStatus->height() + 4);
}

TEST_F(BottomBar, TheRunningPictureMoves) {
    m_part.ShowIndicator(FirstRunningFrame);
    const QImage first = Painted();
    m_part.ShowIndicator(FirstRunningFrame + 3);
    const QImage later = Painted();
    m_part.ShowIndicator(IdleIcon);
    EXPECT_NE(first, later);
    EXPECT_NE(Painted(), later);
}

class MessageStrip : public CPanelTest<CMessageStrip> {};

TEST_F(MessageStrip, ARefusalHidesTheCommentUntilOneTypesOn) {
    auto* pBox = Child<QLineEdit>();
    const auto texts = m_part.findChildren<CElidedText*>();
    QStringList typed;
    QObject::connect(&m_part, &CMessageStrip::moveTyped, [&](const QString& text) {
        typed << text;
        m_part.ShowRefusal("The man is pinned.");
    });
    m_part.ShowComment("waits");
    QTest::keyClicks(pBox, " e2e5");
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(typed, QStringList{"e2e5"});
    EXPECT_EQ(texts[1]->Text(), "The man is pinned.");
    QTest::keyClick(pBox, Qt::Key_Backspace);
    EXPECT_EQ(texts[1]->Text(), "waits");
    QTest::keyClick(pBox, Qt::Key_Escape);
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(typed.size(), 1) << "an empty box is no move";
}

}  // namespace
}  // namespace tarnwick
