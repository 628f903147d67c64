#include "engine/jobs/job_memory.h"

#include <algorithm>

#include "platform/memory_info.h"

#include "engine/search/position_memory.h"

namespace tarnwick {
namespace {

/// The register counts 96 bytes an element against 73 % of the limit and needs a little less; a fifth is
/// left for the threads' own memories.
constexpr std::uint64_t ShareOfThreads = 5;

}  // namespace

std::uint64_t MemoryLimitMiB(const TEngineOptions& options, std::uint64_t machineBytes) {
    if (options.memoryMiB >= 0) {
        return static_cast<std::uint64_t>(options.memoryMiB);
    }
    return (machineBytes >> 20) * static_cast<std::uint64_t>(options.memoryPercent) / 100;
}

TRegisterLimits RegisterLimitsFor(const TEngineOptions& options) {
    const std::uint64_t machine = MemoryOfMachine();
    return ComputeRegisterLimits(machine, MemoryLimitMiB(options, machine));
}

std::uint64_t MostThreads(const TEngineOptions& options) {
    std::uint64_t ofLevel = 1;
    std::uint64_t all = 0;
    for (int level = 0; level < options.multithreadingLevels && all < 65536; ++level) {
        ofLevel *= std::max<std::uint64_t>(options.threads, 1);
        all += ofLevel;
    }
    return all;
}

std::size_t PositionMemoryMiB(const TEngineOptions& options, int plies, std::uint64_t threads) {
    const std::uint64_t share =
        RegisterLimitsFor(options).m_memoryLimit / ShareOfThreads / (threads << 20);
    const auto wanted = std::min<std::uint64_t>(options.positionMemoryMiB, share);
    return MemoryForPlies(plies, static_cast<std::size_t>(wanted));
}

}  // namespace tarnwick
