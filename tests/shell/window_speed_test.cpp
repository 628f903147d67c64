// How quick the window is, and what it stands: measured in the release build, with the machine to itself.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <random>
#include <thread>

#include "chess/fen.h"
#include "problems/cp_writer.h"
#include "window_support.h"

namespace tarnwick {
namespace {

/// Takes minutes on any machine, so that it runs as long as a test wants.
const std::string LongProblem =
    "UTF-8\n1 #9\n{\n\tDesc: long\n\tFEN: "
    "r1bqk2r/pp1n1ppp/2p1pn2/3p4/2PP4/2N1PN2/PPQ1BPPP/R1B1K2R\n}\n";

TEST(SlowWindow, TenThousandProblemsShowTheirFirstBoardWithinASecond) {
    TTestWindow test;
    const auto path = test.folder / "many.cp";
    {
        std::ofstream file(path);
        file << "UTF-8\n\n";
        for (int id = 1; id <= 10'000; ++id) {
            file << id << " #3\n{\n\tDesc: problem " << id
                 << "\n\tFEN: 2k1n3/8/2K5/8/5Q2/8/8/8\n\tAnswer: Qf4-f7\n}\n\n";
        }
    }
    QElapsedTimer timer;
    timer.start();
    qint64 nFirstBoardMs = -1;
    QObject::connect(&test.pWindow->Files(), &CFileController::firstBoard,
                     [&] { nFirstBoardMs = timer.elapsed(); });
    test.Open(path);
    const qint64 nAllMs = timer.elapsed();
    qint64 nWorstStepMs = 0;
    for (int i = 0; i < 200; ++i) {
        timer.restart();
        test.pWindow->Run(TCommand::NextProblem);
        QApplication::processEvents();
        nWorstStepMs = std::max(nWorstStepMs, timer.elapsed());
    }
    std::cout << "first board " << nFirstBoardMs << " ms, all " << nAllMs << " ms, worst step "
              << nWorstStepMs << " ms\n";
    EXPECT_GE(nFirstBoardMs, 0);
    EXPECT_LT(nFirstBoardMs, 1000);
    EXPECT_LT(nWorstStepMs, 30);
    EXPECT_EQ(test.Problem().m_id, 201);
}

/// The longest time that the window's thread did not come round, from now to the end.
class CPulse {
  public:
    CPulse() {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Beat(); });
        m_sinceLast.start();
        m_timer.start(PulseMs);
    }
    qint64 WorstMs() {
        Beat();
        return m_nWorstMs;
    }

  private:
    static constexpr int PulseMs = 5;
    void Beat() { m_nWorstMs = std::max(m_nWorstMs, m_sinceLast.restart() - PulseMs); }

    QTimer m_timer;
    QElapsedTimer m_sinceLast;
    qint64 m_nWorstMs = 0;
};

TEST(SlowWindow, OpensAndSavesAHundredThousandProblemsWithoutStandingStill) {
    TTestWindow test;
    const auto path = test.folder / "many.cp";
    {
        std::ofstream file(path);
        file << "UTF-8\n\n";
        for (int id = 1; id <= 100'000; ++id) {
            file << id << " #3\n{\n\tDesc: problem " << id
                 << "\n\tFEN: 2k1n3/8/2K5/8/5Q2/8/8/8\n\tAnswer: Qf4-f7\n}\n\n";
        }
    }
    test.Open({});
    QElapsedTimer timer;
    timer.start();
    CPulse opening;
    test.pWindow->Files().Open(path);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return test.Workbench().Document().Count() == 100'000U; }, 60'000));
    std::cout << "opening " << timer.restart() << " ms, stood still " << opening.WorstMs()
              << " ms\n";
    test.Workbench().Edit([](TChessProblem& problem) { SetDescription(problem, L"changed"); });
    timer.restart();
    CPulse saving;
    test.pWindow->Run(TCommand::SaveFile);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !test.Workbench().Document().HasUnsavedChanges(); }, 60'000));
    std::cout << "saving " << timer.elapsed() << " ms, stood still " << saving.WorstMs() << " ms\n";
    EXPECT_LT(opening.WorstMs(), 100);
    EXPECT_LT(saving.WorstMs(), 100);
}

TEST(SlowWindow, AnswersWithinATenthOfASecondWhileAllCoresSolve) {
    TTestWindow test(static_cast<int>(std::thread::hardware_concurrency()));
    std::ofstream(test.folder / "long.cp") << LongProblem;
    test.Open(test.folder / "long.cp");
    test.pWindow->Run(TCommand::Solve);
    qint64 nWorstMs = 0;
    QElapsedTimer sinceLast;
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    constexpr int PulseMs = 20;
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        nWorstMs = std::max(nWorstMs, sinceLast.restart() - PulseMs);
        test.pWindow->Board().update();
    });
    QTest::qWait(500);
    sinceLast.start();
    pulse.start(PulseMs);
    QTest::qWait(8000);
    ASSERT_TRUE(test.pWindow->Solving().IsRunning());
    std::cout << "worst answer " << nWorstMs << " ms\n";
    EXPECT_LT(nWorstMs, 100);
}

