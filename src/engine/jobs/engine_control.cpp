#include "engine/jobs/engine_control.h"

namespace tarnwick {

/// Held for a few instructions, so nobody sleeps over it.
class TEngineControl::CSpinGuard {
  public:
    explicit CSpinGuard(TEngineControl& control) noexcept : m_lock(control.m_lock) {
        while (m_lock.exchange(1, std::memory_order_acquire) != 0) {
        }
    }
    ~CSpinGuard() { m_lock.store(0, std::memory_order_release); }
    CSpinGuard(const CSpinGuard&) = delete;
    CSpinGuard& operator=(const CSpinGuard&) = delete;

  private:
    std::atomic<std::uint8_t>& m_lock;
};

void TEngineControl::StopAll() noexcept {
    const CSpinGuard guard(*this);
    m_shTargetThread.store(AllThreads, std::memory_order_release);
    m_engineState.store(TEngineState::Stop, std::memory_order_release);
}

void TEngineControl::Pause() noexcept {
    const CSpinGuard guard(*this);
    if (m_engineState == TEngineState::Run) {
        m_engineState.store(TEngineState::Pause, std::memory_order_release);
    } else if (m_engineState == TEngineState::Stop) {
        m_previousState.store(TEngineState::Pause, std::memory_order_release);
    }
}

void TEngineControl::Resume() noexcept {
    const CSpinGuard guard(*this);
    if (m_engineState == TEngineState::Pause) {
        m_engineState.store(TEngineState::Run, std::memory_order_release);
    } else if (m_engineState == TEngineState::Stop) {
        m_previousState.store(TEngineState::Run, std::memory_order_release);
    }
}

bool TEngineControl::TryStopThread(std::uint16_t thread) noexcept {
    const CSpinGuard guard(*this);
    if (m_engineState == TEngineState::Stop) {
        return false;
    }
    m_previousState.store(m_engineState, std::memory_order_release);
    m_shTargetThread.store(thread, std::memory_order_release);
    m_engineState.store(TEngineState::Stop, std::memory_order_release);
    return true;
}

bool TEngineControl::PassStopOn(std::uint16_t to) noexcept {
    const CSpinGuard guard(*this);
    if (m_engineState == TEngineState::Stop && m_shTargetThread == AllThreads) {
        return false;
    }
    m_shTargetThread.store(to, std::memory_order_release);
    return true;
}

void TEngineControl::EndThreadStop() noexcept {
    const CSpinGuard guard(*this);
    // The target stays: a reader who has just seen the stop must not take it for one of all.
    if (m_engineState == TEngineState::Stop && m_shTargetThread != AllThreads) {
        m_engineState.store(m_previousState, std::memory_order_release);
    }
}

}  // namespace tarnwick
