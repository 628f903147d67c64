#pragma once
// The check of all tables that lie on this disk, size by size, and what is missing among them.

#include <functional>
#include <string>
#include <vector>

#include "base/user_dialog.h"

#include "tables/verification/table_verifier.h"

namespace tarnwick {

struct TVerifyAllOptions {
    TVerifyOptions verify;
    /// The types before this one are only looked for; empty: all are verified.
    std::string firstType;
    /// Gets a line at each beginning and end of a type, on the calling thread.
    std::function<void(const std::string& line)> log = [](const std::string&) {};
};

struct TVerifyAllResult {
    std::size_t verified = 0;  ///< Types.
    std::size_t faulty = 0;    ///< Types with faults, or that could not be read.
    std::vector<std::string> missing;
    bool bStopped = false;
};

/// All types of 3 to 7 men, those without pawns before those with them. After each size the user is told
/// which are missing and asked whether to go on. A table that cannot be read is a faulty one; the others are
/// still verified.
TVerifyAllResult VerifyAllPositionTypes(const CTableFolders& folders, TUserDialog& dialog,
                                        const TVerifyAllOptions& options);

/// Whether the type has a file in a form that can be verified.
bool HasTableFile(const CTableFolders& folders, const std::string& type);

}  // namespace tarnwick
