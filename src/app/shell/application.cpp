// The order of the start: what the command line says, the folders, another instance, the options, and then
// the window, which shows itself before the file is read.

#include "app/shell/application.h"

#include <QApplication>
#include <QFile>
#include <QProxyStyle>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

#include "base/chess_exception.h"
#include "base/version.h"
#include "platform/instance_lock.h"
#include "platform/memory_info.h"

#include "app/commands/tooltip_texts.h"
#include "app/settings/application_log.h"
#include "app/settings/machine_defaults.h"
#include "app/settings/second_instance.h"
#include "app/shell/diagram_painting.h"
#include "app/shell/main_window.h"
#include "app/shell/message_boxes.h"

namespace tarnwick {
namespace {

constexpr int WrongUsage = 2;
constexpr const char* UsageText =
    "tarnwick [--home DIR] [FILE]\n"
    "\n"
    "  FILE         the problem file to open (.cp or .epd); without it your own, "
    "myChessProblems.cp\n"
    "  --home DIR   the folder of options.ini and of all else that the program keeps\n"
    "  --version    prints the version\n"
    "  --help       prints this";

struct TArguments {
    std::optional<std::filesystem::path> home;
    std::filesystem::path file;
    bool bVersion = false;
    bool bHelp = false;
    bool bWrong = false;
};

TArguments ReadArguments(const std::vector<std::string>& words) {
    TArguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "--version") {
            arguments.bVersion = true;
        } else if (word == "--help" || word == "-h") {
            arguments.bHelp = true;
        } else if (word == "--home" && i + 1 < words.size()) {
            arguments.home = words[++i];
        } else if (word.starts_with("--home=")) {
            arguments.home = word.substr(word.find('=') + 1);
        } else if (!word.starts_with('-') && arguments.file.empty()) {
            arguments.file = word;
        } else {
            arguments.bWrong = true;
        }
    }
    return arguments;
}

/// The same look on every desktop, and tooltips that wait a little.
class CProgramStyle : public QProxyStyle {
  public:
    CProgramStyle() : QProxyStyle("Fusion") {}
    int styleHint(StyleHint hint, const QStyleOption* pOption, const QWidget* pWidget,
                  QStyleHintReturn* pReturn) const override {
        return hint == SH_ToolTip_WakeUpDelay
                   ? TooltipDelayMs
                   : QProxyStyle::styleHint(hint, pOption, pWidget, pReturn);
    }
};

std::string TextOfEnvironment(const char* name) {
    const char* const pText = std::getenv(name);
    return pText == nullptr ? "" : pText;
}

/// Reads the options, and tells and logs what was odd about them.
TProgramSettings ReadSettings(THomeFolders folders, CWindowDialog& dialog) {
    TReadOptions read = ReadOptions(folders.OptionsFile());
    g_language = read.options.languageId;
    TProgramSettings settings;
    settings.options = read.options;
    settings.folders = std::move(folders);
    settings.program = QFile::encodeName(QApplication::applicationFilePath()).toStdString();
    settings.threads = ApplyMachineDefaults(ProcessorsOfMachine(), settings.options);
    const std::filesystem::path log = settings.folders.LogFile();
    LogApplicationEvent(log, "Program opened (%s)",
                        QApplication::applicationFilePath().toStdString());
    for (const std::string& note : read.notes) {
        LogApplicationEvent(log, "%s", note);
    }
    for (const std::string& warning : read.warnings) {
        dialog.Tell(warning);
    }
    return settings;
}

int RunWindow(const TArguments& arguments) {
    CMessageBoxes boxes;
    try {
        THomeFolders folders = FindHomeFolders(EnvironmentOfProcess(), arguments.home);
        const CInstanceLock lock(FolderOfInstanceLock(TextOfEnvironment("XDG_RUNTIME_DIR")));
        TSecondInstanceNotice notice;
        if (lock.IsSecondInstance()) {
            notice = SecondInstanceNotice(folders.OptionsFile());
        }
        if (notice.box) {
            boxes.Tell(*notice.box);
        }
        TProgramSettings settings = ReadSettings(std::move(folders), boxes);
        settings.statusHead = notice.statusLine;
        const std::filesystem::path log = settings.folders.LogFile();
        CMainWindow window(std::move(settings), boxes);
        boxes.SetWindow(&window);
        QObject::connect(&boxes, &CMessageBoxes::progressShown, &window.BottomBar(),
                         &CBottomBar::SetStatus);
        window.show();
        window.OpenAtStart(arguments.file);
        const int nStatus = QApplication::exec();
        LogApplicationEvent(log, "Program close (%s)",
                            QApplication::applicationFilePath().toStdString());
        return nStatus;
    } catch (const std::exception& error) {
        boxes.Tell(error.what());
        return EXIT_FAILURE;
    }
}

}  // namespace

int RunApplication(int argc, char** argv) {
    if (argc > 1 && argv[1] == PaintPicturesWord) {
        return PaintPictures(argc, argv);
    }
    // Before the toolkit, which wants a screen.
    const TArguments early = ReadArguments({argv + 1, argv + argc});
    if (early.bVersion || early.bHelp) {
        std::cout << (early.bHelp ? UsageText : VersionLine) << '\n';
        return EXIT_SUCCESS;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tarnwick");
    // tarnwick.desktop: by this name desktops find the icon of a window.
    QApplication::setDesktopFileName("tarnwick");
    QApplication::setStyle(new CProgramStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    // The toolkit has taken its own arguments out.
    const TArguments arguments = ReadArguments({argv + 1, argv + argc});
    if (arguments.bWrong) {
        std::cerr << UsageText << '\n';
        return WrongUsage;
    }
    return RunWindow(arguments);
}

}  // namespace tarnwick
