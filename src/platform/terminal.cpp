#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

namespace tarnwick {

bool IsTerminal(TStandardStream stream) noexcept {
    return ::isatty(static_cast<int>(stream)) == 1;
}

int TerminalColumns(TStandardStream stream) noexcept {
    constexpr int UsualColumns = 80;
    constexpr int LeastColumns = 20;
    winsize size{};
    if (::ioctl(static_cast<int>(stream), TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return UsualColumns;
    }
    return std::max<int>(size.ws_col, LeastColumns);
}

}  // namespace tarnwick
