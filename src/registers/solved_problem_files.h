#pragma once

// The files of solved problems: what solving found out about a problem's main line, kept so that a problem
// solved once is known again when it is opened later.
//
// In the folder each problem has up to two files, named by the identifier of its root position:
//   .cspdb   answers: records of 76 bytes, the 64 figure codes and a TSubproblemRegisterInfo
//   .cpdb    summary: a block of 48 bytes, and moves of 4 bytes each if its byte 3 says so
// All numbers are little-endian. A file that cannot be opened counts as absent, for reading and for
// writing; the folder is not made here. Files are replaced in one step (atomic_file.h).
//
// One thread at a time.

#include <cstddef>
#include <filesystem>

#include "registers/chessboard_register.h"

namespace tarnwick {

class CSolvedProblemFiles final : public TRegisterFiles {
  public:
    /// The writing stops behind this record and then counts as failed: more answers than that come from
    /// something else than the main line of a problem.
    static constexpr std::size_t MostAnswers = 13797;

    explicit CSolvedProblemFiles(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    /// Records that cannot have been written here (no position, no move, too many plies) are skipped;
    /// a piece of a record ends the reading.
    void LoadAnswers(TChessboardRegister<bool>& target) override;
    /// A file whose moves are not whole leaves the block as read and no moves.
    bool LoadSummary(TChessboardRegister<bool>& target) override;
    /// The file before this one stays as .cspdb.BAK.
    bool SaveAnswers(const TChessboardRegister<bool>& source) override;
    /// Writes the summary. False if that failed.
    bool SaveSummary(const TChessboardRegister<bool>& source);
    /// The last SaveAnswers failed: an insert, which calls it, does not tell.
    bool HasLostAnswers() const { return m_bLostAnswers; }

  private:
    std::filesystem::path m_folder;
    bool m_bLostAnswers = false;
};

}  // namespace tarnwick
