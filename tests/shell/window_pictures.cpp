// Makes the pictures of docs/pictures: builds the window, brings it into a state worth seeing, and saves
// what it shows. tools/screenshots.sh runs it on a virtual screen; somebody then has to look at them.
//
// Usage: window_pictures FOLDER [NAME], where NAME asks for one picture of the window alone

#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <iostream>

#include "app/document/variants.h"
#include "chess/fen.h"
#include "chess/legal_moves.h"
#include "window_support.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

const fs::path SampleFile = TARNWICK_SAMPLE_FILE;

class CPictures {
  public:
    explicit CPictures(fs::path folder) : m_folder(std::move(folder)) {}

    void Save(QWidget& widget, const std::string& name) const {
        QTest::qWait(300);
        const fs::path path = m_folder / (name + ".png");
        if (!widget.grab().save(QString::fromStdString(path.string()))) {
            std::cerr << "cannot save " << path << '\n';
        }
    }

  private:
    fs::path m_folder;
};

void WaitForSolve(TTestWindow& test) {
    if (!QTest::qWaitFor([&] { return !test.pWindow->Solving().IsRunning(); }, 60'000)) {
        std::cerr << "the solve does not end\n";
    }
    QTest::qWait(1200);
}

void PlaySomeMoves(TTestWindow& test, int nCount) {
    for (int i = 0; i < nCount; ++i) {
        const std::vector<TMove> moves = LegalMoves(test.Line().Board());
        if (moves.empty() || !test.Workbench().Play(moves.front())) {
            return;
        }
    }
}

void TakeLine(const CPictures& pictures) {
    TTestWindow test;
    test.Open(SampleFile);
    pictures.Save(*test.pWindow, "loaded_problem");

    test.pWindow->Run(TCommand::Solve);
    WaitForSolve(test);
    pictures.Save(*test.pWindow, "result");

    PlaySomeMoves(test, 1);
    test.pWindow->Run(TCommand::SaveMainVariant);
    test.Workbench().Edit([&](TChessProblem& problem) {
        SetMoveComment(problem, test.Line().Moves(),
                       L"Black is in zugzwang: every move lets a mate in");
        AddTag(problem, L"Classic");
    });
    test.pWindow->Run(TCommand::SelectProblemFromList);
    pictures.Save(*test.pWindow, "line_with_comments");
    for (QWidget* const pWidget : QApplication::topLevelWidgets()) {
        if (auto* const pList = qobject_cast<CProblemListDialog*>(pWidget)) {
            pictures.Save(*pList, "problem_list");
        }
    }
}

void TakeSolve(const CPictures& pictures) {
    TTestWindow test;
    std::ofstream(test.folder / "long.cp")
        << "UTF-8\n7 #9\n{\n\tDesc: A game position, for which nine moves are a long way\n"
           "\tFEN: r1bqk2r/pp1n1ppp/2p1pn2/3p4/2PP4/2N1PN2/PPQ1BPPP/R1B1K2R\n}\n";
    test.Open(test.folder / "long.cp");
    test.pWindow->Run(TCommand::Solve);
    QTest::qWait(4000);
    pictures.Save(*test.pWindow, "running_solve");
    test.pWindow->Run(TCommand::ResizeProgressPanel);
    QTest::qWait(1000);
    pictures.Save(*test.pWindow, "running_solve_large_panel");
    test.pWindow->Run(TCommand::StopSolving);
    WaitForSolve(test);
}

void TakeDark(const CPictures& pictures) {
    TTestWindow test;
    test.Open(SampleFile);
    PlaySomeMoves(test, 2);
    test.pWindow->SetDarkColours(true);
    test.pWindow->resize(1000, 800);
    pictures.Save(*test.pWindow, "dark");
    test.pWindow->SetDarkColours(false);
}

/// A position being set up, a recognised one with fields in doubt, and one that is refused.
void TakeSetup(const CPictures& pictures) {
    TTestWindow test;
    test.Open(SampleFile);
    test.pWindow->Run(TCommand::PositionSettingMode);
    QTest::mouseClick(test.pWindow->SetupPanel().Button(WhiteKnight), Qt::LeftButton);
    pictures.Save(*test.pWindow, "position_setting");

    TPastedPicture picture;
    std::ranges::copy(test.Problem().m_pBoard->m_fields, picture.fields.begin());
    picture.doubtful = FieldBit(A1) | FieldBit(B8);
    test.pWindow->Clipboard().SetRecogniser([&](const QImage&) { return picture; });
    QMimeData data;
    data.setImageData(QImage(8, 8, QImage::Format_RGB32));
    test.pWindow->Clipboard().Paste(data, false);
    pictures.Save(*test.pWindow, "recognised_diagram");

    QTest::keyClick(&test.pWindow->Board(), Qt::Key_Escape);
    picture.fields[C8] = EmptyField;
    picture.fields[D1] = BlackKing;
    picture.fields[H8] = WhitePawn;
    picture.doubtful = 0;
    test.pWindow->Workbench().SetStatus("");
    test.pWindow->Setup().PutAll(picture.fields, 0, 0);
    test.pWindow->Run(TCommand::PositionSettingMode);
    pictures.Save(*test.pWindow, "refused_position");
    test.pWindow->Run(TCommand::Ukrainian);
    pictures.Save(*test.pWindow, "refused_position_ukrainian");
    test.pWindow->Run(TCommand::Polish);
    test.pWindow->SetDarkColours(true);
    pictures.Save(*test.pWindow, "refused_position_dark");
    test.pWindow->SetDarkColours(false);
    test.pWindow->Run(TCommand::English);
}

void PutPosition(TTestWindow& test, const std::string& fen, int nMoves) {
    TChessboard board = EmptyChessboard();
    bool bIgnored = false;
    ReadFen(board, fen, bIgnored, bIgnored);
    TNewPosition position{.fields = {}, .nMoves = nMoves};
    std::ranges::copy(board.m_fields, position.fields.begin());
    test.pWindow->Setup().GiveToProblem(position);
}

void WaitForTables(TTestWindow& test) {
    if (!QTest::qWaitFor([&] { return !test.Workbench().State().bTableRun; }, 120'000)) {
        std::cerr << "the work on tables does not end\n";
    }
    QTest::qWait(200);
}

/// A table in the making, and the longest mates of one that is made.
void TakeTables(const CPictures& pictures) {
    TTestWindow test;
    test.Open(SampleFile);
    PutPosition(test, "8/8/8/3k4/8/2B5/1R5r/K7 w - - 0 1", 65);
    test.pWindow->Run(TCommand::GenerateTable);
    QTest::qWait(5000);
    pictures.Save(*test.pWindow, "running_generation");
    test.pWindow->Run(TCommand::StopSolving);
    WaitForTables(test);
    PutPosition(test, "8/8/8/3k4/8/8/1R6/K7 w - - 0 1", 16);
    test.pWindow->Run(TCommand::ShowMaxMate);
    WaitForTables(test);
    pictures.Save(*test.pWindow, "longest_mate");
    QMenu* const pMenu = test.pWindow->menuBar()->actions().at(5)->menu();
    pMenu->popup(test.pWindow->mapToGlobal(QPoint(20, 20)));
    pictures.Save(*pMenu, "menu_advanced");
    pMenu->close();
}

/// The menus of a language, each open.
void TakeMenus(const CPictures& pictures, TCommand language, const std::string& name) {
    TTestWindow test;
    test.Open(SampleFile);
    test.pWindow->Run(language);
    pictures.Save(*test.pWindow, "window_" + name);
    const QList<QAction*> menus = test.pWindow->menuBar()->actions();
    for (const int index : {1, 2}) {
        QMenu* const pMenu = menus.at(index)->menu();
        pMenu->popup(test.pWindow->mapToGlobal(QPoint(20, 20)));
        pictures.Save(*pMenu, "menu_" + name + "_" + std::to_string(index));
        pMenu->close();
    }
    test.pWindow->Run(TCommand::English);
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    if (argc < 2) {
        std::cerr << "window_pictures FOLDER [NAME]\n";
        return 2;
    }
    const tarnwick::CPictures pictures(argv[1]);
    if (argc > 2) {  // at another scale one picture is enough
        tarnwick::TTestWindow test;
        test.Open(tarnwick::SampleFile);
        pictures.Save(*test.pWindow, argv[2]);
        return 0;
    }
    tarnwick::TakeLine(pictures);
    tarnwick::TakeSolve(pictures);
    tarnwick::TakeDark(pictures);
    tarnwick::TakeSetup(pictures);
    tarnwick::TakeTables(pictures);
    tarnwick::TakeMenus(pictures, tarnwick::TCommand::Polish, "polish");
    tarnwick::TakeMenus(pictures, tarnwick::TCommand::Ukrainian, "ukrainian");
    return 0;
}
