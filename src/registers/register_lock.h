#pragma once
// TRegisterLock: the reader/writer lock of the registers.
//
// Registers hold it for well under a microsecond, so it spins before it gives the processor away. The
// writer side is recursive, and a writer may also take the reader side of its own lock. Waiting writers
// go before new readers.
//
// What it does not allow: a thread that holds the reader side must ask for neither side again (a writer
// in between would wait for it, and it for the writer), unless it is the writer.

#include <atomic>
#include <cstdint>

namespace tarnwick {

class TRegisterLock {
  public:
    TRegisterLock() = default;
    TRegisterLock(const TRegisterLock&) = delete;
    TRegisterLock& operator=(const TRegisterLock&) = delete;

    void LockWrite() noexcept;
    void UnlockWrite() noexcept;
    void LockRead() noexcept;
    /// Waits some microseconds at most: longer than a query or a store takes, not as long as a sweep or
    /// a clearing. False: not locked.
    bool LockReadSoon() noexcept;
    void UnlockRead() noexcept { m_activeReaders.fetch_sub(1, std::memory_order_release); }

  private:
    bool TryTakeFlag(std::uint32_t self) noexcept;
    bool TryLockRead() noexcept;
    void WaitForReaders() noexcept;

    std::atomic<std::uint32_t> m_writer{0};          ///< 1 while a writer has or awaits the lock.
    std::uint32_t m_recursion = 0;                   ///< Further LockWrite calls of the owner.
    std::atomic<std::uint32_t> m_writersWaiting{0};  ///< Writers that wait for readers to leave.
    std::atomic<std::int32_t> m_activeReaders{0};
    std::atomic<std::uint32_t> m_owner{0};  ///< Number of the writer's thread, 0 for none.
};

class TRegisterReadGuard {
  public:
    explicit TRegisterReadGuard(TRegisterLock& lock) noexcept : m_lock(lock) { lock.LockRead(); }
    ~TRegisterReadGuard() { m_lock.UnlockRead(); }
    TRegisterReadGuard(const TRegisterReadGuard&) = delete;
    TRegisterReadGuard& operator=(const TRegisterReadGuard&) = delete;

  private:
    TRegisterLock& m_lock;
};

class TRegisterWriteGuard {
  public:
    explicit TRegisterWriteGuard(TRegisterLock& lock) noexcept : m_lock(lock) { lock.LockWrite(); }
    ~TRegisterWriteGuard() { m_lock.UnlockWrite(); }
    TRegisterWriteGuard(const TRegisterWriteGuard&) = delete;
    TRegisterWriteGuard& operator=(const TRegisterWriteGuard&) = delete;

  private:
    TRegisterLock& m_lock;
};

}  // namespace tarnwick
