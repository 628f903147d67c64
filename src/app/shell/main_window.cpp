#include "app/shell/main_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QFile>
#include <QLineEdit>
#include <QUrl>

#include "base/chess_exception.h"

#include "app/settings/option_keys.h"
#include "app/shell/about_box.h"
#include "app/shell/window_texts.h"

namespace tarnwick {
namespace {

constexpr int TickMs = 250;
/// Fonts that are higher than this come from a desktop with another scale than usual.
constexpr int UsualLineHeight = 18;

bool IsDarkDesktop() {
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

}  // namespace

CMainWindow::CMainWindow(TProgramSettings settings, CWindowDialog& dialog)
    : m_workbench(std::move(settings), dialog),
      m_dispatcher(m_workbench),
      m_pTitleBar(new CTitleBar(new QWidget(this))),
      m_pBoard(new CBoardWidget(m_pTitleBar->parentWidget())),
      m_pStrip(new CMessageStrip(m_pTitleBar->parentWidget())),
      m_pProgress(new CProgressPanel(m_pTitleBar->parentWidget())),
      m_pMoves(new CMovesPanel(m_pTitleBar->parentWidget())),
      m_pSetup(new CSetupPanel(m_pTitleBar->parentWidget())),
      m_pBottomBar(new CBottomBar(m_pTitleBar->parentWidget())),
      m_tables(m_workbench, m_solving),
      m_solving(m_workbench),
      m_files(m_workbench, m_solving),
      m_playing(m_workbench, *m_pBoard),
      m_variants(m_workbench, *m_pMoves),
      m_problems(m_workbench, *m_pTitleBar),
      m_setup(m_workbench, *m_pBoard, *m_pSetup),
      m_positions(m_workbench),
      m_clipboard(m_workbench, m_setup),
      m_exports(m_workbench, *m_pBoard),
      m_drops(*this, m_workbench, m_files, m_clipboard),
      m_menus(*menuBar(), m_dispatcher, m_workbench),
      m_tray(m_menus.NewContextMenu(TContextMenu::TrayIcon), this) {
    setCentralWidget(m_pTitleBar->parentWidget());
    setWindowTitle("Tarnwick");
    m_workbench.AddFacts([this](TWindowState& state) {
        state.bLargePanel = m_pProgress->IsLarge();
        state.bDarkColours = m_bDark;
    });
    AddCommands();
    ConnectWorkbench();
    ConnectWidgets();
    ConnectFiles();
    ConnectSolving();
    ConnectSetup();
    ConnectTables();
    qApp->installEventFilter(this);
    const TColours colours = m_workbench.Options().colours;
    SetDarkColours(colours == TColours::OfDesktop ? IsDarkDesktop() : colours == TColours::Dark);
    const TMinimumSize smallest = SmallestWindow(fontMetrics().height());
    m_pTitleBar->parentWidget()->setMinimumSize(smallest.width, smallest.height);
    resize(smallest.width, smallest.height + menuBar()->sizeHint().height());
    m_pBottomBar->ShowThreads(m_workbench.Threads());
    m_tick.setInterval(TickMs);
    connect(&m_tick, &QTimer::timeout, this, &CMainWindow::Tick);
    m_tick.start();
    ShowIndicator();
    ShowState();
    m_pBoard->setFocus();
}

// Commands.

void CMainWindow::AddCommands() {
    m_files.AddCommands(m_dispatcher);
    m_solving.AddCommands(m_dispatcher);
    m_tables.AddCommands(m_dispatcher);
    m_playing.AddCommands(m_dispatcher);
    m_variants.AddCommands(m_dispatcher);
    m_problems.AddCommands(m_dispatcher);
    m_setup.AddCommands(m_dispatcher);
    m_positions.AddCommands(m_dispatcher);
    m_clipboard.AddCommands(m_dispatcher);
    m_exports.AddCommands(m_dispatcher);
    m_dispatcher.CallFirst([this] { m_pTitleBar->CommitEdit(); });
    m_dispatcher.Add(TCommand::Exit, [this] { close(); });
    m_dispatcher.Add(TCommand::CloseProgram, [this] {
        ShowFromTray();
        close();
    });
    m_dispatcher.Add(TCommand::ShowProgram, [this] { ShowFromTray(); });
    m_dispatcher.Add(TCommand::ResizeProgressPanel, [this] {
        m_pProgress->SetLarge(!m_pProgress->IsLarge());
        PlaceParts();
    });
    m_dispatcher.Add(TCommand::DarkColours, [this] {
        SetDarkColours(!m_bDark);
        KeepOption(DarkColoursKey, m_bDark ? 1 : 0);
    });
    m_dispatcher.Add(TCommand::Polish, [this] { ChangeLanguage(LanguageId::Polish); });
    m_dispatcher.Add(TCommand::English, [this] { ChangeLanguage(LanguageId::English); });
    m_dispatcher.Add(TCommand::Ukrainian, [this] { ChangeLanguage(LanguageId::Ukrainian); });
    m_dispatcher.Add(TCommand::About, [this] { (new CAboutBox(this))->open(); });
    m_dispatcher.Add(TCommand::OpenManual, [this] { OpenDocument({"manual.html", "README.md"}); });
    m_dispatcher.Add(TCommand::OpenReadme, [this] { OpenDocument({"README.md", "readme.txt"}); });
    m_dispatcher.Add(TCommand::TypeDirectMate, [] {});  // shows what the problem is already
    AddLinkCommands();
}

void CMainWindow::AddLinkCommands() {
    m_dispatcher.Add(TCommand::OpenLink,
                     [this] { QDesktopServices::openUrl(QUrl(m_pTitleBar->MenuLink())); });
    m_dispatcher.Add(TCommand::CopyLink, [this] {
        QApplication::clipboard()->setText(m_pTitleBar->MenuLink());
        m_workbench.SetStatus(UserText(CopiedText));
    });
}

/// Beside the installed program, or in the project's folder while it is being developed.
void CMainWindow::OpenDocument(const std::vector<std::string>& names) {
    namespace fs = std::filesystem;
    const fs::path program = QFile::encodeName(QApplication::applicationDirPath()).toStdString();
    std::error_code ignored;
    for (const fs::path& folder :
         {program, program / "../share/doc/tarnwick", program / "../../../../.."}) {
        for (const std::string& name : names) {
            if (fs::exists(folder / name, ignored)) {
                const fs::path file = fs::canonical(folder / name, ignored);
                QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(file.c_str())));
                return;
            }
        }
    }
    throw ChessException(UserText(NoReadmeText));
}

