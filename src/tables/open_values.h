#pragma once
// A complete table for those who read all over it: generation and checks.
//
// The search asks through the register, with its quota and its counts of users; here a table is taken once,
// into memory if the budget allows, and given back at the end.

#include <cstdint>
#include <memory>
#include <string>

#include "tables/register/table_store.h"
#include "tables/table_files.h"
#include "tables/table_index.h"

namespace tarnwick {

struct TOpenedValues {
    std::shared_ptr<CTableStore> pValues;  ///< Null where the type has no file.
    std::uint64_t bytesInMemory = 0;
};

/// How the type is called in the folders of its files.
TTableName TableNameOf(const std::string& type);

/// Opens the unpacked table, else the ".lz4", else the ".packed.lzw". What needs more than the budget of bytes
/// stays on the disk; a ".lz4", which cannot, is expanded all the same.
///
/// Throws ChessException for a file that is damaged, laid out in another way than CTableIndex does it, or, if
/// bCompleteOnly, that has positions without a value.
TOpenedValues OpenValues(const CTableFolders& folders, const CTableIndex& index,
                         std::uint64_t budget, bool bCompleteOnly);

}  // namespace tarnwick
