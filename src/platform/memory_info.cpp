// Control groups are folders in a mounted tree; a limit holds for a group and everything below it. There
// are two generations, and machines run either or both:
//   first:  one tree for each controller; /proc/self/cgroup says "4:memory:/group"
//   second: one tree for all; /proc/self/cgroup says "0::/group"
// /proc/self/mountinfo tells where a tree is mounted and which of its groups is the mount's top: in a
// container that is often the container's own group, and what lies above cannot be seen.

#include "platform/memory_info.h"

#include <sys/sysinfo.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <limits>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t NoLimit = std::numeric_limits<std::uint64_t>::max();
/// A smaller limit could not hold the program itself: the file says something else than it seems.
constexpr std::uint64_t SmallestCredibleLimit = 1U << 20;
constexpr std::uint64_t KiB = 1024;
/// As many as Linux can manage; bounds a garbled list.
constexpr int MaxProcessor = 8192;

/// One line of a file, without its end; empty if there is none.
std::string FirstLine(const fs::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// The number at the start of the text, blanks before it skipped.
std::optional<std::uint64_t> NumberAt(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{}) {
        return std::nullopt;
    }
    return value;
}

/// What follows "name" in the line of the file that begins with it; empty if no line does.
std::string ValueOfLine(const fs::path& path, std::string_view name) {
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        if (line.starts_with(name)) {
            return line.substr(name.size());
        }
    }
    return {};
}

