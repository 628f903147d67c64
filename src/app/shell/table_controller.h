#pragma once
// CTableController: the commands on tables of few men: what they say of a position, their longest mates,
// their generation and their check.
//
// Everything that may load or walk a table runs behind the window, one run at a time; the user may browse
// and edit meanwhile, but not solve. What a run finds for the board is put there only if the board is
// still the one that it was asked for.

#include <QObject>
#include <memory>

#include "app/shell/command_dispatcher.h"
#include "app/shell/solve_controller.h"
#include "app/shell/workbench.h"
#include "app/tables/table_run.h"
#include "app/tables/table_tasks.h"

namespace tarnwick {

class CTableController : public QObject {
    Q_OBJECT

  public:
    /// Gives the workbench its tables.
    CTableController(CWorkbench& workbench, CSolveController& solving);
    /// Behind the solve's controller: stop, pause and resume are for both.
    void AddCommands(CCommandDispatcher& dispatcher);

    bool IsRunning() const { return m_run.IsRunning(); }
    /// How far a long run is; empty for a short one.
    std::string ProgressText() const { return m_run.ProgressText(); }
    /// The window is going away: what the run still finds is told to nobody.
    void StopAndForget();

  signals:
    void runningChanged();
    /// A position of a table is to become that of the problem on show, and the status to tell of it.
    void positionFound(const tarnwick::TTablePosition& position);

  private:
    using TMakeText = std::function<std::string(const TTableTask& task)>;

    TTableRunEvents Events();
    TChessboard BoardOnShow() const;
    void Start(CTableRun::TWork work);
    void StartForPosition(std::function<TTablePosition()> find);
    void StartLongWork(TMakeText makeText);
    void ShowPosition(const TTablePosition& position);
    void Ended();
    void AskQuestion();

    void OpenTables();
    bool MayUseOtherFolder();
    void ShowInformation();
    void StepToNeighbour(int direction);
    void PasteIndex();
    void StepToLongestMate(bool bForward);
    void Generate();
    void Verify(bool bPartial);
    void VerifyAll(bool bFromTypeOfBoard);

    CWorkbench& m_workbench;
    CSolveController& m_solving;
    bool m_bForget = false;
    int m_nProblem = -1;    ///< Number of the problem for whose board the run was started.
    TChessboard m_board{};  ///< That board; the pointers are null.
    std::unique_ptr<CLongestMates> m_pLongest;
    CTableRun m_run;  ///< The last member: its end comes before that of all the others.
};

}  // namespace tarnwick
