#include "platform/live_process.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

namespace tarnwick {
namespace {

/// Clock ticks from the machine's start to the process's, field 22 of its stat file; empty if there is
/// no such process. Zombies, whose files nobody will write any more, count as none.
std::string StartOf(const std::string& number) {
    std::ifstream file("/proc/" + number + "/stat");
    std::string text;
    std::getline(file, text);
    // The second field is the program's name in brackets, which may hold blanks and brackets.
    const std::size_t behindName = text.rfind(')');
    if (behindName == std::string::npos) {
        return {};
    }
    std::istringstream fields(text.substr(behindName + 1));
    std::string field;
    fields >> field;
    if (field == "Z" || field == "X") {
        return {};
    }
    constexpr int StartField = 22;
    for (int i = 3; i < StartField; ++i) {
        fields >> field;
    }
    return field;
}

}  // namespace

std::string NameOfThisProcess() {
    const std::string number = std::to_string(::getpid());
    return number + '-' + StartOf(number);
}

bool IsProcessAlive(const std::string& name) {
    const std::size_t hyphen = name.find('-');
    const std::string number = name.substr(0, hyphen);
    if (hyphen == std::string::npos || number.empty() ||
        number.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    const std::string start = StartOf(number);
    return !start.empty() && start == name.substr(hyphen + 1);
}

}  // namespace tarnwick