/// Whether the word stands in a list with commas.
bool ListHolds(std::string_view list, std::string_view word) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        if (list.substr(0, end) == word) {
            return true;
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// The group of this process in the tree of the controller; "" asks for the second generation's tree.
std::optional<std::string> OwnGroup(const fs::path& root, std::string_view controller) {
    std::ifstream file(root / "proc/self/cgroup");
    std::string line;
    while (std::getline(file, line)) {
        const std::size_t first = line.find(':');
        const std::size_t second = first == std::string::npos ? first : line.find(':', first + 1);
        if (second == std::string::npos) {
            continue;
        }
        const std::string_view list = std::string_view(line).substr(first + 1, second - first - 1);
        if (controller.empty() ? list.empty() : ListHolds(list, controller)) {
            return line.substr(second + 1);
        }
    }
    return std::nullopt;
}

struct TMount {
    std::string top;    ///< The group that is the mount's top folder.
    std::string point;  ///< Where it is mounted.
};

/// Blanks and backslashes in names are written as three octal digits behind a backslash.
std::string WithoutOctalCodes(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned code = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '\\' && i + 3 < text.size() &&
            std::from_chars(digits, digits + 3, code, 8).ptr == digits + 3) {
            plain += static_cast<char>(code);
            i += 3;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

/// Where the controller's tree is mounted; "" asks for the second generation's tree.
/// A line: "36 35 0:31 /top /point options [more]... - type source superOptions".
std::optional<TMount> MountOf(const fs::path& root, std::string_view controller) {
    std::ifstream file(root / "proc/self/mountinfo");
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        std::string skipped, top, point, word, type, source, superOptions;
        words >> skipped >> skipped >> skipped >> top >> point;
        while (words >> word && word != "-") {
        }
        words >> type >> source >> superOptions;
        const bool bFits = controller.empty()
                               ? type == "cgroup2"
                               : type == "cgroup" && ListHolds(superOptions, controller);
        if (bFits) {
            return TMount{WithoutOctalCodes(top), WithoutOctalCodes(point)};
        }
    }
    return std::nullopt;
}

/// The path of `group` below `top`; empty if it is not below it, as another name space may tell it.
fs::path BelowTop(const std::string& group, const std::string& top) {
    const fs::path below = fs::path(group).lexically_relative(top);
    const bool bOutside = below.empty() || *below.begin() == "..";
    return bOutside || below == "." ? fs::path() : below;
}

/// The folders of the own group and all groups around it, as far as they can be seen.
std::vector<fs::path> GroupFolders(const fs::path& root, std::string_view controller) {
    const std::optional<std::string> group = OwnGroup(root, controller);
    if (!group) {
        return {};
    }
    const std::string usual =
        "/sys/fs/cgroup" + (controller.empty() ? "" : "/" + std::string(controller));
    const TMount mount = MountOf(root, controller).value_or(TMount{"/", usual});
    fs::path folder = root / fs::path(mount.point).relative_path();
    std::vector<fs::path> folders{folder};
    for (const fs::path& name : BelowTop(*group, mount.top)) {
        folder /= name;
        folders.push_back(folder);
    }
    return folders;
}

std::uint64_t MemoryLimitIn(const fs::path& file) {
    const std::uint64_t limit = NumberAt(FirstLine(file)).value_or(NoLimit);
    return limit < SmallestCredibleLimit ? NoLimit : limit;
}

/// Processors' worth of time in each period, rounded up; quota and period in microseconds.
std::uint64_t ProcessorsOfQuota(std::string_view quota, std::string_view period) {
    const std::uint64_t time = NumberAt(quota).value_or(0);  // "max" and "-1" are no quota
    const std::uint64_t each = NumberAt(period).value_or(0);
    if (time == 0 || each == 0) {
        return NoLimit;
    }
    return time / each + (time % each != 0 ? 1 : 0);
}

std::uint64_t ProcessorLimit(const fs::path& root) {
    std::uint64_t limit = NoLimit;
    for (const fs::path& folder : GroupFolders(root, "")) {
        const std::string line = FirstLine(folder / "cpu.max");
        const std::size_t blank = std::min(line.find(' '), line.size());
        limit = std::min(limit, ProcessorsOfQuota(line.substr(0, blank), line.substr(blank)));
    }
    for (const fs::path& folder : GroupFolders(root, "cpu")) {
        limit = std::min(limit, ProcessorsOfQuota(FirstLine(folder / "cpu.cfs_quota_us"),
                                                  FirstLine(folder / "cpu.cfs_period_us")));
    }
    return limit;
}

/// The numbers of a list as "0-3,8".
std::vector<int> ProcessorsOfList(std::string_view list) {
    std::vector<int> processors;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        const std::string_view range = list.substr(0, end);
        const std::uint64_t first = NumberAt(range).value_or(MaxProcessor);
        const std::size_t dash = range.find('-');
        const std::uint64_t last = dash == std::string_view::npos
                                       ? first
                                       : NumberAt(range.substr(dash + 1)).value_or(first);
        for (std::uint64_t i = first; i <= last && i < MaxProcessor; ++i) {
            processors.push_back(static_cast<int>(i));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return processors;
}

/// Cores among the processors. Threads of one core name the same list of siblings.
std::size_t CoreCount(const fs::path& root, const std::vector<int>& processors) {
    std::set<std::string> cores;
    for (const int processor : processors) {
        const std::string name = "cpu" + std::to_string(processor);
        const std::string siblings =
            FirstLine(root / "sys/devices/system/cpu" / name / "topology/thread_siblings_list");
        cores.insert(siblings.empty() ? name : siblings);
    }
    return cores.size();
}

/// Where /proc is not mounted, as in a bare chroot, the kernel can still be asked.
std::uint64_t InstalledByKernel(const fs::path& root) {
    struct sysinfo info {};
    return root == "/" && ::sysinfo(&info) == 0 ? std::uint64_t{info.totalram} * info.mem_unit
                                                : NoLimit;
}

}  // namespace

std::uint64_t MemoryOfMachine(const fs::path& root) {
    const std::string total = ValueOfLine(root / "proc/meminfo", "MemTotal:");
    const std::optional<std::uint64_t> installed = NumberAt(total);
    std::uint64_t limit = installed ? *installed * KiB : InstalledByKernel(root);
    for (const fs::path& folder : GroupFolders(root, "")) {
        limit = std::min(
            {limit, MemoryLimitIn(folder / "memory.max"), MemoryLimitIn(folder / "memory.high")});
    }
    for (const fs::path& folder : GroupFolders(root, "memory")) {
        limit = std::min(limit, MemoryLimitIn(folder / "memory.limit_in_bytes"));
    }
    return limit == NoLimit ? 0 : limit;
}

std::uint64_t ResidentBytes(const fs::path& root) {
    const std::string sizes = FirstLine(root / "proc/self/statm");
    const std::size_t second = std::min(sizes.find(' '), sizes.size());
    const auto pageSize = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
    return NumberAt(std::string_view(sizes).substr(second)).value_or(0) * pageSize;
}

TProcessors ProcessorsOfMachine(const fs::path& root) {
    std::vector<int> allowed =
        ProcessorsOfList(ValueOfLine(root / "proc/self/status", "Cpus_allowed_list:"));
    if (allowed.empty()) {
        allowed = ProcessorsOfList(FirstLine(root / "sys/devices/system/cpu/online"));
    }
    const std::uint64_t limit = ProcessorLimit(root);
    const auto atMost = [limit](std::size_t count) {
        return static_cast<int>(std::clamp<std::uint64_t>(count, 1, limit));
    };
    return {.physical = atMost(CoreCount(root, allowed)), .logical = atMost(allowed.size())};
}

}  // namespace tarnwick
