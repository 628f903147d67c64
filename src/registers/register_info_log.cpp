#include "registers/register_info_log.h"

#include <fstream>

namespace tarnwick {

TRegisterInfoLog::TRegisterInfoLog(bool bOn, const std::filesystem::path& folder)
    : m_bOn(bOn), m_path(folder / "registerInfo.log") {}

void TRegisterInfoLog::Write(const char* message, std::int32_t param1, std::int32_t param2,
                             std::uint32_t elements, std::uint32_t doubtfulElements) noexcept {
    if (!m_bOn) {
        return;
    }
    try {
        const std::lock_guard guard(m_mutex);
        std::ofstream file(m_path, std::ios::app);
        file << message << ", msg params: " << param1 << ", " << param2
             << "\n\t\t\tElementsIn= " << elements << ", DoubtfulElementsIn=" << doubtfulElements
             << '\n';
    } catch (...) {
        // Often memory is what is short when this log is written: nobody may suffer from that.
    }
}

}  // namespace tarnwick
