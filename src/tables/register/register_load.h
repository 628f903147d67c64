#pragma once
// From the files of a type to a register that answers.
//
// A type may have up to eight files: four forms in two places. Which of them is taken, and whether its table
// comes into memory or stays on disk, follows from the options and from the memory that is left.

#include <cstdint>
#include <functional>
#include <optional>

#include "base/user_dialog.h"

#include "tables/register/global_register.h"
#include "tables/register/table_options.h"
#include "tables/table_files.h"

namespace tarnwick {

struct TLoadContext {
    const CTableFolders& folders;
    const TTableOptions& options;
    TUserDialog& dialog;
    bool bVerifying =
        false;  ///< Tables are loaded for a verification: memory is asked for differently.
    bool bWantMemory = false;  ///< Overrides bGlobalRegisterForceDiskAccess.
    std::uint64_t quota = 0;   ///< Bytes for all tables.
    /// Whether so many bytes are free now, without evicting anything.
    std::function<bool(std::uint64_t bytes)> isFree;
    /// Makes room for so many bytes, evicting others' tables; false if that is not possible.
    std::function<bool(std::uint64_t bytes)> reserve;
    /// The answer to "use packed data from disk", once given in a verification.
    std::optional<bool>& keepPacked;
};

/// Fills the register; false if there is no usable file. Holds no lock while it reads and asks. Throws
/// std::bad_alloc and what the dialog throws; the register is then of no use.
bool LoadFromDisk(TGlobalRegister& subregister, const TLoadContext& context);

}  // namespace tarnwick
