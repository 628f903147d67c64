// The whole window as its user has it: files, moves by mouse, a solve, variants, languages.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>

#include "app/document/variants.h"
#include "app/shell/text_dialog.h"
#include "chess/fen.h"
#include "chess/legal_moves.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"
#include "window_support.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

const fs::path SampleFile = TARNWICK_SAMPLE_FILE;

bool SolveToEnd(TTestWindow& test) {
    test.pWindow->Run(TCommand::Solve);
    // The key is played when its flash is over.
    return QTest::qWaitFor(
        [&] { return !test.pWindow->Solving().IsRunning() && test.Line().Ply() == 1; }, 60'000);
}

bool AnswerTextDialog(const QString& text) {
    auto* const pDialog = qobject_cast<CTextDialog*>(QApplication::activeModalWidget());
    if (pDialog == nullptr) {
        return false;
    }
    pDialog->Box()->setText(text);
    pDialog->accept();
    return true;
}

std::map<int, std::string> TextsOf(CDocument& document) {
    std::map<int, std::string> texts;
    for (const int id : document.Ids()) {
        texts[id] = ProblemToText(*document.Problems().Find(id));
    }
    return texts;
}

TEST(WindowFlow, SolvesPlaysCommentsSavesAndReopens) {
    TTestWindow test;
    const fs::path file = test.folder / "samples.cp";
    fs::copy_file(SampleFile, file);
    test.Open(file);
    CDocument& document = test.Workbench().Document();
    std::map<int, std::string> texts = TextsOf(document);
    ASSERT_GT(texts.size(), 20U);
    ASSERT_EQ(test.Problem().m_id, 1);

    ASSERT_TRUE(SolveToEnd(test));
    const TMove key = test.pWindow->Board().Board().m_lastMove;
    EXPECT_TRUE(key.SameAs(test.Problem().m_answers.at(0)));

    const TMove reply = LegalMoves(test.Line().Board()).front();
    ClickMove(test.pWindow->Board(), reply);
    ASSERT_EQ(test.Line().Ply(), 2);

    test.pWindow->Run(TCommand::SaveMainVariant);
    test.pWindow->Run(TCommand::CommentLastMove);
    ASSERT_TRUE(AnswerTextDialog("the pawn must move"));
    EXPECT_TRUE(document.HasUnsavedChanges());
    test.pWindow->Run(TCommand::SaveFile);
    EXPECT_FALSE(document.HasUnsavedChanges());
    texts[1] = ProblemToText(test.Problem());

    TTestWindow again;
    again.Open(file);
    EXPECT_EQ(TextsOf(again.Workbench().Document()), texts);
    const TVariant& variant = again.Problem().m_variants.at(*FindMainVariant(again.Problem()));
    ASSERT_EQ(variant.m_entries.size(), 2U);
    EXPECT_TRUE(variant.m_entries[0].m_move.SameAs(key));
    EXPECT_EQ(variant.m_entries[1].m_comment, L"the pawn must move");
    EXPECT_TRUE(fs::exists(file.string() + ".BAK"));
}

TEST(WindowFlow, BrowsesWhileSolvingAndPlaysNothingOnTheWrongBoard) {
    TTestWindow test;
    test.Open(SampleFile);
    test.pWindow->Run(TCommand::Solve);
    test.pWindow->Run(TCommand::NextProblem);
    ASSERT_EQ(test.Problem().m_id, 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !test.pWindow->Solving().IsRunning(); }, 60'000));
    QTest::qWait(1000);  // longer than the flash
    EXPECT_EQ(test.Line().Ply(), 0);
    EXPECT_NE(test.pWindow->BottomBar().Status().indexOf("1"), -1);
}

TEST(WindowFlow, UndoBringsBackCutMovesAndThenEdits) {
    TTestWindow test;
    test.Open(SampleFile);
    const std::string before = ProblemToText(test.Problem());
    test.pWindow->Run(TCommand::ShiftUp);
    if (ProblemToText(test.Problem()) == before) {
        test.pWindow->Run(TCommand::SwapColours);
    }
    ASSERT_NE(ProblemToText(test.Problem()), before);
    test.pWindow->Run(TCommand::UndoChange);
    EXPECT_EQ(ProblemToText(test.Problem()), before);

    const std::vector<TMove> moves = LegalMoves(test.Line().Board());
    ClickMove(test.pWindow->Board(), moves[0]);
    test.pWindow->Run(TCommand::MoveBack);
    ClickMove(test.pWindow->Board(), moves[1]);
    EXPECT_TRUE(test.Line().Board().m_lastMove.SameAs(moves[1]));
    test.pWindow->Run(TCommand::UndoChange);
    test.pWindow->Run(TCommand::RedoMove);
    EXPECT_TRUE(test.Line().Board().m_lastMove.SameAs(moves[0]));
}

TEST(WindowFlow, EveryCommandThatCanBeHadHasAnAction) {
    TTestWindow test;
    for (const TCommand command : AllCommands()) {
        const bool bNever = command == TCommand::TypeSelfmate || command == TCommand::TypeHelpmate;
        EXPECT_TRUE(!IsBuilt(command) || bNever || test.pWindow->Dispatcher().Has(command))
            << static_cast<int>(command);
    }
}

TEST(WindowFlow, LanguageReachesMenusAndOptionsFile) {
    TTestWindow test;
    test.Open(SampleFile);
    const auto firstMenu = [&] { return test.pWindow->menuBar()->actions().front()->text(); };
    test.pWindow->Run(TCommand::Polish);
    EXPECT_EQ(firstMenu(), "&Plik");
    std::ifstream options(test.folder / "options.ini");
    const std::string text{std::istreambuf_iterator<char>(options), {}};
    EXPECT_NE(text.find("LanguageId=0"), std::string::npos);
    test.pWindow->Run(TCommand::English);
    EXPECT_EQ(firstMenu(), "&File");
}

std::string TextOfFile(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(WindowFlow, ColoursAreRememberedAndObeyed) {
    TTestWindow test;
    test.pWindow->SetDarkColours(false);
    test.pWindow->Run(TCommand::DarkColours);
    const TOptions kept = ReadOptions(test.folder / "options.ini").options;
    EXPECT_EQ(kept.colours, TColours::Dark);
    const auto lightness = [](TColours colours) {
        CScriptedWindowDialog dialog;
        TProgramSettings settings;
        settings.options.colours = colours;
        const CMainWindow window(std::move(settings), dialog);
        return QApplication::palette().color(QPalette::Window).lightness();
    };
    EXPECT_LT(lightness(kept.colours), 128);
    EXPECT_GT(lightness(TColours::Light), 128);
    EXPECT_GT(lightness(TColours::OfDesktop), 128) << "as the desktop has them";
}

TEST(WindowFlow, SolvesFromTheStartAndSaysSoWhereTheLineHasGoneOn) {
    TTestWindow test;
    test.Open(SampleFile);
    ClickMove(test.pWindow->Board(), LegalMoves(test.Line().Board()).front());
    ClickMove(test.pWindow->Board(), LegalMoves(test.Line().Board()).front());
    ASSERT_EQ(test.Line().Ply(), 2);
    test.pWindow->Run(TCommand::Solve);
    EXPECT_TRUE(test.pWindow->BottomBar().Status().contains("from its start position"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return test.Line().Ply() == 1; }, 60'000));
    EXPECT_TRUE(test.Line().Board().m_lastMove.SameAs(test.Problem().m_answers.at(0)));
}

TEST(WindowFlow, ThePositionOfAThreadGoesOutAsTextAndIntoAnotherInstance) {
    TTestWindow test;
    std::ofstream(test.folder / "endless.cp")
        << "1 #60\n{ FEN: 7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5 }\n";
    test.Open(test.folder / "endless.cp");
    test.pWindow->Run(TCommand::CopyFenOfThread);  // nothing is solved: refused
    test.pWindow->Run(TCommand::FindAllSolutions);
    const auto copied = [&](TCommand command) {
        QApplication::clipboard()->clear();
        test.pWindow->Run(command);
        return QApplication::clipboard()->text().toStdString();
    };
    std::string fen;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !(fen = copied(TCommand::CopyFenOfThread)).empty(); },
                                10'000));
    TChessboard board{};
    bool bIgnored = false;
    EXPECT_TRUE(ReadFen(board, fen, bIgnored, bIgnored)) << fen;
    TProblemList list;
    ReadProblemText("UTF-8\n" + copied(TCommand::CopyPositionOfThread), "", list);
    ASSERT_EQ(list.Size(), 1U);
    EXPECT_LE(MovesOfStipulation(*list.Find(1)), 60);

    const fs::path seen = test.folder / "seen";
    test.pWindow->Workbench().Program() = test.folder / "other";
    std::ofstream(test.folder / "other")
        << "#!/bin/sh\ncp \"$1\" '" << seen.string() << ".new'\n"
        << "mv '" << seen.string() << ".new' '" << seen.string() << "'\n";
    fs::permissions(test.folder / "other", fs::perms::owner_all);
    test.pWindow->Run(TCommand::ShowPositionInNewInstance);
    ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(seen); }, 10'000));
    EXPECT_NE(TextOfFile(seen).find("1 #"), std::string::npos);
}

TEST(WindowFlow, ClosingWithUnsavedChangesCanBeCancelled) {
    TTestWindow test;
    test.Open(SampleFile);
    test.pWindow->Run(TCommand::NewProblem);
    test.dialog.m_yesNoOrCancel = std::nullopt;
    EXPECT_FALSE(test.pWindow->close());
    EXPECT_TRUE(test.pWindow->isVisible());
    test.dialog.m_yesNoOrCancel = false;
    EXPECT_TRUE(test.pWindow->close());
}

TEST(WindowFlow, ABigFileIsOpenedAndSavedWhileTheWindowGoesOn) {
    TTestWindow test;
    test.Open(SampleFile);
    const fs::path big = test.folder / "big.cp";
    {
        std::ofstream file(big);
        file << "UTF-8\n";
        for (int id = 1; id <= 4000; ++id) {
            file << id << " #2\n{\n\tDesc: " << std::string(100, 'x') << "\n\tFEN: "
                 << "kbK5/pp6/1P6/8/8/8/8/R7\n}\n";
        }
    }
    const auto isEnabled = [&](TCommand command) {
        return StateOfCommand(command, test.Workbench().State()).bEnabled;
    };
    CDocument& document = test.Workbench().Document();
    test.pWindow->Files().Open(big);
    EXPECT_LT(document.Count(), 4000U);
    EXPECT_FALSE(isEnabled(TCommand::NewProblem));
    ASSERT_TRUE(QTest::qWaitFor([&] { return document.Count() == 4000U; }, 60'000));
    EXPECT_EQ(document.Path(), big);

    test.Workbench().Edit([](TChessProblem& problem) { SetDescription(problem, L"changed"); });
    test.pWindow->Run(TCommand::SaveFile);
    EXPECT_TRUE(document.HasUnsavedChanges());
    EXPECT_FALSE(isEnabled(TCommand::NewProblem));
    EXPECT_TRUE(isEnabled(TCommand::NextProblem));
    test.dialog.m_told.clear();
    EXPECT_FALSE(test.pWindow->close());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !test.pWindow->isVisible(); }, 60'000));
    EXPECT_TRUE(test.dialog.m_told.empty()) << "closed without a question when all was saved";
    EXPECT_FALSE(document.HasUnsavedChanges());
    EXPECT_NE(TextOfFile(big).find("Description: changed"), std::string::npos);
}

TEST(WindowFlow, AMissingOwnFileIsMadeAndADamagedOneIsTold) {
    TTestWindow own;
    own.Open({});
    EXPECT_EQ(own.Workbench().Document().Count(), 1U);
    EXPECT_TRUE(fs::exists(own.folder / "myChessProblems.cp"));

    TTestWindow damaged;
    std::ofstream(damaged.folder / "damaged.cp")
        << "UTF-8\n1 #2\n{ FEN: kbK5/pp6/1P6/8/8/8/8/R7 }\n2 #";
    damaged.Open(damaged.folder / "damaged.cp");
    EXPECT_EQ(damaged.Workbench().Document().Count(), 1U);
    EXPECT_EQ(damaged.dialog.m_told.size(), 1U);

    TTestWindow missing;
    missing.Open(missing.folder / "missing.cp");
    EXPECT_EQ(missing.dialog.m_told.size(), 1U);
    missing.pWindow->Run(TCommand::Solve);  // nothing to solve, and no crash
}

}  // namespace
}  // namespace tarnwick
