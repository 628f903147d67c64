#pragma once

// The table of the keys in options.ini, for the reader and the writer of options.

#include <span>
#include <variant>

#include "app/settings/options.h"

namespace tarnwick {

/// A whole-number key. The default is what a new TOptions holds.
struct TOptionKey {
    const char* name;
    std::variant<bool TOptions::*, int TOptions::*, LanguageId TOptions::*,
                 TSecondInstanceWarning TOptions::*, TMinimizeToTray TOptions::*,
                 TColours TOptions::*>
        member;
    /// Values in memory; a switch has none, as every number but 0 switches it on.
    int nLeast = 0;
    int nMost = 1;
    bool bWrittenBack = false;
    int nMoreInMemory = 0;  ///< Value in memory less value in the file.
};

inline constexpr const char* OptionsSection = "chess";
inline constexpr const char* LanguageKey = "LanguageId";
inline constexpr const char* DarkColoursKey = "DarkColours";
inline constexpr const char* ScalingWarningKey = "ScalingWarningDismissed";
inline constexpr const char* PrecalcPathKey = "PrecalcPath";

/// In the order in which a new file lists them.
std::span<const TOptionKey> OptionKeys();

int ValueOf(const TOptionKey& key, const TOptions& options);
void SetValue(const TOptionKey& key, int nValue, TOptions& options);

}  // namespace tarnwick
