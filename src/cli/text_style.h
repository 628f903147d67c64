#pragma once
// How texts for people look: emphasis, numbers, times. Emphasis is for terminals only, and for users who
// have not switched it off (environment variable NO_COLOR, or a terminal named "dumb").

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/terminal.h"

namespace tarnwick {

/// Whether escape sequences are welcome on the stream now.
bool WantsEmphasis(TStandardStream stream);

/// Whether the user's locale takes UTF-8: letters with lines and figures around them will show.
bool LocaleIsUtf8();

/// Puts texts between escape sequences, or leaves them alone where those are unwelcome.
class CTextStyle {
  public:
    explicit CTextStyle(bool bOn) : m_bOn(bOn) {}

    std::string Bold(std::string_view text) const { return Wrapped("\x1b[1m", text); }
    std::string Faint(std::string_view text) const { return Wrapped("\x1b[2m", text); }
    std::string Good(std::string_view text) const { return Wrapped("\x1b[32m", text); }
    std::string Warning(std::string_view text) const { return Wrapped("\x1b[33m", text); }
    std::string Bad(std::string_view text) const { return Wrapped("\x1b[31m", text); }

  private:
    std::string Wrapped(const char* on, std::string_view text) const;

    bool m_bOn;
};

/// A text from a file or from the command line as it may go to a terminal: valid UTF-8, and no control
/// character, with which a file could play tricks on the terminal. Tabs become blanks.
std::string ShownText(std::string_view text);

/// "1,234,567".
std::string GroupedNumber(std::uint64_t number);

/// "0.045 s", "12.3 s", "3 min 7 s", "2 h 5 min".
std::string DurationText(std::uint64_t milliseconds);

/// "2.1 M/s", or "2.1 M moves/s" with the unit " moves", of what was counted in that time. Empty when
/// the time is too short to tell.
std::string SpeedText(std::uint64_t count, std::uint64_t milliseconds, const char* unit = "");

/// "1 key", "2 keys".
std::string CountText(std::uint64_t count, const char* singular);

std::string Joined(const std::vector<std::string>& texts, const char* separator);

}  // namespace tarnwick
