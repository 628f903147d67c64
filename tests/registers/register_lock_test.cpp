#include "registers/register_lock.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace tarnwick {
namespace {

TEST(ThreadsRegisterLock, WriterMayLockAgainAndReadItsOwnLock) {
    TRegisterLock lock;
    int value = 0;
    lock.LockWrite();
    lock.LockWrite();
    lock.LockRead();
    lock.UnlockRead();
    lock.UnlockWrite();
    std::thread other([&] {
        const TRegisterWriteGuard guard(lock);
        value = value == 1 ? 2 : -1;
    });
    value = 1;  // the other is kept out until the last unlock
    lock.UnlockWrite();
    other.join();
    EXPECT_EQ(value, 2);
}

TEST(ThreadsRegisterLock, ReadersNeverSeeAHalfWrittenValue) {
    TRegisterLock lock;
    std::uint64_t values[2] = {0, 0};
    std::atomic<int> readersInside{0};
    std::atomic<int> faults{0};
    std::atomic<bool> bTwoReadersMet{false};
    const auto write = [&] {
        for (int i = 0; i < 3000; ++i) {
            const TRegisterWriteGuard guard(lock);
            const TRegisterWriteGuard again(lock);
            faults += readersInside != 0 ? 1 : 0;
            ++values[0];
            ++values[1];
        }
    };
    const auto read = [&] {
        for (int i = 0; i < 20000; ++i) {
            const TRegisterReadGuard guard(lock);
            if (++readersInside > 1) {
                bTwoReadersMet = true;
            }
            faults += values[0] != values[1] ? 1 : 0;
            --readersInside;
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back(write);
        threads.emplace_back(read);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(faults, 0);
    EXPECT_EQ(values[0], 6000u);

    // Whoever must not wait is not held up by a writer, and not shut out for ever.
    lock.LockWrite();
    std::thread([&] { EXPECT_FALSE(lock.LockReadSoon()); }).join();
    EXPECT_TRUE(lock.LockReadSoon()) << "the writer's own";
    lock.UnlockRead();
    lock.UnlockWrite();
    std::thread([&] {
        EXPECT_TRUE(lock.LockReadSoon());
        lock.UnlockRead();
    }).join();

    // Readers do not shut each other out.
    lock.LockRead();
    std::thread([&] { const TRegisterReadGuard guard(lock); }).join();
    lock.UnlockRead();
}

}  // namespace
}  // namespace tarnwick
