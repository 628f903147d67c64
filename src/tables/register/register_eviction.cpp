// The quota. A table that wants memory gets it from tables that nobody uses, those first that were given back
// longest ago.
//
// Searching threads keep registers over many lookups, so most tables look used. The count of generations
// tells them that memory is wanted: each gives back what it holds at its next lookup, microseconds
// later. That is why eviction goes round three times with a short rest in between.

#include <algorithm>
#include <chrono>
#include <thread>
#include <tuple>

#include "platform/memory_info.h"

#include "tables/register/global_register_set.h"
#include "tables/register/register_texts.h"

namespace tarnwick {
namespace {

constexpr int EvictionRounds = 3;
constexpr std::chrono::milliseconds RestBetweenRounds{2};

}  // namespace

std::uint64_t TGlobalRegisterSet::UseWithout(std::uint64_t key) const {
    std::uint64_t bytes = 0;
    for (const auto& [otherKey, pRegister] : m_registers) {
        bytes += pRegister != nullptr ? pRegister->ResidentSize() : 0;
    }
    for (const auto& [otherKey, loading] : m_loading) {
        bytes += otherKey != key ? loading.bytes : 0;
    }
    return bytes;
}

/// What the quota leaves. Where the system says that less is in memory than we count, pages of tables were
/// never touched or are swapped out: half of the difference counts as free.
std::uint64_t TGlobalRegisterSet::FreeWithout(std::uint64_t key) const {
    std::uint64_t use = UseWithout(key);
    const std::uint64_t quota = Quota();
    if (use > 0) {
        const std::uint64_t workingSet = ResidentBytes();
        if (workingSet > 0 && workingSet < use) {
            use = workingSet + (use - workingSet) / 2;
        }
    }
    return use < quota ? quota - use : 0;
}

std::uint64_t TGlobalRegisterSet::CurrentUse() const {
    const std::lock_guard guard(m_lock);
    return UseWithout(0);
}

void TGlobalRegisterSet::TellGenerationQuota(std::unique_lock<std::mutex>& lock) {
    if (m_verifications > 0) {
        lock.unlock();
        m_dialog.Tell(UserText(GenerationQuotaText));
        lock.lock();
    }
}

bool TGlobalRegisterSet::ReserveMemory(std::uint64_t limit, std::uint64_t bytes,
                                       std::uint64_t key) {
    std::unique_lock lock(m_lock);
    if (bytes >= Quota() || bytes > limit) {
        TellGenerationQuota(lock);
        return false;
    }
    const auto loading = m_loading.find(key);
    if (loading != m_loading.end()) {
        loading->second.bytes = bytes;
    }
    for (int round = 0; round < EvictionRounds; ++round) {
        const std::uint64_t free = FreeWithout(key);
        if (free >= bytes || EvictOldest(key, bytes - free) == 0) {
            return true;
        }
        ++m_generation;  // Whoever holds registers gives them back now.
        lock.unlock();
        std::this_thread::sleep_for(RestBetweenRounds);
        lock.lock();
    }
    if (FreeWithout(key) >= bytes) {
        return true;
    }
    if (const auto own = m_loading.find(key); own != m_loading.end()) {
        own->second.bytes = 0;
    }
    TellGenerationQuota(lock);
    return false;
}

/// Evicts what is not in use until so many bytes are free; returns how many are still needed.
std::uint64_t TGlobalRegisterSet::EvictOldest(std::uint64_t key, std::uint64_t need) {
    std::vector<std::tuple<std::int64_t, std::uint64_t>> byAge;
    for (const auto& [otherKey, pRegister] : m_registers) {
        if (otherKey != key && pRegister != nullptr && pRegister->m_useCount.load() == 0) {
            byAge.emplace_back(pRegister->m_lastAccessMs.load(), otherKey);
        }
    }
    std::ranges::sort(byAge);
    for (const auto& [age, otherKey] : byAge) {
        if (need == 0) {
            break;
        }
        const auto found = m_registers.find(otherKey);
        need -= std::min(need, found->second->ResidentSize());
        m_registers.erase(found);
        ++m_generation;
    }
    return need;
}

void TGlobalRegisterSet::Clear(bool bKeepUsed) {
    std::unique_lock lock(m_lock);
    ++m_generation;
    m_changed.wait(lock, [this] { return m_loading.empty(); });
    while (true) {
        std::erase_if(m_registers, [bKeepUsed](const auto& entry) {
            return entry.second == nullptr ? !bKeepUsed : entry.second->m_useCount.load() == 0;
        });
        ++m_generation;
        if (bKeepUsed || m_registers.empty()) {
            return;
        }
        lock.unlock();
        std::this_thread::sleep_for(RestBetweenRounds);
        lock.lock();
    }
}

}  // namespace tarnwick
