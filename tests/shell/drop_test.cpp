// What is dropped onto the real window.

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "setup_support.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr const char* FirstPlacement = "7k/8/5K2/8/8/8/8/R7";
constexpr const char* OtherPlacement = "k7/8/1K6/8/8/8/8/4Q3";

/// Enters, drops, and waits until the window has taken it.
bool Drop(TSetupWindow& test, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(test.pWindow.get(), &enter);
    QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QApplication::sendEvent(test.pWindow.get(), &drop);
    QCoreApplication::processEvents();
    return enter.isAccepted() && drop.isAccepted();
}

bool DropFile(TSetupWindow& test, const std::string& name, const std::string& content) {
    const fs::path path = test.folder / name;
    std::ofstream(path) << content;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path.string()))});
    return Drop(test, data);
}

TEST(Drop, OpensProblemFilesAfterTheQuestionAboutChanges) {
    TSetupWindow test;
    CDocument& document = test.Workbench().Document();
    EXPECT_TRUE(DropFile(test, "two.cp", "UTF-8\n5 #2\n{\n\tFEN: k7/8/1K6/8/8/8/8/4Q3\n}\n"));
    EXPECT_EQ(document.Path().filename(), "two.cp");
    EXPECT_EQ(test.Placement(), OtherPlacement);
    EXPECT_TRUE(DropFile(test, "three.EPD", "7k/8/5K2/8/8/8/8/R7 w - - bm #2;\n"));
    EXPECT_EQ(test.Placement(), FirstPlacement);

    test.pWindow->Run(TCommand::NewProblem);
    test.dialog.m_yesNoOrCancel = std::nullopt;
    EXPECT_TRUE(DropFile(test, "two.cp", "UTF-8\n5 #2\n{\n\tFEN: k7/8/1K6/8/8/8/8/4Q3\n}\n"));
    EXPECT_EQ(document.Path().filename(), "three.EPD");
    EXPECT_FALSE(test.dialog.m_told.empty());

    EXPECT_TRUE(DropFile(test, "strange.bin", "nothing"));
    EXPECT_TRUE(test.WasTold("This cannot be dropped here"));
}

TEST(Drop, PastesTextsAndPictures) {
    TSetupWindow test;
    QMimeData text;
    text.setText(OtherPlacement);
    EXPECT_TRUE(Drop(test, text));
    EXPECT_EQ(test.Placement(), OtherPlacement);
    EXPECT_TRUE(DropFile(test, "position.txt", std::string("FEN: ") + FirstPlacement + "\n"));
    EXPECT_EQ(test.Placement(), FirstPlacement);

    test.dialog.m_file = test.folder / "board.svg";
    test.pWindow->Run(TCommand::SaveBoardPicture);
    Drop(test, text);
    std::ifstream file(test.folder / "board.svg");
    EXPECT_TRUE(DropFile(test, "dropped.svg", {std::istreambuf_iterator<char>(file), {}}));
    EXPECT_EQ(test.Placement(), FirstPlacement);

    EXPECT_TRUE(DropFile(test, "broken.png", "no picture"));
    EXPECT_TRUE(test.WasTold("Program is unable to read this picture"));
    const QMimeData nothing;
    EXPECT_FALSE(Drop(test, nothing));
}

TEST(Drop, IsRefusedWhileSolving) {
    TSetupWindow test("r1bqk2r/pp1n1ppp/2p1pn2/3p4/2PP4/2N1PN2/PPQ1BPPP/R1B1K2R");
    test.Workbench().Edit([](TChessProblem& problem) { SetPlies(problem, 17); });
    test.pWindow->Run(TCommand::Solve);
    ASSERT_TRUE(test.pWindow->Solving().IsRunning());
    QMimeData text;
    text.setText(OtherPlacement);
    Drop(test, text);
    EXPECT_TRUE(test.WasTold("Analysis pending - position cannot be modified"));
    test.dialog.m_told.clear();
    DropFile(test, "two.cp", "");
    EXPECT_TRUE(test.WasTold("Analysis pending - position cannot be modified"));
    EXPECT_EQ(test.Workbench().Document().Path().filename(), "one.cp");
    test.pWindow->Run(TCommand::StopSolving);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !test.pWindow->Solving().IsRunning(); }, 60'000));
}

}  // namespace
}  // namespace tarnwick
