#pragma once
// What the commands on tables of few men do, apart from the window: each returns what is to be shown in the
// end and may take long. Throws ChessException with the reason where it cannot be done.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "base/user_dialog.h"

#include "app/setup/position_faults.h"
#include "tables/register/global_register_set.h"
#include "tables/register/max_mates.h"
#include "tables/run_control.h"
#include "tables/verification/table_verifier.h"

namespace tarnwick {

/// What a generation or a verification works with.
struct TTableTask {
    const CTableFolders& folders;
    int threads = 1;
    const CRunControl& control;
    TUserDialog& dialog;
    std::filesystem::path logFolder{};  ///< Of the lists of faults.
};

/// Asks, tells how much will be made, and makes the table with all that it needs. Empty if the user does not
/// want it.
std::string GenerateTable(const TTableTask& task, const std::string& type);

std::string VerifyTable(const TTableTask& task, const std::string& type, TRepair repair,
                        bool bPartial);

/// firstType: see TVerifyAllOptions; log gets a line at each beginning and end of a type.
std::string VerifyAllTables(const TTableTask& task, const std::string& firstType,
                            const std::function<void(const std::string& line)>& log);

/// A position for the board and what is known of it; without fields the text says why there is none.
struct TTablePosition {
    std::optional<TSetupFields> fields;
    std::string text;
    int nMoves = 0;  ///< Its mate, where that is what was looked for; else 0.
};

/// The next position of the board's type (direction 1) or the one before (-1) that can arise.
TTablePosition NeighbourOfType(TGlobalRegisterSet& registers, const TChessboard& board,
                               int direction);
/// The position that an index, as text, has in the board's type.
TTablePosition PositionByIndex(TGlobalRegisterSet& registers, const TChessboard& board,
                               std::string_view text);

/// The longest mates of a type, one after the other. Keeps its register in use.
class CLongestMates {
  public:
    explicit CLongestMates(std::shared_ptr<TGlobalRegisterSet> pRegisters)
        : m_pRegisters(std::move(pRegisters)) {}
    ~CLongestMates();
    CLongestMates(const CLongestMates&) = delete;
    CLongestMates& operator=(const CLongestMates&) = delete;

    /// Of the board's type; begins anew if that is another one than before. The dialog is asked at the end
    /// of the list and shown that a search goes on.
    TTablePosition Step(const TChessboard& board, bool bForward, TUserDialog& dialog);

  private:
    std::shared_ptr<TGlobalRegisterSet> m_pRegisters;
    TGlobalRegister* m_pRegister = nullptr;
    std::optional<CMaxMateWalk> m_walk;
};

}  // namespace tarnwick
