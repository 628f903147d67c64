#include "platform/local_time.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace tarnwick {

std::string LocalTimeText() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%d-%02d-%02d %02d:%02d:%02d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
    return text.data();
}

}  // namespace tarnwick
