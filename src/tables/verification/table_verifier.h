#pragma once
// CTableVerifier: recomputes each value of a table from its successors and reports every difference.
//
// Faults go into "PrecalcFailures<type>.txt", those of a second pass into "..._pass2.txt": a line
// "index,FEN,stored,expected" each, values in plies. What is provably better can be repaired: a mate where
// none was stored, or a shorter one. A stored mate that is none stays and is reported.

#include <atomic>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "base/user_dialog.h"

#include "tables/table_files.h"
#include "tables/verification/expected_plies.h"

namespace tarnwick {

enum class TRepair : std::uint8_t {
    No,
    Yes,
    Ask
};

struct TVerifyOptions {
    bool bPartial = false;  ///< The table goes up to some length only; what is longer is no fault.
    TRepair repair = TRepair::No;
    int threads = 1;
    std::filesystem::path logFolder;
    const std::atomic<bool>* pStop = nullptr;  ///< Not null.
};

struct TVerifyCounts {
    std::uint64_t indices = 0;  ///< Looked at so far.
    std::uint64_t all = 0;      ///< Of the table.
    std::uint64_t faults = 0;
    std::uint64_t fixable = 0;
    std::uint64_t fixed = 0;
    bool bStopped = false;
    unsigned longestOfPartial = 0;  ///< The mate that a partial table has got to.
};

/// "Complete (0 fault(s) found, 0 fixable, 0 fixed)" or "Cancelled".
std::string VerifyEndText(const TVerifyCounts& counts);
/// "12.5% (0 fault(s) found, 0 fixable, 0 fixed)".
std::string VerifyProgressText(const TVerifyCounts& counts);

class CTableVerifier {
  public:
    /// Folders and dialog must outlive the verifier. The dialog is asked and shown the progress.
    CTableVerifier(const CTableFolders& folders, TUserDialog& dialog, TVerifyOptions options);

    /// Throws ChessException where the table or one that it needs is missing or damaged, or a log
    /// cannot be written.
    TVerifyCounts Verify(const std::string& type);

  private:
    struct TWorker;

    void LookAt(std::uint64_t begin, std::uint64_t end);
    void LookAtIndex(std::uint64_t index, TWorker& worker);
    void Report(std::uint64_t index, const TChessboard& board, unsigned stored, unsigned expected);
    bool MayRepair(unsigned stored);
    const TFoundTable* TableOf(const TChessboard& board);
    TFoundTable Open(const std::string& type, bool bCompleteOnly);
    void FindLimit();
    void ChooseLog(const std::string& type);
    void SaveRepaired();
    void ShowProgress();
    TVerifyCounts Counts() const;

    const CTableFolders& m_folders;
    TUserDialog& m_dialog;
    TVerifyOptions m_options;

    TFoundTable m_own;
    std::map<std::uint64_t, TFoundTable> m_tables;  ///< By key; without values: there is none.
    std::mutex m_tablesLock;
    unsigned m_limitPlies = 0;                           ///< Of a partial table; 0: none.
    std::optional<std::set<std::uint64_t>> m_firstPass;  ///< Indices of its log, in a second pass.

    std::filesystem::path m_log;
    mutable std::mutex m_reportLock;
    std::atomic<std::uint64_t> m_nIndices{0};
    std::uint64_t m_nFaults = 0;
    std::uint64_t m_nFixable = 0;
    std::uint64_t m_nFixed = 0;
};

}  // namespace tarnwick
