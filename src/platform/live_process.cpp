#include "platform/live_process.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <vector>

#include "base/text_hash.h"

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

std::string FirstLineOf(const char* path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// The machine's id is nobody else's business, so it goes out as a hash; empty stays empty.
std::string Hashed(const std::string& id) {
    if (id.empty()) {
        return {};
    }
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx",
                  static_cast<unsigned long long>(HashOfText(id)));
    return text.data();
}

/// The number in "pid:[4026531836]"; empty if there is none.
std::string NumberOfSpace() {
    std::array<char, 64> link{};
    const ssize_t length = ::readlink("/proc/self/ns/pid", link.data(), link.size());
    const std::string text(link.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    const std::size_t begin = text.find('[');
    const std::size_t end = text.find(']');
    return begin == std::string::npos || end == std::string::npos
               ? std::string()
               : text.substr(begin + 1, end - begin - 1);
}

/// A name's parts: number, start, machine, boot, space.
constexpr std::size_t PartsWithoutPlace = 2;
constexpr std::size_t PartsWithPlace = 5;

std::vector<std::string> PartsOf(const std::string& name) {
    std::vector<std::string> parts(1);
    for (const char c : name) {
        if (c == '-') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool AreKnownAndEqual(const std::string& one, const std::string& other) {
    return !one.empty() && one == other;
}

}  // namespace

TProcessPlace PlaceOfThisProcess() {
    return {.machine = Hashed(FirstLineOf("/etc/machine-id")),
            .boot = Hashed(FirstLineOf("/proc/sys/kernel/random/boot_id")),
            .space = NumberOfSpace()};
}

std::string NameOfThisProcess() {
    const std::string number = std::to_string(::getpid());
    const TProcessPlace place = PlaceOfThisProcess();
    return number + '-' + StartOf(number) + '-' + place.machine + '-' + place.boot + '-' +
           place.space;
}

TProcessLife LifeOfProcess(const std::string& name, const TProcessPlace& here) {
    const std::vector<std::string> parts = PartsOf(name);
    const bool bHasPlace = parts.size() == PartsWithPlace;
    if (!IsNumber(parts[0]) || (!bHasPlace && parts.size() != PartsWithoutPlace)) {
        return TProcessLife::Unknown;
    }
    if (bHasPlace && !AreKnownAndEqual(parts[3], here.boot)) {
        // No process outlives its machine's start.
        const bool bBootsKnown = !parts[3].empty() && !here.boot.empty();
        return bBootsKnown && AreKnownAndEqual(parts[2], here.machine) ? TProcessLife::Dead
                                                                       : TProcessLife::Unknown;
    }
    if (bHasPlace && !AreKnownAndEqual(parts[4], here.space)) {
        return TProcessLife::Unknown;
    }
    const std::string start = StartOf(parts[0]);
    return !start.empty() && start == parts[1] ? TProcessLife::Alive : TProcessLife::Dead;
}

}  // namespace tarnwick
