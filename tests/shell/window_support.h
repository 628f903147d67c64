#pragma once
// A whole window for tests: in a folder of its own, with a user who answers from a script.

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/shell/main_window.h"
#include "support/temp_folder.h"

namespace tarnwick {

/// Answers at once what the test has prepared, and notes what it was told.
class CScriptedWindowDialog : public CWindowDialog {
  public:
    void Tell(std::string_view text) override { m_told.emplace_back(text); }
    bool Ask(std::string_view text) override {
        m_told.emplace_back(text);
        return m_bYes;
    }
    void Progress(std::string_view /*text*/) override {}
    void TellLater(const std::string& /*title*/, const std::string& text) override { Tell(text); }
    void AskLater(const std::string& text, std::function<void(bool)> answer,
                  TEscape /*escape*/) override {
        answer(Ask(text));
    }
    std::optional<bool> AskOrCancel(std::string_view text) override {
        Tell(text);
        return m_yesNoOrCancel;
    }
    std::optional<std::filesystem::path> ChooseFile(
        const TUserText& /*title*/, TFileUse /*use*/,
        const std::filesystem::path& /*start*/) override {
        return m_file;
    }
    bool IsAsking() const override { return false; }

    bool m_bYes = true;
    std::optional<bool> m_yesNoOrCancel = false;
    std::optional<std::filesystem::path> m_file;
    std::vector<std::string> m_told;
};

/// The folder outlives the window, which writes its journal and log there.
struct TTestWindow {
    explicit TTestWindow(int threads = 2) {
        TProgramSettings settings;
        settings.folders = {.config = folder.Path(), .data = folder.Path()};
        settings.threads = threads;
        pWindow = std::make_unique<CMainWindow>(std::move(settings), dialog);
        pWindow->show();
    }
    /// Waits until the whole file is on show.
    void Open(const std::filesystem::path& path) {
        pWindow->OpenAtStart(path);
        if (!QTest::qWaitFor([this] { return !pWindow->Files().IsReading(); }, 60'000)) {
            throw std::runtime_error("the file is not read after a minute");
        }
    }
    CWorkbench& Workbench() { return pWindow->Workbench(); }
    TChessProblem& Problem() { return *Workbench().Document().Current(); }
    CPlayedLine& Line() { return Workbench().Line(); }

    CTempFolder folder;
    CScriptedWindowDialog dialog;
    std::unique_ptr<CMainWindow> pWindow;
};

/// Picks a man up and puts it down, by two clicks.
inline void ClickMove(CBoardWidget& board, TMove move) {
    for (const int field : {move.from, move.to}) {
        const TRectangle square = board.Geometry().FieldSquare(field);
        QTest::mouseClick(&board, Qt::LeftButton, Qt::NoModifier,
                          QPoint(square.x + square.width / 2, square.y + square.height / 2));
    }
}

}  // namespace tarnwick
