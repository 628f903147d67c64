#pragma once
// CMessageBoxes: the way to the user by boxes over the window.

#include <QPointer>
#include <QWidget>

#include "app/shell/window_dialog.h"

class QMessageBox;

namespace tarnwick {

class CMessageBoxes : public QObject, public CWindowDialog {
    Q_OBJECT

  public:
    /// The window may come later: the first box can stand alone on the screen.
    void SetWindow(QWidget* pWindow) { m_pWindow = pWindow; }

    void Tell(std::string_view text) override;
    bool Ask(std::string_view text) override;
    void Progress(std::string_view text) override;
    void TellLater(const std::string& title, const std::string& text) override;
    void AskLater(const std::string& text, std::function<void(bool bYes)> answer,
                  TEscape escape) override;
    std::optional<bool> AskOrCancel(std::string_view text) override;
    std::optional<std::filesystem::path> ChooseFile(const TUserText& title, TFileUse use,
                                                    const std::filesystem::path& start) override;
    bool IsAsking() const override { return m_nOpen > 0; }

  signals:
    void progressShown(const QString& text);

  private:
    /// Runs the call on the thread of the window and waits for it.
    void OnWindowThread(const std::function<void()>& call);
    QMessageBox* NewBox(const QString& title, const QString& text);
    int Show(QMessageBox& box);
    void OpenAndForget(QMessageBox* pBox);

    QPointer<QWidget> m_pWindow;
    int m_nOpen = 0;
};

}  // namespace tarnwick
