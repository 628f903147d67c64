// Writers and readers meet as in Dekker's algorithm: a writer raises its flag and then looks for readers,
// a reader counts itself and then looks for the flag. Both steps are sequentially consistent, so at
// least one sees the other, and it is the reader who steps back.

#include "registers/register_lock.h"

#include <thread>

namespace tarnwick {
namespace {

constexpr int SpinsBeforeYield = 64000;
constexpr int SpinsOfTheImpatient = 2000;

/// A number of its own for each thread, from 1.
std::uint32_t ThreadNumber() noexcept {
    static std::atomic<std::uint32_t> s_last{0};
    thread_local const std::uint32_t number = ++s_last;
    return number;
}

template <typename TCondition>
void SpinUntil(const TCondition& condition) noexcept {
    for (int spins = 0; !condition(); ++spins) {
        if (spins >= SpinsBeforeYield) {
            spins = SpinsBeforeYield;
            std::this_thread::yield();
        }
    }
}

}  // namespace

bool TRegisterLock::TryTakeFlag(std::uint32_t self) noexcept {
    if (m_writer.load(std::memory_order_relaxed) == 0 && m_writer.exchange(1) == 0) {
        m_owner.store(self, std::memory_order_relaxed);
        return true;
    }
    if (m_owner.load(std::memory_order_relaxed) == self) {
        ++m_recursion;
        return true;
    }
    return false;
}

void TRegisterLock::LockWrite() noexcept {
    const std::uint32_t self = ThreadNumber();
    SpinUntil([&] { return TryTakeFlag(self); });
    WaitForReaders();
}

void TRegisterLock::WaitForReaders() noexcept {
    m_writersWaiting.fetch_add(1);
    SpinUntil([&] { return m_activeReaders.load() == 0; });
    m_writersWaiting.fetch_sub(1);
}

void TRegisterLock::UnlockWrite() noexcept {
    if (m_recursion != 0) {
        --m_recursion;
        return;
    }
    m_owner.store(0, std::memory_order_relaxed);
    m_writer.exchange(0);
}

bool TRegisterLock::TryLockRead() noexcept {
    if (m_writersWaiting.load(std::memory_order_relaxed) != 0 ||
        m_writer.load(std::memory_order_relaxed) != 0) {
        return false;
    }
    m_activeReaders.fetch_add(1);
    if (m_writer.load() == 0) {
        return true;
    }
    m_activeReaders.fetch_sub(1);
    return false;
}

bool TRegisterLock::LockReadSoon() noexcept {
    if (m_owner.load(std::memory_order_relaxed) == ThreadNumber()) {
        m_activeReaders.fetch_add(1);
        return true;
    }
    for (int spins = 0; spins < SpinsOfTheImpatient; ++spins) {
        if (TryLockRead()) {
            return true;
        }
    }
    return false;
}

void TRegisterLock::LockRead() noexcept {
    if (m_owner.load(std::memory_order_relaxed) == ThreadNumber()) {
        m_activeReaders.fetch_add(1);
        return;
    }
    SpinUntil([&] { return m_writersWaiting.load(std::memory_order_relaxed) == 0; });
    SpinUntil([&] { return m_writer.load(std::memory_order_relaxed) == 0; });
    for (;;) {
        m_activeReaders.fetch_add(1);
        if (m_writer.load() == 0) {
            return;
        }
        m_activeReaders.fetch_sub(1);
        while (m_writer.load(std::memory_order_relaxed) != 0) {
            std::this_thread::yield();
        }
    }
}

}  // namespace tarnwick