/// Somewhere in the topmost thing on the screen, as a user's hand would find it.
QWidget* SomeWidget(std::mt19937& random, QWidget& window) {
    QWidget* pTop = QApplication::activePopupWidget();
    pTop = pTop != nullptr ? pTop : QApplication::activeModalWidget();
    pTop = pTop != nullptr ? pTop : &window;
    QList<QWidget*> widgets = {pTop};
    for (QWidget* const pWidget : pTop->findChildren<QWidget*>()) {
        if (pWidget->isVisibleTo(pTop) && pWidget->window() == pTop->window()) {
            widgets.append(pWidget);
        }
    }
    return widgets.at(static_cast<qsizetype>(random() % static_cast<unsigned>(widgets.size())));
}

void PressSomeKey(std::mt19937& random, QWidget* pWidget) {
    static constexpr Qt::KeyboardModifiers Modifiers[] = {
        Qt::NoModifier,      Qt::NoModifier,    Qt::NoModifier,
        Qt::ControlModifier, Qt::ShiftModifier, Qt::ControlModifier | Qt::ShiftModifier,
        Qt::AltModifier};
    static constexpr int Keys[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Left,
                                   Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,  Qt::Key_F5,
                                   Qt::Key_F3,     Qt::Key_Home,   Qt::Key_End,   Qt::Key_Space,
                                   Qt::Key_Menu,   Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Delete};
    const bool bLetter = random() % 3 == 0;
    const int key =
        bLetter ? static_cast<int>(Qt::Key_A + random() % 26) : Keys[random() % std::size(Keys)];
    QTest::keyClick(pWidget, static_cast<Qt::Key>(key), Modifiers[random() % std::size(Modifiers)]);
}

/// A menu or box that waits for an answer within a click of the monkey keeps it from going on: closed.
void CloseWhatWaits() {
    if (QWidget* const pPopup = QApplication::activePopupWidget()) {
        pPopup->close();
    } else if (QWidget* const pModal = QApplication::activeModalWidget()) {
        pModal->close();
    }
}

TEST(SlowWindow, MonkeyBreaksNothing) {
    constexpr int Events = 20'000;
    constexpr unsigned Seed = 20'240'309;
    std::mt19937 random(Seed);
    TTestWindow test;
    std::ofstream(test.folder / "file.cp")
        << LongProblem << "2 #2\n{\n\tFEN: kbK5/pp6/1P6/8/8/8/8/R7\n}\n3 #3\n{\n}\n";
    test.dialog.m_file = test.folder / "file.cp";
    for (const TCommand command :
         {TCommand::OpenManual, TCommand::OpenReadme, TCommand::OpenLink}) {
        test.pWindow->Dispatcher().Add(command, [] {});  // no browsers
    }
    test.Open(test.folder / "file.cp");
    int i = 0;
    int nSeen = 0;
    int nWhileSolving = 0;
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, [&] {
        if (i == std::exchange(nSeen, i)) {
            CloseWhatWaits();
        }
    });
    guard.start(250);
    for (; i < Events; ++i) {
        if (!test.pWindow->isVisible()) {
            test.pWindow->showNormal();
        }
        if (i % 500 == 0) {
            test.Workbench().Document().GoToFirst();
            test.Workbench().ShowProblem();
            test.pWindow->Run(TCommand::Solve);
        }
        nWhileSolving += test.pWindow->Solving().IsRunning() ? 1 : 0;
        const QPointer<QWidget> pWidget = SomeWidget(random, *test.pWindow);
        const QPoint place(static_cast<int>(random() % 640) % std::max(pWidget->width(), 1),
                           static_cast<int>(random() % 640) % std::max(pWidget->height(), 1));
        if (random() % 3 == 0) {
            PressSomeKey(random, pWidget);
        } else {
            QTest::mouseClick(pWidget, random() % 5 == 0 ? Qt::RightButton : Qt::LeftButton,
                              Qt::NoModifier, place);
        }
        QApplication::processEvents();
    }
    std::cout << nWhileSolving << " of " << Events << " events while solving\n";
    EXPECT_GT(nWhileSolving, Events / 10);
    EXPECT_GT(test.Workbench().Document().Count(), 0U);
}

}  // namespace
}  // namespace tarnwick
