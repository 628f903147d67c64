#pragma once
// CRunControl: how long work over tables is held and ended from another thread.

#include <atomic>
#include <cstdint>

namespace tarnwick {

class CRunControl {
  public:
    /// For good; ends a pause too.
    void Stop() noexcept { Become(TState::Stopped); }
    void Pause() noexcept { Become(TState::Paused); }
    void Resume() noexcept { Become(TState::Runs); }

    bool IsStopped() const noexcept { return m_state == TState::Stopped; }
    bool IsPaused() const noexcept { return m_state == TState::Paused; }
    /// Called by the work between its pieces: waits while it is paused. False: it is to end.
    bool MayGoOn() const noexcept {
        TState state = m_state;
        while (state == TState::Paused) {
            m_state.wait(state);
            state = m_state;
        }
        return state != TState::Stopped;
    }

  private:
    enum class TState : std::uint8_t {
        Runs,
        Paused,
        Stopped
    };

    void Become(TState wanted) noexcept {
        TState state = m_state;
        while (state != TState::Stopped && !m_state.compare_exchange_weak(state, wanted)) {
        }
        m_state.notify_all();
    }

    std::atomic<TState> m_state{TState::Runs};
};

/// Of work that nobody can hold.
inline const CRunControl NeverStopped;

}  // namespace tarnwick
