// Copying and pasting in the real window: texts of every form, pictures of the board, recognised pictures.

#include <QClipboard>
#include <QMimeData>

#include "app/document/variants.h"
#include "problems/cp_writer.h"
#include "setup_support.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr const char* FirstPlacement = "7k/8/5K2/8/8/8/8/R7";
constexpr const char* OtherPlacement = "k7/8/1K6/8/8/8/8/4Q3";

QClipboard& Clipboard() {
    return *QApplication::clipboard();
}

void PasteText(TSetupWindow& test, const std::string& text, TCommand command = TCommand::Paste) {
    Clipboard().setText(QString::fromStdString(text));
    test.pWindow->Run(command);
}

std::string Copied(TSetupWindow& test, TCommand command) {
    test.pWindow->Run(command);
    return Clipboard().text().toStdString();
}

TEST(ClipboardCommands, CopyEveryFormAndPasteItBack) {
    TSetupWindow test;
    ASSERT_TRUE(test.Workbench().Play(TMove{.from = A1, .to = 8}));
    test.pWindow->Run(TCommand::SaveMainVariant);
    test.Workbench().Edit([](TChessProblem& problem) { AddTag(problem, L"Classic"); });
    const std::string all = Copied(test, TCommand::CopyProblem);
    const std::string noVariants = Copied(test, TCommand::CopyWithoutVariants);
    const std::string bare = Copied(test, TCommand::CopyWithoutVariantsOrTags);
    EXPECT_EQ(all, ProblemToText(test.Problem()));
    EXPECT_TRUE(noVariants.find("Classic") != std::string::npos &&
                bare.find("Classic") == std::string::npos);
    EXPECT_EQ(Copied(test, TCommand::CopyFen), "7k/8/5K2/8/8/8/R7/8");
    EXPECT_EQ(Copied(test, TCommand::CopyFullFen), "7k/8/5K2/8/8/8/R7/8 b - - 0 1");
    EXPECT_EQ(Copied(test, TCommand::CopyMovesShort), "1.Ra2");
    EXPECT_EQ(Copied(test, TCommand::CopyMovesInFull), "1.Ra1-a2");
    EXPECT_EQ(Copied(test, TCommand::CopyVariantsShort), "Main variant: 1.Ra2\n");
    const std::string variants = Copied(test, TCommand::CopyVariantsInFull);

    PasteText(test, bare);
    EXPECT_TRUE(test.WasTold("of its variants (1)"));
    EXPECT_EQ(ProblemToText(test.Problem()), bare);
    test.pWindow->Run(TCommand::MoveBack);
    PasteText(test, variants);
    EXPECT_EQ(test.Line().Ply(), 1);
    PasteText(test, all);
    EXPECT_EQ(ProblemToText(test.Problem()), all);
    test.pWindow->Run(TCommand::UndoChange);
    EXPECT_EQ(ProblemToText(test.Problem()), bare);
}

TEST(ClipboardCommands, PasteFenInPlaceOfTheMenAlone) {
    TSetupWindow test;
    PasteText(test, "The diagram (k7/8/1K6/8/8/8/8/4Q3 w - - 0 1) is mate in two");
    EXPECT_EQ(test.Placement(), OtherPlacement);
    EXPECT_EQ(test.Problem().m_description, L"Composer");
    EXPECT_EQ(MovesOfStipulation(test.Problem()), 2);
    EXPECT_TRUE(test.dialog.m_told.empty());

    PasteText(test, "r3k2r/8/8/8/8/8/8/R3K2R w - - 0 1");
    EXPECT_TRUE(test.WasTold("Note: Program does not consider additional information"));
    PasteText(test, "4k3/8/8/8/8/8/8/R3K2R", TCommand::PasteAsMirror);
    EXPECT_EQ(test.Placement(), "3k4/8/8/8/8/8/8/R2K3R");
    EXPECT_EQ(test.Problem().m_description, L"Mirror: Composer");
    EXPECT_TRUE(
        test.StatusHas("Note: in the mirror position possibilities of castling are changed"));
    for (int i = 0; i < 3; ++i) {
        test.pWindow->Run(TCommand::UndoChange);
    }
    EXPECT_EQ(test.Placement(), FirstPlacement);
}

TEST(ClipboardCommands, WhatCannotBePastedChangesNothing) {
    TSetupWindow test;
    const std::string before = ProblemToText(test.Problem());
    Clipboard().clear();
    test.pWindow->Run(TCommand::Paste);
    EXPECT_TRUE(test.WasTold("No text data in clipboard"));
    for (const auto& [text, reason] :
         {std::pair("good morning", "\"good\" is no move"),
          std::pair("8/8/8/8/8/8/8/4K3 w - -", "Illegal number of kings."),
          std::pair("R6k/8/8/8/8/8/8/4K3 w - -", "attacked from a8"),
          std::pair("9 #2 { FEN: nothing }", "Improper FEN code"),
          std::pair("Ra1-a2 Kh8-h7 Kf6-f8", "\"Kf6-f8\" is no move")}) {
        test.dialog.m_told.clear();
        PasteText(test, text);
        EXPECT_TRUE(test.WasTold("Operation failed\n")) << text;
        EXPECT_TRUE(test.WasTold(reason)) << text << ": " << test.dialog.m_told.at(0);
    }
    QImage noise(64, 64, QImage::Format_RGB888);
    noise.fill(Qt::white);
    Clipboard().setImage(noise);
    test.pWindow->Run(TCommand::Paste);
    EXPECT_TRUE(test.WasTold("Image was not recognized properly"));
    EXPECT_EQ(ProblemToText(test.Problem()), before);
    EXPECT_EQ(test.Line().Ply(), 0);
}

