#pragma once
// CMainWindow: joins the widgets and the controllers.
//
// The widgets show what the window hands them and ask for commands; the controllers do the work on the
// workbench; the window carries the news from one to the other, lays the parts out, and owns the timer
// that looks at a running solve four times a second.

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include "app/shell/board_widget.h"
#include "app/shell/bottom_bar.h"
#include "app/shell/clipboard_controller.h"
#include "app/shell/drop_controller.h"
#include "app/shell/export_controller.h"
#include "app/shell/file_controller.h"
#include "app/shell/message_strip.h"
#include "app/shell/moves_panel.h"
#include "app/shell/play_controller.h"
#include "app/shell/position_controller.h"
#include "app/shell/problem_controller.h"
#include "app/shell/progress_panel.h"
#include "app/shell/setup_controller.h"
#include "app/shell/setup_panel.h"
#include "app/shell/solve_controller.h"
#include "app/shell/table_controller.h"
#include "app/shell/title_bar.h"
#include "app/shell/tray.h"
#include "app/shell/variant_controller.h"
#include "app/shell/window_menus.h"

namespace tarnwick {

class CMainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// The dialog must outlive the window.
    CMainWindow(TProgramSettings settings, CWindowDialog& dialog);

    /// Reads the file in the background; an empty path is the user's own file.
    void OpenAtStart(const std::filesystem::path& path) { m_files.OpenAtStart(path); }
    void Run(TCommand command) { m_dispatcher.Run(command); }

    CWorkbench& Workbench() { return m_workbench; }
    CCommandDispatcher& Dispatcher() { return m_dispatcher; }
    CSolveController& Solving() { return m_solving; }
    CFileController& Files() { return m_files; }
    CBoardWidget& Board() { return *m_pBoard; }
    CMovesPanel& Moves() { return *m_pMoves; }
    CProgressPanel& ProgressPanel() { return *m_pProgress; }
    CBottomBar& BottomBar() { return *m_pBottomBar; }
    CMessageStrip& Strip() { return *m_pStrip; }
    CTitleBar& TitleBar() { return *m_pTitleBar; }
    CSetupPanel& SetupPanel() { return *m_pSetup; }
    CSetupController& Setup() { return m_setup; }
    CClipboardController& Clipboard() { return m_clipboard; }
    void SetDarkColours(bool bDark);

  protected:
    void resizeEvent(QResizeEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

  private:
    void ConnectWorkbench();
    void ConnectWidgets();
    void ConnectFiles();
    void ConnectSolving();
    void ConnectSetup();
    void ConnectTables();
    void AddCommands();
    void AddLinkCommands();
    void PlaceParts();
    void Tick();

    void ShowTitle();
    void ShowLine();
    void ShowProblemDetails();
    void ShowProgress();
    void ShowState();
    void ShowIndicator();
    void ShowFileName();
    void ShowSetup();
    void Retranslate();
    void ChangeLanguage(LanguageId language);
    void ShowFromTray();
    void AskAboutScaling();
    /// Writes the option at once; a failure is told as the status.
    void KeepOption(const char* key, int nValue);
    void OpenDocument(const std::vector<std::string>& names);

    CWorkbench m_workbench;
    CCommandDispatcher m_dispatcher;

    // The widgets belong to the window's central widget.
    CTitleBar* m_pTitleBar;
    CBoardWidget* m_pBoard;
    CMessageStrip* m_pStrip;
    CProgressPanel* m_pProgress;
    CMovesPanel* m_pMoves;
    CSetupPanel* m_pSetup;  ///< In the place of the two before, while a position is being set up.
    CBottomBar* m_pBottomBar;

    CTableController m_tables;  ///< Before the solves, which use its tables.
    CSolveController m_solving;
    CFileController m_files;
    CPlayController m_playing;
    CVariantController m_variants;
    CProblemController m_problems;
    CSetupController m_setup;
    CPositionController m_positions;
    CClipboardController m_clipboard;
    CExportController m_exports;
    CDropController m_drops;
    CWindowMenus m_menus;
    CTray m_tray;

    QTimer m_tick;
    bool m_bDark = false;
    bool m_bProgramIconSet = false;
    TProgramIcon m_programIcon = TProgramIcon::Normal;
};

}  // namespace tarnwick
