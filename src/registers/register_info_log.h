#pragma once
// The diagnostic log of the registers, "registerInfo.log": what was thrown away, when, and how much
// there was. Any thread; its lock is the last that a thread takes. A log that cannot be written is
// silently not written.

#include <cstdint>
#include <filesystem>
#include <mutex>

namespace tarnwick {

class TRegisterInfoLog {
  public:
    /// Switched off, all calls do nothing.
    TRegisterInfoLog(bool bOn, const std::filesystem::path& folder);

    /// Appends two lines: the message with its parameters, and the two element counts.
    void Write(const char* message, std::int32_t param1, std::int32_t param2,
               std::uint32_t elements, std::uint32_t doubtfulElements) noexcept;

  private:
    const bool m_bOn;
    const std::filesystem::path m_path;
    std::mutex m_mutex;
};

}  // namespace tarnwick
