#include "cli/progress_line.h"

#include <chrono>

#include "platform/clock.h"
#include "platform/stop_signals.h"

#include "chess/move_text.h"
#include "chess/trimmed_text.h"
#include "cli/text_style.h"

namespace tarnwick {
namespace {

constexpr std::chrono::milliseconds LookEvery{
    20};  ///< A user does not notice this delay of Ctrl-C.
constexpr std::int64_t DrawEveryMs = 250;

}  // namespace

std::string ProgressText(const TSolveProgress& progress) {
    std::string text = progress.label;
    if (!progress.move.empty()) {
        text += "  move " + std::to_string(progress.index + 1) + " of " +
                std::to_string(progress.count) + ": " + progress.move;
    }
    text += "  " + GroupedNumber(progress.nodes) + " nodes";
    const std::string speed = SpeedText(progress.nodes, progress.elapsedMs);
    text += (speed.empty() ? "" : "  " + speed) + "  " + DurationText(progress.elapsedMs);
    text += progress.pass.empty() ? "" : "  " + progress.pass;
    return text + (progress.line.empty() ? "" : "  " + progress.line);
}

CSolveWatcher::CSolveWatcher(TSolveTask& task, const TChessboard& board, CConsoleDialog& dialog,
                             std::string label)
    : m_task(task), m_board(board), m_dialog(dialog), m_startMs(NowMs()) {
    m_progress.label = std::move(label);
    FillCallbacks();
    m_thread = std::jthread([this](const std::stop_token& stop) { Watch(stop); });
}

void CSolveWatcher::FillCallbacks() {
    m_task.m_callbacks.onFirstMove = [this](TMove move, int index, int count, int /*pass*/) {
        const std::lock_guard guard(m_lock);
        m_progress.move = MoveToDisplayText(move, m_board);
        m_progress.index = index;
        m_progress.count = count;
    };
    m_task.m_callbacks.onPass = [this](const std::string& name, const std::string& heuristics) {
        const std::lock_guard guard(m_lock);
        m_progress.pass = "pass " + name + (heuristics.empty() ? "" : ": " + heuristics);
    };
    m_task.m_callbacks.onText = [this](const std::string& text) {
        const std::lock_guard guard(m_lock);
        m_progress.pass = Trimmed(text);
    };
}

CSolveWatcher::~CSolveWatcher() {
    m_thread.request_stop();
    m_thread.join();
    m_task.m_callbacks.onFirstMove = nullptr;
    m_task.m_callbacks.onPass = nullptr;
    m_task.m_callbacks.onText = nullptr;
    m_dialog.Progress("");
}

void CSolveWatcher::Watch(const std::stop_token& stop) {
    std::int64_t drawAtMs = m_startMs + DrawEveryMs;
    while (!stop.stop_requested()) {
        if (StopRequested()) {
            m_task.Stop();
        }
        if (m_dialog.ShowsProgress() && NowMs() >= drawAtMs) {
            drawAtMs = NowMs() + DrawEveryMs;
            ShowProgress();
        }
        std::unique_lock guard(m_lock);
        m_wake.wait_for(guard, stop, LookEvery, [] { return false; });
    }
}

void CSolveWatcher::ShowProgress() {
    TSolveProgress progress;
    {
        const std::lock_guard guard(m_lock);
        progress = m_progress;
    }
    progress.line = m_task.m_line.Text();
    m_task.m_line.Ask(0);
    progress.nodes = m_task.m_workNodes.load(std::memory_order_relaxed);
    progress.elapsedMs = static_cast<std::uint64_t>(NowMs() - m_startMs);
    m_dialog.Progress(ProgressText(progress));
}

}  // namespace tarnwick
