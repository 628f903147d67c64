#pragma once

// TmpRegLoad.log: every record that a load has read, as a line with commas.

#include <cstdint>
#include <filesystem>
#include <fstream>

#include "registers/register_records.h"

namespace tarnwick {

/// Appends to the log in a folder. Each line reaches the system at once, and the file is closed and opened
/// again from time to time, so that it can be read and taken away while a long load runs. A log that
/// cannot be written is silently not written. One thread.
class CTmpRegisterLog {
  public:
    /// A log that is new gets a line of column names.
    explicit CTmpRegisterLog(const std::filesystem::path& folder);

    /// key: of the record's section. The position need not be one.
    void Write(TRecordValues values, std::int64_t key, const TChessboardRegisterItem& position);

  private:
    void Open();

    std::filesystem::path m_path;
    std::ofstream m_file;
    unsigned m_lines = 0;
};

}  // namespace tarnwick
