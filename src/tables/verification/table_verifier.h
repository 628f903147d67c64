#pragma once
// CTableVerifier: recomputes each value of a table from its successors and reports every difference.
//
// Faults go into "PrecalcFailures<type>.txt", those of a second pass into "..._pass2.txt": a line
// "index,FEN,stored,expected" each, values in plies. What is provably better can be repaired: a mate where
// none was stored, or a shorter one. A stored mate that is none stays and is reported.
//
// Every fault is judged by the rules of the board (expected_plies.h). To them go all positions that a
// screen with rules of its own marks (table_screen.h), and beside those one position in 64, spread over
// the table, which the screen has no say in: a fault that its rules share with generation's shows there.
// A repair changes what other positions must be worth; those that the screen had found right are not looked at
// again, the second pass is for them. Without memory for the screen everything goes to the board.

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "base/user_dialog.h"

#include "tables/run_control.h"
#include "tables/table_files.h"
#include "tables/verification/expected_plies.h"
#include "tables/verification/table_screen.h"

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
    bool bBoardRules = false;  ///< Every position by the rules of the board, without the screen.
    std::filesystem::path logFolder;
    const CRunControl* pControl = nullptr;  ///< Not null.
};

struct TVerifyCounts {
    std::uint64_t indices = 0;  ///< Looked at so far.
    std::uint64_t all = 0;      ///< Of the table.
    double share = 0;  ///< Of the whole work, 0 to 1; what comes before the first index counts too.
    std::uint64_t faults = 0;
    std::uint64_t fixable = 0;
    std::uint64_t fixed = 0;
    std::uint64_t byBoard = 0;  ///< Positions that the rules of the board have judged.
    /// Positions that the screen has marked and the board found right. Beside faults and repairs that may be; else
    /// one of the two sets of rules is wrong, and the dialog is told.
    std::uint64_t disputed = 0;
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

    bool Screen(const std::string& type);
    void LookAt(std::uint64_t begin, std::uint64_t end);
    void LookAtIndex(std::uint64_t index, TScreenMark mark, TWorker& worker);
    void Report(std::uint64_t index, const TChessboard& board, unsigned stored, unsigned expected);
    bool MayRepair(unsigned stored);
    const TFoundTable* TableOf(const TChessboard& board);
    template <typename TName>
    const TFoundTable* TableOfKey(std::uint64_t key, const TName& typeName);
    TFoundTable Open(const std::string& type, std::uint64_t budget, bool bCompleteOnly);
    void FindLimit();
    void ChooseLog(const std::string& type);
    void SaveRepaired();
    void ShowProgress();
    void ShowProgressNowAndThen();
    TVerifyCounts Counts() const;

    const CTableFolders& m_folders;
    TUserDialog& m_dialog;
    TVerifyOptions m_options;

    TFoundTable m_own;
    std::map<std::uint64_t, TFoundTable> m_tables;  ///< By key; without values: there is none.
    std::uint64_t m_budget = 0;                     ///< Bytes left for tables of other types.
    std::mutex m_tablesLock;
    std::unique_ptr<CTypeGraph> m_pGraph;
    std::unique_ptr<CTableScreen> m_pScreen;             ///< Null: everything goes to the board.
    unsigned m_limitPlies = 0;                           ///< Of a partial table; 0: none.
    std::optional<std::set<std::uint64_t>> m_firstPass;  ///< Indices of its log, in a second pass.

    double m_preparedShare = 0;                     ///< Of the screen.
    std::chrono::steady_clock::time_point m_shown;  ///< When the progress was.

    std::filesystem::path m_log;
    mutable std::mutex m_reportLock;
    std::atomic<std::uint64_t> m_nIndices{0};
    std::atomic<std::uint64_t> m_nByBoard{0};
    std::atomic<std::uint64_t> m_nDisputed{0};
    std::uint64_t m_nFaults = 0;
    std::uint64_t m_nFixable = 0;
    std::uint64_t m_nFixed = 0;
};

}  // namespace tarnwick
