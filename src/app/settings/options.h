#pragma once

// Everything that the program remembers about its user's wishes, and its file.
//
// The options are read once, before the window opens, and travel by reference; the window thread alone
// changes them, while nothing is being solved. A job copies what it needs. The file is the section [chess]
// of options.ini; a missing, damaged or hostile file means defaults, never an error, and what was passed
// over is told in notes for the application log.
//
// Each member has the name of its key in the file, but for the first letter; colours is DarkColours.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/language.h"

namespace tarnwick {

/// The values of WarnAboutSecondInstanceOfProgram.
enum class TSecondInstanceWarning : int {
    None = 0,
    StatusLine = 1,
    Box = 2
};

/// The values of MinimizeToTray.
enum class TMinimizeToTray : int {
    Never = 0,
    Always = 1,
    WithCtrl = 2
};

/// DarkColours has the last two.
enum class TColours : int {
    OfDesktop = -1,  ///< The user has never chosen.
    Light = 0,
    Dark = 1
};

struct TOptions {
    LanguageId languageId = LanguageId::English;

    // The engine.
    bool quickMode = true;
    int multithreadingLevels = 1;  ///< 1 to 64.
    /// 0 to 9. One more than in the file, where the level that is always there does not count.
    int schedulerLevels = 6;
    bool customScheduler = true;
    bool letAnalyzeTheSameMoveInTwoThreads = true;
    int observerLevels = 0;
    bool useMainVariantAsSortIndications = false;
    bool enableManualEngineControl = false;
    bool promptHeuristics = false;  ///< On every start of a solve; off: only with Ctrl.

    // Positions remembered while solving.
    int maxMemRatioForTempReg = 20;  ///< Percent of the machine's memory.
    bool clearRegisterOnStartSolving = true;
    bool checkTempRegCoherency = true;

    // Tables of few men.
    int maxMemRatioForPrecalculatedData = 20;   ///< Percent of the machine's memory; 0: no tables.
    int askForGlobalRegisterRecompression = 0;  ///< At most useDataPackedForRandomAccess.
    int useDataPackedForRandomAccess = 2;
    bool globalRegisterForceDiskAccess = true;
    bool askIfSaveAfterDecompressAllToMem = false;
    std::string precalcPath;  ///< UTF-8, at most 255 characters. Empty: the default folder.

    // The tablebase service.
    int lichessLevels =
        1;  ///< First White moves that are looked up; 0: none, -1: nor by the window.
    bool warningOnLichessDataRepetition = false;

    // Logs.
    bool logMoves = false;
    bool registerInfoLog = false;
    bool tryRelaxSpecialHeuristicsLog = false;
    bool logToFileTmpRegLoad = true;

    // The window.
    TSecondInstanceWarning warnAboutSecondInstanceOfProgram = TSecondInstanceWarning::Box;
    bool showMainVariant = true;  ///< Off for those who would solve for themselves.
    TMinimizeToTray minimizeToTray = TMinimizeToTray::WithCtrl;
    bool commentCompatibilityMode = false;  ///< Comments of variants go to a second file, ".cpx".
    bool customizedVersion = false;
    bool scalingWarningDismissed = false;
    TColours colours = TColours::OfDesktop;
};

struct TReadOptions {
    TOptions options;
    bool bLanguageInFile = false;
    std::vector<std::string> notes;     ///< For the log: "options.ini, line 7: ..." UTF-8.
    std::vector<std::string> warnings;  ///< For the user, in the language of the file.
};

/// Reads the options. Never throws but std::bad_alloc.
TReadOptions ReadOptions(const std::filesystem::path& file);

/// Writes the options that the user changes in dialogs. The file is read again first, so that what
/// somebody changed in it meanwhile survives in the other keys, as do its comments and order. No write
/// where nothing changed. Throws ChessException if the file cannot be saved, or is not a text that may
/// be changed (over 1 MiB, UTF-16); it then is as it was.
void WriteOptions(const std::filesystem::path& file, const TOptions& options);

/// Writes one whole number: the language and the colours by their commands, and
/// ScalingWarningDismissed. As WriteOptions.
void WriteOption(const std::filesystem::path& file, std::string_view key, int nValue);

/// The limits that the options mean on this machine.
struct TMemoryLimits {
    std::uint64_t temporaryMiB = 0;           ///< By MaxMemRatioForTempReg.
    std::uint64_t temporaryMiBByDefault = 0;  ///< At 20 percent, whatever the option says.
    std::uint64_t precalculatedBytes = 0;
};

/// memoryBytes: see platform/memory_info.h.
TMemoryLimits MemoryLimits(const TOptions& options, std::uint64_t memoryBytes);

}  // namespace tarnwick
