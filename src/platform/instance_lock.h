#pragma once

// Whether this user runs the program already.
//
// The first instance holds an advisory lock on a file until it ends, however it ends: the system lets go of
// it also after a kill, so no stale file can ever stand in the way. Whoever does not get the lock knows
// that he is not the first. Nobody waits.

#include <filesystem>

namespace tarnwick {

/// The folder for the lock: runtimeFolder (XDG_RUNTIME_DIR) if it is absolute, this user's and closed to
/// others; otherwise temporaryFolder / "tarnwick-<user number>", made with mode 0700. Empty if that name
/// belongs to somebody else, is a link, or is open to others: a trap may wait there.
std::filesystem::path FolderOfInstanceLock(const std::filesystem::path& runtimeFolder,
                                           const std::filesystem::path& temporaryFolder = "/tmp");

class CInstanceLock {
  public:
    /// Tries once. folder: as FolderOfInstanceLock gives it. Where no lock can be made, for want of a
    /// folder or of rights, nobody is known to run before us.
    explicit CInstanceLock(const std::filesystem::path& folder) noexcept;
    CInstanceLock(const CInstanceLock&) = delete;
    CInstanceLock& operator=(const CInstanceLock&) = delete;
    ~CInstanceLock();

    /// Another instance held the lock when this object was made.
    [[nodiscard]] bool IsSecondInstance() const { return m_bSecond; }

  private:
    int m_nDescriptor = -1;
    bool m_bSecond = false;
};

}  // namespace tarnwick
