#pragma once
// Work over a long row of numbers, spread over threads in pieces.

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include "tables/run_control.h"

namespace tarnwick {

/// Calls work(begin, end) for pieces that together are 0 to count, from `threads` threads; returns when all
/// is done. Once the control says stop or work has thrown, no further piece begins; the first exception comes out
/// here. False if pieces are missing.
template <typename TWork>
bool ForRanges(std::uint64_t count, std::uint64_t pieceSize, int threads,
               const CRunControl& control, const TWork& work) {
    std::atomic<std::uint64_t> next{0};
    std::atomic<bool> bFailed{false};
    std::exception_ptr error;
    std::mutex errorLock;
    const auto run = [&] {
        while (!bFailed.load(std::memory_order_relaxed) && control.MayGoOn()) {
            const std::uint64_t begin = next.fetch_add(pieceSize, std::memory_order_relaxed);
            if (begin >= count) {
                return;
            }
            try {
                work(begin, std::min(begin + pieceSize, count));
            } catch (...) {
                const std::scoped_lock guard(errorLock);
                if (!bFailed.exchange(true)) {
                    error = std::current_exception();
                }
            }
        }
    };
    {
        std::vector<std::jthread> helpers;
        for (int i = 1; i < threads; ++i) {
            helpers.emplace_back(run);
        }
        run();
    }
    if (error) {
        std::rethrow_exception(error);
    }
    return next.load() >= count && !control.IsStopped();
}

}  // namespace tarnwick