// News.

void CMainWindow::ConnectWorkbench() {
    connect(&m_workbench, &CWorkbench::problemShown, this, [this] {
        ShowTitle();
        ShowProblemDetails();
        ShowProgress();
    });
    connect(&m_workbench, &CWorkbench::problemChanged, this, [this] {
        ShowTitle();
        ShowProblemDetails();
    });
    connect(&m_workbench, &CWorkbench::lineChanged, this, [this] {
        ShowLine();
        ShowState();
    });
    connect(&m_workbench, &CWorkbench::stateChanged, this, &CMainWindow::ShowState);
    connect(&m_workbench, &CWorkbench::languageChanged, this, &CMainWindow::Retranslate);
    connect(&m_workbench, &CWorkbench::statusChanged, m_pBottomBar, &CBottomBar::SetStatus);
    connect(&m_workbench, &CWorkbench::moveRefused, m_pStrip, &CMessageStrip::ShowRefusal);
}

void CMainWindow::ConnectWidgets() {
    const auto run = [this](TCommand command) { m_dispatcher.Run(command); };
    const auto openMenu = [this](TContextMenu menu, const QPoint& place) {
        m_menus.OpenContextMenu(menu, place);
    };
    connect(m_pTitleBar, &CTitleBar::commandWanted, this, run);
    connect(m_pTitleBar, &CTitleBar::contextMenuWanted, this, openMenu);
    connect(m_pTitleBar, &CTitleBar::numberWidthChanged, this, &CMainWindow::PlaceParts);
    connect(m_pTitleBar, &CTitleBar::editingChanged, this, [this](bool bEditing) {
        if (!bEditing) {
            m_pBoard->setFocus();
        }
    });
    connect(m_pBottomBar, &CBottomBar::commandWanted, this, run);
    connect(m_pBottomBar, &CBottomBar::contextMenuWanted, this, openMenu);
    connect(m_pBottomBar, &CBottomBar::stepWanted, this,
            [this](int nPlies) { m_playing.Step(nPlies); });
    connect(m_pBottomBar, &CBottomBar::threadsWanted, this, [this](int nDelta) {
        m_solving.ChangeThreads(nDelta);
        m_pBottomBar->ShowThreads(m_workbench.Threads());
    });
    connect(m_pProgress, &CProgressPanel::resizeWanted, this,
            [run] { run(TCommand::ResizeProgressPanel); });
    connect(m_pProgress, &CProgressPanel::contextMenuWanted, this, openMenu);
    connect(m_pProgress, &CProgressPanel::peekWanted, this, [this](int thread) {
        m_solving.Peek(thread < 0 ? std::nullopt
                                  : std::optional(static_cast<std::uint16_t>(thread)));
    });
    connect(m_pMoves, &CMovesPanel::plyWanted, this, [this](int nPly) { m_playing.GoToPly(nPly); });
    connect(m_pMoves, &CMovesPanel::remainingMovesChanged, this, &CMainWindow::ShowLine);
    connect(m_pMoves, &CMovesPanel::contextMenuWanted, this, openMenu);
    connect(m_pMoves, &CMovesPanel::commandWanted, this, run);
    connect(m_pBoard, &CBoardWidget::typedTextChanged, m_pStrip, &CMessageStrip::ShowTyped);
    connect(m_pStrip, &CMessageStrip::moveTyped, this, [this](const QString& text) {
        if (m_playing.PlayTyped(text)) {
            m_pStrip->ClearTyped();
        }
    });
}

