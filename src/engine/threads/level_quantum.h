#pragma once
// How moves that take turns share the time of their node: how long a turn lasts and whose turn is next.
// Pure arithmetic: thread_level.h is what runs the threads.
//
// A level is one white node whose moves take turns. Levels are numbered from the first white move behind
// the multithreading levels; the further a level is from the deepest one, the longer its turns, because
// a turn there has all the turns of the levels below inside it.

#include <cstdint>
#include <span>

namespace tarnwick {

inline constexpr int MostSchedulerLevels = 9;

/// What the rules need to know of a level.
struct TLevelPlan {
    int schedulerLevels = 0;  ///< Of the job.
    int number = 0;           ///< 1 for the first level.
    int bestSlots = 0;        ///< First moves that a hint names and that leave Black no choice.
    int forcingSlots = 0;     ///< First moves that are forcing checks.

    /// Beyond the numbered levels: made for a position where hints name several moves.
    bool IsCustom() const { return number > schedulerLevels; }
    bool IsFavoured(int slot) const { return slot < bestSlots || slot < forcingSlots; }
};

/// A started move whose thread has not ended.
struct TSlotTime {
    int slot = 0;                ///< Place in the ordered list.
    std::uint32_t timeUsed = 0;  ///< Sum of its turns in units of 100 ms.
};

/// Length of one turn in units of 100 ms. Moves behind the first one that is still at work get less, so
/// that many can be looked at. live: the threads of the level that have not ended, in ascending order,
/// the slot's own among them.
std::uint32_t QuantumOf(const TLevelPlan& plan, int slot, std::span<const TSlotTime> live);

/// The slot whose turn is next; -1 when a new move has to be started or nothing is left. live is in
/// ascending order. A later slot has its turn only when the one before it has used several times as
/// much, so that the best moves get the most of the time.
int NextSlotToResume(const TLevelPlan& plan, std::span<const TSlotTime> live, bool bMayStartNew);

}  // namespace tarnwick
