// Finding and loading. Making room is register_eviction.cpp's.

#include "tables/register/global_register_set.h"

#include <algorithm>
#include <utility>

#include "platform/clock.h"
#include "platform/memory_info.h"

#include "chess/chessboard_id.h"
#include "tables/register/register_load.h"

namespace tarnwick {
namespace {

class CSilentDialog final : public TUserDialog {
  public:
    void Tell(std::string_view) override {}
    bool Ask(std::string_view) override { return false; }
    void Progress(std::string_view) override {}
};

std::uint64_t QuotaOf(const TTableOptions& options) {
    const auto percent =
        static_cast<std::uint64_t>(std::clamp(options.maxMemRatioForPrecalculatedData, 0, 100));
    return MemoryOfMachine() / 100 * percent;
}

int MenOn(const TChessboard& board) {
    return std::popcount(OccupiedFields(board));
}

}  // namespace

TGlobalRegisterSet::TGlobalRegisterSet(TTableOptions options, TUserDialog* pDialog)
    : m_options(std::move(options)),
      m_folders(m_options.programFolder, m_options.precalcPath),
      m_pSilentDialog(pDialog == nullptr ? std::make_unique<CSilentDialog>() : nullptr),
      m_dialog(pDialog == nullptr ? *m_pSilentDialog : *pDialog),
      m_quota(QuotaOf(m_options)) {}

TGlobalRegisterSet::~TGlobalRegisterSet() = default;

TGlobalRegister* TGlobalRegisterSet::FindDataFor(const TChessboard& board,
                                                 const TLookupLimits& limits) {
    const std::uint64_t key = PositionTypeId(board);
    if (key == 0) {
        return nullptr;
    }
    if (IsSettled(key)) {
        return Find(key);
    }
    if (!MayLoadInSearch(board, limits) ||
        MenOn(board) > MostMenOfTable(limits, m_options.useDataPackedForRandomAccess)) {
        return nullptr;
    }
    return FindOrLoad(key, PositionTypeOf(board), false);
}

TGlobalRegister* TGlobalRegisterSet::FindDataFor(const TChessboard& board) {
    const std::uint64_t key = PositionTypeId(board);
    if (key != 0) {
        return FindOrLoad(key, PositionTypeOf(board), false);
    }
    const std::string type = CustomTypeOf(board);
    return type.empty() ? nullptr : FindOrLoad(KeyOfCustomType(type), type, false);
}

TGlobalRegister* TGlobalRegisterSet::FindDataForType(const std::string& type, bool bWantMemory) {
    return FindOrLoad(PositionTypeId(type), type, bWantMemory);
}

void TGlobalRegisterSet::ReleaseData(TGlobalRegister* pRegister) noexcept {
    if (pRegister != nullptr) {
        pRegister->m_lastAccessMs.store(NowMs(), std::memory_order_relaxed);
        pRegister->m_useCount.fetch_sub(1, std::memory_order_release);
    }
}

bool TGlobalRegisterSet::IsSettled(std::uint64_t key) const {
    const std::lock_guard guard(m_lock);
    return m_registers.contains(key);
}

TGlobalRegister* TGlobalRegisterSet::Find(std::uint64_t key) {
    const std::lock_guard guard(m_lock);
    const auto found = m_registers.find(key);
    if (found == m_registers.end() || found->second == nullptr) {
        return nullptr;
    }
    ++found->second->m_useCount;
    return found->second.get();
}

TGlobalRegister* TGlobalRegisterSet::FindOrLoad(std::uint64_t key, const std::string& type,
                                                bool bWantMemory) {
    std::unique_lock lock(m_lock);
    m_changed.wait(lock, [&] { return !m_loading.contains(key); });
    auto found = m_registers.find(key);
    if (found == m_registers.end()) {
        m_loading[key] = {type, 0};
        lock.unlock();
        std::unique_ptr<TGlobalRegister> loaded;
        try {
            loaded = Load(key, type, bWantMemory);
        } catch (
            ...) {  // No memory, or the user's window is gone: the search does without the table.
        }
        lock.lock();
        m_loading.erase(key);
        found = m_registers.insert_or_assign(key, std::move(loaded)).first;
        ++m_generation;
        m_changed.notify_all();
    }
    if (found->second == nullptr) {
        return nullptr;
    }
    ++found->second->m_useCount;
    return found->second.get();
}

std::unique_ptr<TGlobalRegister> TGlobalRegisterSet::Load(std::uint64_t key,
                                                          const std::string& type,
                                                          bool bWantMemory) {
    auto subregister = (key & 1) != 0 ? std::make_unique<TGlobalRegister>(CCustomType(type), key)
                                      : std::make_unique<TGlobalRegister>(type, key);
    std::optional<bool> keepPacked;
    {
        const std::lock_guard guard(m_lock);
        keepPacked = m_keepPacked;
    }
    const auto isFree = [&](std::uint64_t bytes) {
        const std::lock_guard guard(m_lock);
        m_loading[key].bytes = bytes;
        return FreeWithout(key) >= bytes;
    };
    const auto reserve = [&](std::uint64_t bytes) { return ReserveMemory(Quota(), bytes, key); };
    const bool bLoaded = LoadFromDisk(*subregister, {.folders = m_folders,
                                                     .options = m_options,
                                                     .dialog = m_dialog,
                                                     .bVerifying = m_verifications > 0,
                                                     .bWantMemory = bWantMemory,
                                                     .quota = Quota(),
                                                     .isFree = isFree,
                                                     .reserve = reserve,
                                                     .keepPacked = keepPacked});
    const std::lock_guard guard(m_lock);
    m_keepPacked = keepPacked;
    return bLoaded ? std::move(subregister) : nullptr;
}

/// Custom types get odd numbers in the order in which they are asked for; plain keys are even. Two texts never
/// share a number, which no arithmetic on the text could promise in 64 bits.
std::uint64_t TGlobalRegisterSet::KeyOfCustomType(const std::string& type) {
    const std::lock_guard guard(m_lock);
    return m_customKeys.try_emplace(type, m_customKeys.size() * 2 + 1).first->second;
}

std::string TGlobalRegisterSet::TypeOfKey(std::uint64_t key) const {
    const auto custom =
        std::ranges::find(m_customKeys, key, [](const auto& entry) { return entry.second; });
    return custom != m_customKeys.end() ? custom->first : PositionTypeName(key);
}

std::vector<TRegisterStatus> TGlobalRegisterSet::Status() const {
    const std::lock_guard guard(m_lock);
    std::vector<TRegisterStatus> lines;
    for (const auto& [key, pRegister] : m_registers) {
        TRegisterStatus line{.type = TypeOfKey(key), .bAvailable = pRegister != nullptr};
        if (pRegister != nullptr) {
            line.residentBytes = pRegister->ResidentSize();
            line.useCount = pRegister->m_useCount.load();
            line.lastAccessMs = pRegister->m_lastAccessMs.load();
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<std::string> TGlobalRegisterSet::Pending() const {
    const std::lock_guard guard(m_lock);
    std::vector<std::string> types;
    for (const auto& [key, loading] : m_loading) {
        types.push_back(loading.type);
    }
    return types;
}

}  // namespace tarnwick
