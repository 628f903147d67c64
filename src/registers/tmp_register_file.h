#pragma once

// The register of a long job as a file, ".tmpReg", to go on from another day.
//
// The file is a stream of records, all numbers little-endian, without a head of its own:
//   section    12 bytes: 32 bits all set, then the 64-bit key of a layer (0: the exact one)
//   position   68 bytes: First and Second (16 bits each), then the 64 figure codes
// A position with First and Second of 65535 cannot exist, which tells the two apart. The stream may be
// packed as a whole (lz4_block.h). Sections come again for each number of plies. Records with the greatest
// numbers of plies come first: they cost the most to find again, so what a size limit cuts off is the
// cheapest.
//
// One thread. The register's own locks are taken, so a search may go on beside; the file of a running
// search holds records of different moments, each of them true.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "registers/aggregated_register.h"
#include "registers/file_progress.h"

namespace tarnwick {

struct TTmpRegisterSaveOptions {
    std::uint64_t maxBytes = 0;  ///< Largest size of the stream before packing.
    bool bCompress = false;
    TFileProgress progress;  ///< Of bytes of the stream. May be empty.
};

struct TTmpRegisterSaved {
    bool bStopped = false;  ///< The progress callback stopped it: the old file is as it was.
    std::uint64_t records = 0;
    std::uint64_t streamBytes = 0;  ///< Before packing.
    std::uint64_t fileBytes = 0;
    bool bCompressed = false;
    /// The size limit was met among the records of this number of plies; those of fewer are missing.
    std::optional<std::uint16_t> stoppedAtPlies;
};

/// Saves the register of a problem of so many plies; records of more plies are left out.
///
/// The file is replaced in one step when all of it stands on the disk (atomic_file.h). A stream that may
/// reach 4 GiB is written plain whatever bCompress says, as the head of a packed file has no room for its
/// size.
/// Throws ChessException if it cannot be written, naming the operation, the file and the reason; the old
/// file is then as it was.
TTmpRegisterSaved SaveTmpRegister(const TAggregatedTemporaryChessboardRegister& source,
                                  const std::filesystem::path& path, std::uint16_t plies,
                                  const TTmpRegisterSaveOptions& options);

struct TTmpRegisterLoadOptions {
    /// Gets a copy of the stream of a packed file, "UncompressedTmpRegLoadData.tmpReg". It goes away after a
    /// load without damage and is left for a look at it otherwise. If it cannot be written, the load
    /// goes on without it.
    std::filesystem::path scratchFolder = ".";
    /// Every record read is noted in "TmpRegLoad.log" in logFolder. A log that fails stops logging only.
    bool bLogRecords = false;
    std::filesystem::path logFolder = ".";
    TFileProgress progress;  ///< Of bytes of the file. May be empty.
};

struct TTmpRegisterLoaded {
    /// Nothing was lost or refused, and nobody stopped it.
    [[nodiscard]] bool IsWhole() const {
        return !bStopped && lost == 0 && refused == 0 && message.empty();
    }

    bool bStopped = false;
    std::uint64_t records = 0;    ///< Given to the register.
    std::uint16_t mostPlies = 0;  ///< Greatest number of plies among them.
    /// Whole records that no search can have stored: unknown figure codes, not one king a side, more
    /// than 600 plies, or of too many layers. They were skipped.
    std::uint64_t refused = 0;
    /// Missing behind the fault that ended the reading, as far as is known.
    std::uint64_t lost = 0;
    /// Where in the stream (before packing) the first refused or lost record stands.
    std::optional<std::uint64_t> firstFaultOffset;
    /// The register was full at some time: it dropped records of few plies, perhaps of this file.
    bool bRegisterFull = false;
    /// For the user if something was lost or refused, else empty.
    std::string message;
};

/// Gives what the file holds to the register, which gets so many buckets first and keeps what it has if
/// it has that many already.
///
/// A damaged or truncated file is no error: what is whole is loaded, and the result tells the rest.
/// Throws ChessException if the file cannot be opened or memory is short; what was loaded until then
/// stays. Memory does not depend on the file.
TTmpRegisterLoaded LoadTmpRegister(TAggregatedTemporaryChessboardRegister& target,
                                   const std::filesystem::path& path, std::uint32_t bucketCount,
                                   const TTmpRegisterLoadOptions& options);

}  // namespace tarnwick