TEST(ClipboardCommands, PicturesOfTheBoardComeBackExactly) {
    TSetupWindow test;
    test.pWindow->Run(TCommand::CopyBoardPicture);
    const QMimeData* const pData = Clipboard().mimeData();
    const QByteArray svg = pData->data("image/svg+xml");
    const QByteArray png = pData->data("image/png");
    ASSERT_TRUE(svg.contains("<svg") && png.startsWith("\x89PNG") && pData->hasImage());
    for (const auto& [format, bytes] :
         {std::pair("image/svg+xml", svg), std::pair("image/png", png)}) {
        PasteText(test, OtherPlacement);
        ASSERT_EQ(test.Placement(), OtherPlacement);
        auto* const pCopy = new QMimeData;
        pCopy->setData(format, bytes);
        Clipboard().setMimeData(pCopy);
        test.pWindow->Run(TCommand::Paste);
        EXPECT_EQ(test.Placement(), FirstPlacement) << format;
    }
    for (const char* const name : {"board.svg", "board.png"}) {
        test.dialog.m_file = test.folder / name;
        test.pWindow->Run(TCommand::SaveBoardPicture);
        PasteText(test, OtherPlacement);
        std::ifstream file(test.folder / name, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        test.pWindow->Clipboard().PastePicture(QByteArray::fromStdString(bytes), false);
        EXPECT_EQ(test.Placement(), FirstPlacement) << name;
    }
    test.dialog.m_file = test.folder / "games.pgn";
    test.pWindow->Run(TCommand::ExportPgn);
    std::ifstream pgn(test.folder / "games.pgn");
    const std::string games{std::istreambuf_iterator<char>(pgn), {}};
    EXPECT_NE(games.find("[FEN \"7k/8/5K2/8/8/8/8/R7 w - - 0 1\"]"), std::string::npos);
}

TEST(ClipboardCommands, RecognisedPicturesArePastedAndDoubtfulOnesShown) {
    TSetupWindow test;
    // The window's own board, without the position that a copy carries.
    const QImage picture = test.Board().grab().toImage();
    PasteText(test, OtherPlacement);
    Clipboard().setImage(picture.convertToFormat(QImage::Format_RGB888));  // 24 bits a pixel
    test.pWindow->Run(TCommand::Paste);
    if (test.IsSetting()) {  // it may want some fields checked
        test.pWindow->Run(TCommand::PositionSettingMode);
    }
    EXPECT_EQ(test.Placement(), FirstPlacement);

    TPastedPicture doubtful;
    doubtful.fields[A1] = WhiteKing;
    doubtful.fields[C8] = BlackKing;
    doubtful.fields[H1] = WhiteQueen;
    doubtful.doubtful = FieldBit(H1) | FieldBit(C8);
    test.pWindow->Clipboard().SetRecogniser([&](const QImage&) { return doubtful; });
    test.pWindow->Run(TCommand::PasteAsMirror);
    ASSERT_TRUE(test.IsSetting());
    EXPECT_TRUE(test.StatusHas("Fields to check: 2"));
    EXPECT_EQ(test.SetPlacement(), "5k2/8/8/8/8/8/8/Q6K");
    EXPECT_TRUE(test.Panel().Text().contains("Doubtful fields (yellow frame): a1, f8"));
    EXPECT_EQ(test.Placement(), FirstPlacement) << "nothing is changed yet";
    test.Click(A1);
    EXPECT_EQ(test.Board().SetupMarks()->doubtful, FieldBit(F8));
    test.pWindow->Run(TCommand::PositionSettingMode);
    EXPECT_EQ(test.Placement(), "5k2/8/8/8/8/8/8/Q6K");
    test.pWindow->Run(TCommand::UndoChange);
    EXPECT_EQ(test.Placement(), FirstPlacement);
}

TEST(ClipboardCommands, PastesIntoThePositionThatIsBeingSetUp) {
    TSetupWindow test;
    test.pWindow->Run(TCommand::PositionSettingMode);
    PasteText(test, OtherPlacement);
    EXPECT_EQ(test.SetPlacement(), OtherPlacement);
    PasteText(test, "9 #7\n{\n\tFEN: 4k3/8/4K3/8/8/8/8/R7\n}\n");
    EXPECT_EQ(test.pWindow->Setup().Moves(), 7);
    EXPECT_EQ(Copied(test, TCommand::CopyFen), "4k3/8/4K3/8/8/8/8/R7");
    EXPECT_EQ(test.Placement(), FirstPlacement);
    test.Click(A1, Qt::RightButton);
    test.Click(E8, Qt::RightButton);
    test.pWindow->Run(TCommand::CopyFullFen);
    EXPECT_TRUE(test.WasTold("FEN code is unavailable"));
}

}  // namespace
}  // namespace tarnwick
