#pragma once
// The one word by which a job's threads are told to run, to pause or to stop, and who may change it.
//
// Nodes read it at the head of each move without a lock. Writers take the spin lock for a few
// instructions. A stop names one thread or all; a stop for all is never taken back, and a stop for one
// thread goes back to what was in force before it, so that a pause outlives it.

#include <atomic>
#include <cstdint>

namespace tarnwick {

enum class TEngineState : std::uint8_t {
    Run = 0,
    Pause = 1,
    ManualCommand = 2,
    Stop = 3
};

inline constexpr std::uint16_t AllThreads = 65535;

class TEngineControl {
  public:
    TEngineState State() const noexcept { return m_engineState.load(std::memory_order_acquire); }
    bool IsRunning() const noexcept {
        return m_engineState.load(std::memory_order_relaxed) == TEngineState::Run;
    }
    /// A stop for this thread or for all is in force.
    bool IsStopFor(std::uint16_t thread) const noexcept {
        if (State() != TEngineState::Stop) {
            return false;
        }
        const std::uint16_t target = m_shTargetThread.load(std::memory_order_acquire);
        return target == AllThreads || target == thread;
    }
    bool IsStopForAll() const noexcept {
        return State() == TEngineState::Stop &&
               m_shTargetThread.load(std::memory_order_acquire) == AllThreads;
    }
    /// The job is paused, also while one of its threads is being stopped.
    bool IsPaused() const noexcept {
        const TEngineState state = State();
        const TEngineState inForce =
            state == TEngineState::Stop ? m_previousState.load(std::memory_order_acquire) : state;
        return inForce == TEngineState::Pause || inForce == TEngineState::ManualCommand;
    }
    std::uint16_t Target() const noexcept {
        return m_shTargetThread.load(std::memory_order_acquire);
    }

    /// Every thread leaves its search at its next move.
    void StopAll() noexcept;
    /// No effect once all are stopped. While one thread is being stopped they hold for the others.
    void Pause() noexcept;
    void Resume() noexcept;

    /// Asks one thread to stop. False while another stop is in force: the caller tries again or finds
    /// that all are stopped.
    bool TryStopThread(std::uint16_t thread) noexcept;
    /// The thread that is being stopped hands its stop to another one, a child of its own, or takes it
    /// back from there. False when all are stopped.
    bool PassStopOn(std::uint16_t to) noexcept;
    /// The end of a stop for one thread; a stop for all stays.
    void EndThreadStop() noexcept;

  private:
    class CSpinGuard;

    std::atomic<std::uint8_t> m_lock{0};
    std::atomic<TEngineState> m_engineState{TEngineState::Run};
    std::atomic<std::uint16_t> m_shTargetThread{AllThreads};
    /// To go back to after a thread's stop; set before the stop.
    std::atomic<TEngineState> m_previousState{TEngineState::Run};
};

}  // namespace tarnwick
