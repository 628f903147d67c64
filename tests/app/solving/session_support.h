#pragma once

// Problems from their FEN, and sessions that a test can wait for.

#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "app/solving/solve_session.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"

namespace tarnwick {

/// White makes 60 moves before anything can happen: a search without end.
inline constexpr const char* EndlessFen = "7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5";

class CProblemOfFen {
  public:
    CProblemOfFen(const std::string& fen, int moves, const std::string& words = "") {
        ReadProblemText(
            "7 #" + std::to_string(moves) + " " + words + "\n{\n\tFEN: " + fen + "\n}\n", "test",
            m_list, {.heuristicBitOfName = &HeuristicBitOfName});
        if (m_list.Find(7) == nullptr) {
            throw std::invalid_argument(fen);
        }
    }
    TChessProblem& Problem() { return *m_list.Find(7); }

  private:
    TProblemList m_list;
};

/// Looks until the condition holds, which need not last. False after half a minute.
template <typename TCondition>
bool WaitUntil(TCondition condition) {
    for (int i = 0; i < 30000; ++i) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

inline TSolveWish AllKeys() {
    TSolveWish wish;
    wish.bAllKeys = true;
    return wish;
}

/// Without questions; the memory of a session is small, as several run at once.
inline TSolveSettings TestSettings(std::uint16_t threads = 1) {
    TSolveSettings settings;
    settings.threads = threads;
    settings.bQuickMode = false;
    settings.bAskAboutThreads = false;
    settings.memoryPercent = 1;
    return settings;
}

/// A session with its end in view.
class CWatchedSession {
  public:
    CWatchedSession()
        : m_session({.onSolution = [this](TMove) { ++m_solutions; },
                     .onThreadAdvice = [this](int threads) { m_advised = threads; },
                     .onError = {},
                     .onEnd = [this] { ++m_ends; }}) {}

    CSolveSession* operator->() { return &m_session; }
    int Solutions() const { return m_solutions; }
    int Ends() const { return m_ends; }
    int Advised() const { return m_advised; }

    /// The outcome of the solve that runs; an empty one if it does not come.
    TSolveOutcome Outcome() {
        WaitUntil([this] { return !m_session.IsRunning(); });
        return m_session.TakeOutcome().value_or(TSolveOutcome{});
    }
    bool WaitForNodes() {
        return WaitUntil([this] { return m_session.Progress().nodes > 0; });
    }

  private:
    std::atomic<int> m_solutions{0};
    std::atomic<int> m_ends{0};
    std::atomic<int> m_advised{0};
    CSolveSession m_session;  ///< Last: its end comes before that of what it tells.
};

}  // namespace tarnwick
