#include "engine/jobs/job_memory.h"

#include <algorithm>

#include "platform/memory_info.h"

#include "engine/jobs/job_register.h"
#include "engine/search/position_memory.h"

namespace tarnwick {
namespace {

/// The register counts 96 bytes an element against 73 % of the limit and needs a little less; a tenth
/// each is left for the threads' own memories and for the scout.
constexpr std::uint64_t ShareOfThreads = 10;
constexpr std::uint64_t ShareOfScout = 10;
/// The register keeps everything, so a thread's memory beside it need only save the way there: it is of
/// the size of a cache near the processor.
constexpr std::uint64_t BesideRegisterMiB = 1;
/// Slots of boards and move hints.
constexpr std::uint64_t BoardsOfThread = std::uint64_t{300} << 10;
constexpr std::uint64_t LeastJuggledThreads = 32;
constexpr std::uint64_t MostForScout = std::uint64_t{256} << 20;

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

std::uint64_t MostThreads(int threads, int levels) {
    std::uint64_t ofLevel = 1;
    std::uint64_t all = 0;
    for (int level = 0; level < levels && all < 65536; ++level) {
        ofLevel *= static_cast<std::uint64_t>(std::max(threads, 1));
        all += ofLevel;
    }
    return all;
}

int MostJuggledThreads(const TEngineOptions& options) {
    const std::uint64_t share = RegisterLimitsFor(options).m_memoryLimit / ShareOfThreads;
    const std::uint64_t threads = share / ((BesideRegisterMiB << 20) + BoardsOfThread);
    return static_cast<int>(std::clamp(threads, LeastJuggledThreads, MostThreadsAtOnce));
}

std::size_t ScoutTableMiB(const TEngineOptions& options) {
    const std::uint64_t share = RegisterLimitsFor(options).m_memoryLimit / ShareOfScout;
    return static_cast<std::size_t>(std::min(share, MostForScout) >> 20);
}

std::size_t PositionMemoryMiB(const TEngineOptions& options, int plies, std::uint64_t threads) {
    const std::uint64_t share =
        RegisterLimitsFor(options).m_memoryLimit / ShareOfThreads / (threads << 20);
    std::uint64_t wanted = std::min<std::uint64_t>(options.positionMemoryMiB, share);
    if (UsesRegister(options, plies)) {
        wanted = std::min(wanted, BesideRegisterMiB);
    }
    return MemoryForPlies(plies, static_cast<std::size_t>(wanted));
}

}  // namespace tarnwick
