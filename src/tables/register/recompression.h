#pragma once
// Offers packed copies of a table that is used from its unpacked file on disk, where it takes most room.

#include <filesystem>

#include "base/user_dialog.h"

#include "tables/register/global_register.h"
#include "tables/register/table_options.h"

namespace tarnwick {

/// Asks and packs as far as options.askForGlobalRegisterRecompression goes. `path` is the file from which the
/// register was loaded. What goes wrong is told, and stops nothing.
void OfferRecompression(const TGlobalRegister& subregister, const std::filesystem::path& path,
                        const TTableOptions& options, TUserDialog& dialog);

}  // namespace tarnwick
