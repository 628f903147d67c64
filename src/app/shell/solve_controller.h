#pragma once
// CSolveController: the solve behind the window, from F5 to the key on the board.
//
// One problem is solved at a time. The user may browse meanwhile; the session has its own copy, and what
// it finds is played only where its problem still stands on the board. The session's threads only post
// messages; all work is done here, on the window's thread.

#include <QObject>
#include <QTimer>
#include <memory>

#include "app/shell/command_dispatcher.h"
#include "app/shell/workbench.h"
#include "app/solving/result_view.h"
#include "app/solving/solve_session.h"
#include "app/solving/solving_indicator.h"

namespace tarnwick {

class CSolveController : public QObject {
    Q_OBJECT

  public:
    explicit CSolveController(CWorkbench& workbench);
    void AddCommands(CCommandDispatcher& dispatcher);

    bool IsRunning() const { return m_session.IsRunning(); }
    /// The file is going away: what the solve still finds is told to nobody.
    void StopAndForget();
    /// Its problem is the one on the board, in the position that it solves.
    bool IsOfShownProblem() const;
    int SolvedProblem() const { return m_nProblem; }
    TProgress Progress() { return m_session.Progress(); }
    /// What the last solve of the shown problem came to; empty if there was none.
    const std::string& LastAnswer() const;
    /// The register of the shown problem, null if there is none.
    const TAggregatedTemporaryChessboardRegister* Register() const;
    /// For a command that needs the memory; the one who frees it may take long. Not while a solve runs.
    std::shared_ptr<CKeptRegister> GiveUpRegister();
    void Peek(std::optional<std::uint16_t> thread) { m_session.Peek(thread); }
    const CSolvingIndicator& Indicator() const { return m_indicator; }
    /// The user has the window before him.
    void ResultSeen();
    void ChangeThreads(int nDelta);

  signals:
    void runningChanged();
    void indicatorChanged();
    /// Fields of the key to mark on the board; 0 takes the marks away.
    void flashWanted(tarnwick::TFieldSet fields);

  private:
    TSolveEvents Events();
    void Start(bool bAllKeys);
    void StopOneThread();
    /// Copies what makeText gives of the position that the peeked thread has in hand.
    void CopyPositionInHand(std::string (*makeText)(const TPositionInHand& position));
    void ShowInNewInstance();
    void SetPriority(TPriorityClass priority);
    void ToggleProcessor(int nProcessor);
    void KeyFound(TMove key);
    void AskAboutThreads(int threads);
    void Ended();
    void ShowResult(const TSolveOutcome& outcome);
    void FlashNext();
    void PlayKey();

    CWorkbench& m_workbench;
    CSolvingIndicator m_indicator;
    QTimer m_frames;
    TPriorityClass m_priority = TPriorityClass::BelowNormal;

    int m_nProblem = -1;    ///< Number of the problem that is or was solved.
    TChessboard m_board{};  ///< Its position; the pointers are null.
    int m_nPlyAtStart = 0;  ///< Of the line on the board.
    bool m_bForget = false;
    std::string m_answer;

    QTimer m_flashTimer;
    std::vector<TFlashStep> m_flash;
    std::size_t m_nFlashStep = 0;
    std::optional<TMove> m_key;
    CSolveSession m_session;  ///< The last member: its end comes before that of all the others.
};

}  // namespace tarnwick
