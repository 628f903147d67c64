#pragma once
// How many elements the registers may hold.

#include <algorithm>
#include <cstdint>

namespace tarnwick {

struct TRegisterLimits {
    std::uint64_t m_memoryLimit = 0;  ///< Bytes that the registers may take together.
    std::uint64_t m_dataBudget = 0;   ///< Bytes of it for the elements themselves.
    std::uint32_t m_maxElements = 0;  ///< Of all layers together. 0: nothing is stored.
};

/// Bytes counted for one element of any kind, with its share of what finds it. The rest of the memory
/// limit is left to the search.
inline constexpr std::uint64_t BytesPerElement = 96;

/// totalPhysicalBytes: what this process may use at most. limitMiB: what the user grants the registers.
inline TRegisterLimits ComputeRegisterLimits(std::uint64_t totalPhysicalBytes,
                                             std::uint64_t limitMiB) noexcept {
    TRegisterLimits limits;
    limits.m_memoryLimit = std::min(totalPhysicalBytes, limitMiB << 20);
    limits.m_dataBudget =
        static_cast<std::uint64_t>(static_cast<double>(limits.m_memoryLimit) * 0.73);
    limits.m_maxElements = static_cast<std::uint32_t>(limits.m_dataBudget / BytesPerElement);
    return limits;
}

}  // namespace tarnwick