void CMainWindow::ConnectFiles() {
    connect(&m_files, &CFileController::firstBoard, this,
            [this](const TChessboard& board) { m_pBoard->ShowBoard(board, false); });
    connect(&m_files, &CFileController::countGrew, this, [this](int nProblems) {
        m_workbench.SetStatus(UserText(InitializationText) + std::to_string(nProblems));
    });
    connect(&m_files, &CFileController::fileChanged, this, [this] {
        ShowFileName();
        if (CProblemListDialog* const pList = m_problems.List()) {
            pList->Refresh();
        }
        ShowState();
    });
    connect(&m_files, &CFileController::mayCloseNow, this, &CMainWindow::close);
    connect(&m_files, &CFileController::ready, this, &CMainWindow::AskAboutScaling);
}

void CMainWindow::ConnectSolving() {
    connect(&m_solving, &CSolveController::runningChanged, this, [this] {
        ShowProgress();
        ShowState();
    });
    connect(&m_solving, &CSolveController::indicatorChanged, this, &CMainWindow::ShowIndicator);
    connect(&m_solving, &CSolveController::flashWanted, m_pBoard, &CBoardWidget::FlashFields);
}

void CMainWindow::ConnectSetup() {
    connect(&m_setup, &CSetupController::activeChanged, this, &CMainWindow::ShowSetup);
    connect(&m_setup, &CSetupController::movesChanged, this, &CMainWindow::ShowTitle);
}

void CMainWindow::ConnectTables() {
    connect(&m_tables, &CTableController::runningChanged, this, [this] {
        ShowProgress();
        ShowState();
    });
    connect(&m_tables, &CTableController::positionFound, this,
            [this](const TTablePosition& position) {
                const TChessProblem* const pProblem = m_workbench.Document().Current();
                const int nMoves = position.nMoves > 0   ? position.nMoves
                                   : pProblem != nullptr ? MovesOfStipulation(*pProblem)
                                                         : 0;
                if (m_setup.GiveToProblem({*position.fields, nMoves})) {
                    m_workbench.SetStatus(position.text);
                }
            });
}

void CMainWindow::Tick() {
    if (m_solving.IsRunning() || m_tables.IsRunning()) {
        ShowProgress();
    }
    if (isActiveWindow()) {
        m_solving.ResultSeen();
    }
    if (!m_setup.IsActive()) {  // the file must not be reloaded below the hand of the user
        m_files.Tick();
    }
}

// Language and colours.

void CMainWindow::ChangeLanguage(LanguageId language) {
    m_workbench.ChangeLanguage(language);
    const THomeFolders& folders = m_workbench.Folders();
    MakePrivateFolder(folders.config);
    WriteOption(folders.OptionsFile(), "LanguageId", static_cast<int>(language));
}

