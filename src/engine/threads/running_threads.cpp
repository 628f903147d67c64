#include "engine/threads/running_threads.h"

#include <thread>

#include "engine/search/thread_context.h"

namespace tarnwick {

void TRunningThreads::Add(std::uint16_t number, TThreadContext& thread) {
    const std::lock_guard guard(m_lock);
    m_threads[number] = &thread;
}

void TRunningThreads::Remove(TThreadContext& thread) {
    const std::lock_guard guard(m_lock);
    m_threads.erase(thread.m_shThreadNumber);
    if (thread.m_bStopFromOutside) {
        thread.m_bStopFromOutside = false;
        ++thread.m_outsideStops;
        m_control.EndThreadStop();
    }
}

bool TRunningThreads::Stop(std::uint16_t number) {
    while (!m_control.IsStopForAll()) {
        {
            const std::lock_guard guard(m_lock);
            const auto found = m_threads.find(number);
            if (found == m_threads.end()) {
                return false;
            }
            if (m_control.TryStopThread(number)) {
                found->second->m_bStopFromOutside = true;
                return true;
            }
        }
        std::this_thread::yield();  // A level is stopping one of its threads.
    }
    return false;
}

std::vector<std::uint16_t> TRunningThreads::Numbers() const {
    const std::lock_guard guard(m_lock);
    std::vector<std::uint16_t> numbers;
    numbers.reserve(m_threads.size());
    for (const auto& [number, thread] : m_threads) {
        numbers.push_back(number);
    }
    return numbers;
}

}  // namespace tarnwick
