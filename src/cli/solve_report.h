#pragma once
// What `solve` says about each problem and about all of them together.

#include <cstdint>
#include <string>
#include <vector>

#include "cli/answer_check.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "cli/problem_input.h"
#include "engine/jobs/start_solving.h"

namespace tarnwick {

/// A problem with what became of it. Points to the problem, which must outlive it.
struct TSolvedProblem {
    const TInputProblem* pInput = nullptr;
    bool bAll = false;    ///< All keys were asked for.
    TSolveResult result;  ///< Its message holds a text also for a stop by the user or a limit.
    TAnswerCheck answers;
    bool bSaved = true;  ///< What was to be kept in files is there.
};

/// "mate in 4", "self-mate in 3"; empty for a position that asks for nothing.
std::string StipulationText(const TChessProblem& problem);

/// "Problem 7"; "Your position" for one from the command line.
std::string ProblemName(const TInputProblem& problem);

/// "Problem 7: mate in 4", the description if there is one, and the picture; all with line ends.
std::string ProblemHeadText(const TInputProblem& problem, const CTextStyle& style,
                            TBoardStyle boardStyle);

/// Keys, time, nodes and the verdict on the file's answer, a line each.
std::string OutcomeText(const TSolvedProblem& solved, const CTextStyle& style);

/// The same and the problem's number in one line without its end.
std::string BriefText(const TSolvedProblem& solved, const CTextStyle& style);

/// The object of `--json`: id, fen, mate, status, keys, all, exact, nodes, ms, message, safe_mode,
/// register (positions in it at the end), passes, pass_found (name of the pass of the first key, or "scout"). A pass
/// has name, heuristics, nodes, ms, keys (how many it found), result ("mate", "none" or "stopped") and
/// complete. Programs read it: members may be added behind these and never change.
std::string OutcomeJson(const TSolvedProblem& solved);

class CSolveSummary {
  public:
    void Add(const TSolvedProblem& solved);

    std::uint64_t Count() const;
    /// Two lines: what became of the problems, and how many agree with the answers of their file.
    std::string Text(const CTextStyle& style, std::uint64_t elapsedMs) const;
    TExitStatus Status() const { return m_status; }

  private:
    std::uint64_t m_mates = 0;
    std::uint64_t m_noMates = 0;
    std::uint64_t m_stopped = 0;
    std::uint64_t m_open = 0;
    std::uint64_t m_refused = 0;
    std::uint64_t m_agree = 0;
    std::vector<int> m_differ;  ///< Numbers of the problems.
    TExitStatus m_status = TExitStatus::Success;
};

}  // namespace tarnwick
