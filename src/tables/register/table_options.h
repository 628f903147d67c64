#pragma once
// What the user decides about tables of precalculated data.

#include <cstdint>
#include <filesystem>

namespace tarnwick {

struct TTableOptions {
    /// Percent of the machine's memory that loaded tables may take; 0: no tables in the search.
    int maxMemRatioForPrecalculatedData = 20;
    /// 0, 1: packed tables are expanded in memory. 2: they are read where they are. Above: a table of which
    /// there is a ".packed.lz4" is not used, as nothing reads that form.
    int useDataPackedForRandomAccess = 2;
    /// Prefer tables on disk to tables in memory: slower, and memory stays free.
    bool bGlobalRegisterForceDiskAccess = true;
    /// How far to offer packed copies when a table is opened, 0 not at all; at most
    /// useDataPackedForRandomAccess.
    int askForGlobalRegisterRecompression = 0;
    /// Offer to keep a table that was expanded in memory as an unpacked file.
    bool bAskIfSaveAfterDecompressAllToMem = false;
    /// Write a plain copy of each ".lz4" table that is read, for inspection.
    bool bKeepExpandedCopies = false;
    std::filesystem::path programFolder =
        ".";                            ///< Has Precalc, CustomPrecalc, MaxMateIndexesCache.
    std::filesystem::path precalcPath;  ///< Second place to look for tables; may be empty.
};

}  // namespace tarnwick
