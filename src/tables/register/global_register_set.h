#pragma once
// TGlobalRegisterSet: all registers of a program. It finds the one for a board, loads it on first demand,
// counts its users, keeps all of them together under a quota of memory and throws out those that have
// not been used for longest.
//
// Any thread may call anything. One lock guards the map; it is not held while a file is read or the user is
// asked. Threads that want a type which another one is loading wait for it. A register whose use count is
// above 0 is never destroyed; CHeldTables is what a search uses, so that it counts and locks only once
// for thousands of lookups.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/user_dialog.h"

#include "tables/register/global_register.h"
#include "tables/register/lookup_gates.h"
#include "tables/register/table_options.h"
#include "tables/table_files.h"

namespace tarnwick {

/// One line of the status: a register, or a type without data.
struct TRegisterStatus {
    std::string type;
    bool bAvailable = false;
    std::uint64_t residentBytes = 0;
    int useCount = 0;
    std::int64_t lastAccessMs = 0;  ///< Of the clock.
};

class TGlobalRegisterSet {
  public:
    /// The dialog may be null: nothing is told then, and every question is answered with no.
    explicit TGlobalRegisterSet(TTableOptions options, TUserDialog* pDialog = nullptr);
    /// Nobody may hold a register any more.
    ~TGlobalRegisterSet();
    TGlobalRegisterSet(const TGlobalRegisterSet&) = delete;
    TGlobalRegisterSet& operator=(const TGlobalRegisterSet&) = delete;

    /// For the search: the register of the board's type with its use count raised, or null if there is none or
    /// it is not worth loading with the board's plies left. Plain types only: whether the fixed men of a
    /// custom type indeed never move is the promise of its maker, and a mate that the search
    /// claims must not hang on that.
    TGlobalRegister* FindDataFor(const TChessboard& board, const TLookupLimits& limits);
    /// For commands and heuristics: any type, whatever the plies left.
    TGlobalRegister* FindDataFor(const TChessboard& board);
    /// The same by the type's text, plain types only. bWantMemory overrides a wish for disk access.
    TGlobalRegister* FindDataForType(const std::string& type, bool bWantMemory = false);

    /// Gives back what FindDataFor gave; null is allowed.
    void ReleaseData(TGlobalRegister* pRegister) noexcept;

    /// Whether the key's type is loaded or known to have no data: then finding it again costs no load.
    bool IsSettled(std::uint64_t key) const;
    /// Counts everything that may change what a lookup finds: loads, evictions, clearings, and wishes for memory.
    /// A holder who sees it change gives all his registers back and asks anew.
    std::uint64_t Generation() const noexcept {
        return m_generation.load(std::memory_order_acquire);
    }

    /// Bytes that tables may take. The quota is a share of the machine's memory unless SetQuota says it.
    std::uint64_t Quota() const noexcept { return m_quota.load(std::memory_order_relaxed); }
    void SetQuota(std::uint64_t bytes) noexcept { m_quota.store(bytes, std::memory_order_relaxed); }
    /// Whether the search may ask at all.
    bool MayServeSearch() const { return m_options.maxMemRatioForPrecalculatedData > 0; }
    const TTableOptions& Options() const { return m_options; }
    const CTableFolders& Folders() const { return m_folders; }

    /// Bytes of all loaded tables and of all loads under way.
    std::uint64_t CurrentUse() const;
    /// Makes room for a load of so many bytes by evicting what is not in use, oldest first. False, and nothing
    /// promised, if that does not suffice. `key` is the type that is being loaded.
    bool ReserveMemory(std::uint64_t limit, std::uint64_t bytes, std::uint64_t key);
    /// Destroys all registers, waiting for loads under way and for users. With bKeepUsed those in use stay,
    /// and so does what is known of types without data.
    void Clear(bool bKeepUsed);

    /// While a verification runs (a count, as several may), memory is asked for differently.
    void BeginVerification() { ++m_verifications; }
    void EndVerification() { --m_verifications; }

    /// In the order of the keys.
    std::vector<TRegisterStatus> Status() const;
    /// Types that are being loaded.
    std::vector<std::string> Pending() const;

  private:
    struct TLoading {
        std::string type;
        std::uint64_t bytes = 0;
    };
    class CLoadInProgress;

    TGlobalRegister* Find(std::uint64_t key);
    TGlobalRegister* FindOrLoad(std::uint64_t key, const std::string& type, bool bWantMemory);
    std::unique_ptr<TGlobalRegister> Load(std::uint64_t key, const std::string& type,
                                          bool bWantMemory);
    std::uint64_t KeyOfCustomType(const std::string& type);
    std::string TypeOfKey(std::uint64_t key) const;
    std::uint64_t UseWithout(std::uint64_t key) const;
    std::uint64_t FreeWithout(std::uint64_t key) const;
    std::uint64_t EvictOldest(std::uint64_t key, std::uint64_t need);
    void TellGenerationQuota(std::unique_lock<std::mutex>& lock);

    TTableOptions m_options;
    CTableFolders m_folders;
    std::unique_ptr<TUserDialog> m_pSilentDialog;
    TUserDialog& m_dialog;
    std::atomic<std::uint64_t> m_quota;
    std::atomic<int> m_verifications{0};
    std::atomic<std::uint64_t> m_generation{0};

    mutable std::mutex m_lock;  ///< Guards all that follows.
    std::condition_variable m_changed;
    /// Null: the type has no data, and is not tried again until everything is cleared.
    std::map<std::uint64_t, std::unique_ptr<TGlobalRegister>> m_registers;
    std::map<std::uint64_t, TLoading> m_loading;
    std::map<std::string, std::uint64_t> m_customKeys;
    std::optional<bool> m_keepPacked;
};

}  // namespace tarnwick
