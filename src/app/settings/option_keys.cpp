#include "app/settings/option_keys.h"

#include <limits>
#include <type_traits>

namespace tarnwick {
namespace {

constexpr bool WrittenBack = true;
constexpr bool ReadOnly = false;
constexpr int AnyNumber = std::numeric_limits<std::int16_t>::max();

// clang-format off
constexpr TOptionKey Keys[] = {
    {LanguageKey,                         &TOptions::languageId,                        0, 2,          ReadOnly},
    {"QuickMode",                         &TOptions::quickMode,                         0, 1,          WrittenBack},
    {"WarningOnLichessDataRepetition",    &TOptions::warningOnLichessDataRepetition,    0, 1,          ReadOnly},
    {"SchedulerLevels",                   &TOptions::schedulerLevels,                   0, 9,          WrittenBack, 1},
    {"CheckTempRegCoherency",             &TOptions::checkTempRegCoherency,             0, 1,          ReadOnly},
    {"CustomScheduler",                   &TOptions::customScheduler,                   0, 1,          WrittenBack},
    {"ObserverLevels",                    &TOptions::observerLevels,                    0, AnyNumber,  WrittenBack},
    {"LichessLevels",                     &TOptions::lichessLevels,                    -1, 255,        WrittenBack},
    {"WarnAboutSecondInstanceOfProgram",  &TOptions::warnAboutSecondInstanceOfProgram,  0, 2,          WrittenBack},
    {"PromptHeuristics",                  &TOptions::promptHeuristics,                  0, 1,          WrittenBack},
    {"MaxMemRatioForTempReg",             &TOptions::maxMemRatioForTempReg,             0, 100,        WrittenBack},
    {"ClearRegisterOnStartSolving",       &TOptions::clearRegisterOnStartSolving,       0, 1,          WrittenBack},
    {"MaxMemRatioForPrecalculatedData",   &TOptions::maxMemRatioForPrecalculatedData,   0, 100,        WrittenBack},
    {"LetAnalyzeTheSameMoveInTwoThreads", &TOptions::letAnalyzeTheSameMoveInTwoThreads, 0, 1,          WrittenBack},
    {"CommentCompatibilityMode",          &TOptions::commentCompatibilityMode,          0, 1,          WrittenBack},
    {"ShowMainVariant",                   &TOptions::showMainVariant,                   0, 1,          WrittenBack},
    {"UseMainVariantAsSortIndications",   &TOptions::useMainVariantAsSortIndications,   0, 1,          WrittenBack},
    {"LogMoves",                          &TOptions::logMoves,                          0, 1,          WrittenBack},
    {"RegisterInfoLog",                   &TOptions::registerInfoLog,                   0, 1,          WrittenBack},
    {"TryRelaxSpecialHeuristicsLog",      &TOptions::tryRelaxSpecialHeuristicsLog,      0, 1,          WrittenBack},
    {"MinimizeToTray",                    &TOptions::minimizeToTray,                    0, 2,          WrittenBack},
    {"UseDataPackedForRandomAccess",      &TOptions::useDataPackedForRandomAccess,      0, AnyNumber,  ReadOnly},
    {"AskForGlobalRegisterRecompression", &TOptions::askForGlobalRegisterRecompression, 0, AnyNumber,  ReadOnly},
    {"GlobalRegisterForceDiskAccess",     &TOptions::globalRegisterForceDiskAccess,     0, 1,          WrittenBack},
    {"AskIfSaveAfterDecompressAllToMem",  &TOptions::askIfSaveAfterDecompressAllToMem,  0, 1,          ReadOnly},
    {"MultithreadingLevels",              &TOptions::multithreadingLevels,              1, 64,         WrittenBack},
    {"LogToFileTmpRegLoad",               &TOptions::logToFileTmpRegLoad,               0, 1,          ReadOnly},
    {"CustomizedVersion",                 &TOptions::customizedVersion,                 0, 1,          ReadOnly},
    {"EnableManualEngineControl",         &TOptions::enableManualEngineControl,         0, 1,          WrittenBack},
    {ScalingWarningKey,                   &TOptions::scalingWarningDismissed,           0, 1,          ReadOnly},
    {DarkColoursKey,                      &TOptions::colours,                           0, 1,          ReadOnly},
};
// clang-format on

}  // namespace

std::span<const TOptionKey> OptionKeys() {
    return Keys;
}

int ValueOf(const TOptionKey& key, const TOptions& options) {
    return std::visit([&](auto member) { return static_cast<int>(options.*member); }, key.member);
}

void SetValue(const TOptionKey& key, int nValue, TOptions& options) {
    std::visit(
        [&](auto member) {
            using TValue = std::remove_reference_t<decltype(options.*member)>;
            options.*member = static_cast<TValue>(nValue);
        },
        key.member);
}

}  // namespace tarnwick
