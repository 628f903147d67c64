#include "engine/threads/level_quantum.h"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

/// Turns of a level by the number of levels below it, in seconds.
struct TTurns {
    int best;           ///< Of the first move that is still at work.
    int later;          ///< Of the others; see ShortTurn for 0 and -1.
    int forcingFactor;  ///< By this much longer for the favoured ones among those.
};

constexpr std::array<TTurns, MostSchedulerLevels> TurnsByLevelsBelow = {{{3, -1, 10},
                                                                         {5, 0, 7},
                                                                         {11, 1, 3},
                                                                         {17, 2, 2},
                                                                         {21, 3, 2},
                                                                         {25, 5, 2},
                                                                         {35, 8, 2},
                                                                         {55, 13, 2},
                                                                         {83, 21, 2}}};
constexpr TTurns CustomTurns = {6, 2, 1};

/// Favoured moves get so much where the others get a fraction of a second.
constexpr int ShortestFavouredTurn = 2;
constexpr std::uint32_t UnitsPerSecond = 10;

const TTurns& TurnsOf(const TLevelPlan& plan) {
    return plan.IsCustom()
               ? CustomTurns
               : TurnsByLevelsBelow[static_cast<std::size_t>(plan.schedulerLevels - plan.number)];
}

std::uint32_t InUnits(int seconds) {
    if (seconds > 0) {
        return static_cast<std::uint32_t>(seconds) * UnitsPerSecond;
    }
    return seconds == 0 ? 3 : 1;  // turns below a second
}

}  // namespace

std::uint32_t QuantumOf(const TLevelPlan& plan, int slot, std::span<const TSlotTime> live) {
    const TTurns& turns = TurnsOf(plan);
    const bool bFirstAtWork = live.empty() || live.front().slot >= slot;
    if (live.size() == 1 || bFirstAtWork) {
        return InUnits(turns.best);
    }
    if (!plan.IsFavoured(slot)) {
        return InUnits(turns.later);
    }
    return InUnits(turns.later < 1 ? ShortestFavouredTurn : turns.later * turns.forcingFactor);
}

int NextSlotToResume(const TLevelPlan& plan, std::span<const TSlotTime> live, bool bMayStartNew) {
    if (live.empty()) {
        return -1;
    }
    if (bMayStartNew) {
        const auto least = std::min_element(
            live.begin(), live.end(),
            [](const TSlotTime& a, const TSlotTime& b) { return a.timeUsed < b.timeUsed; });
        if (least->timeUsed >= InUnits(TurnsOf(plan).best)) {
            return -1;  // Each has had a full turn.
        }
    }
    TSlotTime candidate = live.front();
    for (const TSlotTime& next : live.subspan(1)) {
        const auto gap = static_cast<std::uint32_t>(next.slot - candidate.slot);
        const std::uint32_t weight = gap + (plan.IsFavoured(next.slot) ? 2 : 4);
        if (candidate.timeUsed <= next.timeUsed * weight) {
            break;
        }
        candidate = next;
    }
    return candidate.slot;
}

}  // namespace tarnwick
