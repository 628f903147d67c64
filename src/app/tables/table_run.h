#pragma once
// CTableRun: work over tables of few men behind the window, from a lookup that loads a table to a
// generation that takes hours.
//
// The work runs on a thread of its own. It is the dialog of that work: what the work tells and asks reaches
// the window as events, and a question waits for its answer without holding the window up. What the
// work leaves to be done on the board it returns, and the window does it when it has heard of the end.
//
// Only the window's thread may call the run, but for the dialog's operations.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "base/user_dialog.h"

#include "tables/run_control.h"

namespace tarnwick {

/// Called on threads of the run, also those of a solve that loads a table; each must return soon and not wait
/// for the window's thread. None is called once the run is being destroyed.
struct TTableRunEvents {
    std::function<void()> onQuestion;
    std::function<void(const std::string& text)> onTell;
    std::function<void()> onEnd;
};

/// To be done on the window's thread; may be empty.
using TTableRunFinish = std::function<void()>;

struct TTableRunEnd {
    TTableRunFinish finish;
    std::string error;  ///< Why the work broke off; empty if it did not.
};

struct TTableRunQuestion {
    std::uint64_t number = 0;  ///< For the answer, which may come when another one waits.
    std::string text;
};

class CTableRun final : public TUserDialog {
  public:
    using TWork = std::function<TTableRunFinish(const CRunControl& control)>;

    explicit CTableRun(TTableRunEvents events);
    /// Stops what runs and waits for its end.
    ~CTableRun();
    CTableRun(const CTableRun&) = delete;
    CTableRun& operator=(const CTableRun&) = delete;

    /// The run before must have ended; an end that nobody has taken is dropped. Throws std::system_error when
    /// the machine has no thread left.
    void Start(TWork work);
    /// All of them do nothing when nothing runs. A stop answers an open question with no.
    void Stop() noexcept;
    void Pause() noexcept;
    void Resume() noexcept;

    bool IsRunning() const;
    bool IsPaused() const;
    /// Once, after the end.
    std::optional<TTableRunEnd> TakeEnd();
    /// The last progress of the work; empty between two works.
    std::string ProgressText() const;

    std::optional<TTableRunQuestion> Question() const;
    void Answer(std::uint64_t number, bool bYes);

    /// For the loading of tables. Loads that a search wants must not hold it up: what they ask has the answer
    /// no, and only those of the work itself reach the user.
    TUserDialog& LoadDialog() { return m_loadDialog; }

    void Tell(std::string_view text) override;
    bool Ask(std::string_view text) override;
    void Progress(std::string_view text) override;

  private:
    class CLoadDialog final : public TUserDialog {
      public:
        explicit CLoadDialog(CTableRun& run) : m_run(run) {}
        void Tell(std::string_view text) override { m_run.Tell(text); }
        bool Ask(std::string_view text) override;
        void Progress(std::string_view) override {}

      private:
        CTableRun& m_run;
    };

    void Run(const TWork& work);

    const TTableRunEvents m_events;
    CLoadDialog m_loadDialog{*this};
    std::unique_ptr<CRunControl> m_pControl;  ///< Of the last work; replaced while nothing runs.

    mutable std::mutex m_lock;  ///< Guards all that follows.
    std::condition_variable m_answered;
    bool m_bRunning = false;
    bool m_bSilent = false;  ///< The run is being destroyed.
    std::optional<TTableRunEnd> m_end;
    std::string m_progress;
    std::uint64_t m_nQuestions = 0;
    std::optional<TTableRunQuestion> m_question;
    std::optional<bool> m_answer;

    std::atomic<std::thread::id> m_workerId;
    std::thread m_worker;
};

}  // namespace tarnwick
