#include "app/settings/machine_defaults.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

constexpr int MostThreads = 64;  // what the engine takes
constexpr int LeastThreadsOfLargeMachine = 4;

}  // namespace

TMachineDefaults MachineDefaults(const TProcessors& processors) {
    const int cores = std::max(processors.physical, 1);
    const bool bLarge = cores >= 8 || (cores >= 6 && processors.logical >= 12);
    if (!bLarge) {
        return {.threads = cores, .bTwoLevels = false};
    }
    const int root = static_cast<int>(std::sqrt(cores));
    return {.threads = std::clamp(root, LeastThreadsOfLargeMachine, MostThreads),
            .bTwoLevels = true};
}

int ApplyMachineDefaults(const TProcessors& processors, TOptions& options) {
    const TMachineDefaults defaults = MachineDefaults(processors);
    if (defaults.bTwoLevels) {
        options.multithreadingLevels = 2;
    }
    return defaults.threads;
}

}  // namespace tarnwick