void CMainWindow::Retranslate() {
    m_menus.Rebuild();
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(this, &change);
    m_pBoard->RetellNames();
    m_files.ShowCount();
    if (CProblemListDialog* const pList = m_problems.List()) {
        QApplication::sendEvent(pList, &change);
    }
}

void CMainWindow::SetDarkColours(bool bDark) {
    m_bDark = bDark;
    const TPalette& palette = bDark ? DarkPalette : LightPalette;
    QApplication::setPalette(ToolkitPalette(palette));
    m_pBoard->SetPalette(palette);
    for (CPanel* const pPanel : findChildren<CPanel*>()) {
        pPanel->SetPalette(palette);
    }
}

/// Answering No is for good: the window adapts by itself. Closing the question answers nothing.
void CMainWindow::AskAboutScaling() {
    TOptions& options = m_workbench.Options();
    if (fontMetrics().height() <= UsualLineHeight || options.scalingWarningDismissed) {
        return;
    }
    const auto answer = [this](bool bYes) {
        if (!bYes) {
            m_workbench.Options().scalingWarningDismissed = true;
            KeepOption(ScalingWarningKey, 1);
        }
    };
    m_workbench.Dialog().AskLater(UserText(ScalingText), answer, TEscape::IsYes);
}

void CMainWindow::KeepOption(const char* key, int nValue) {
    try {
        WriteOption(m_workbench.Folders().OptionsFile(), key, nValue);
    } catch (const ChessException& error) {
        m_workbench.SetStatus(error.what());
    }
}

// The window itself.

void CMainWindow::PlaceParts() {
    const QWidget* const pArea = m_pTitleBar->parentWidget();
    const TWindowLayout layout = LayOutWindow({.width = pArea->width(),
                                               .height = pArea->height(),
                                               .lineHeight = fontMetrics().height(),
                                               .titleTextWidth = m_pTitleBar->NumberWidth(),
                                               .bProgressLarge = m_pProgress->IsLarge(),
                                               .bSettingPosition = m_setup.IsActive()});
    m_pTitleBar->Place(layout);
    m_pBoard->setGeometry(ToQRect(layout.board));
    m_pStrip->Place(layout);
    m_pProgress->Place(layout);
    m_pMoves->Place(layout);
    m_pSetup->Place(layout);
    m_pBottomBar->Place(layout);
}

void CMainWindow::resizeEvent(QResizeEvent* pEvent) {
    QMainWindow::resizeEvent(pEvent);
    PlaceParts();
}

void CMainWindow::closeEvent(QCloseEvent* pEvent) {
    m_pTitleBar->CommitEdit();
    if (!m_setup.MayClose() || !m_files.MayClose()) {
        pEvent->ignore();
        return;
    }
    m_tick.stop();
    m_solving.StopAndForget();
    m_tables.StopAndForget();
    m_tray.Hide();
    pEvent->accept();
    QCoreApplication::quit();
}

void CMainWindow::changeEvent(QEvent* pEvent) {
    QMainWindow::changeEvent(pEvent);
    if (pEvent->type() != QEvent::WindowStateChange || !isMinimized()) {
        return;
    }
    const bool bCtrl = (QApplication::queryKeyboardModifiers() & Qt::ControlModifier) != 0;
    if (!CTray::IsWanted(m_workbench.Options().minimizeToTray, bCtrl)) {
        return;
    }
    if (m_tray.Show()) {
        // Hidden within its own event the window would come back as a ghost.
        QMetaObject::invokeMethod(this, &QWidget::hide, Qt::QueuedConnection);
    } else {
        m_workbench.SetStatus(UserText(NoTrayText));
    }
}

void CMainWindow::ShowFromTray() {
    m_tray.Hide();
    showNormal();
    raise();
    activateWindow();
}

/// Keys that an edit box could use are its own, not the window's; function keys stay the window's.
bool CMainWindow::eventFilter(QObject* pObject, QEvent* pEvent) {
    if (pEvent->type() == QEvent::ShortcutOverride &&
        qobject_cast<QLineEdit*>(pObject) != nullptr) {
        const int key = static_cast<QKeyEvent*>(pEvent)->key();
        if (key < Qt::Key_F1 || key > Qt::Key_F12) {
            pEvent->accept();
            return true;
        }
    }
    return QMainWindow::eventFilter(pObject, pEvent);
}

}  // namespace tarnwick
