#pragma once
// The window's icon, and the tray's, as a sign of what the program does: at rest, solving with a moving
// picture, or done with a result that nobody has looked at yet. The window's thread alone uses it.

namespace tarnwick {

enum class TIndicatorState {
    Idle,
    Running,
    Finished
};

/// Numbers of the program's icons.
inline constexpr int IdleIcon = 300;
inline constexpr int SmallIdleIcon = 301;
inline constexpr int RunningIcon = 302;  ///< Where pictures do not move.
inline constexpr int FinishedIcon = 303;
inline constexpr int FirstRunningFrame = 311;
inline constexpr int RunningFrames = 8;
/// Milliseconds between two frames.
inline constexpr int FrameMs = 100;

class CSolvingIndicator {
  public:
    void SolveStarted() {
        if (m_running++ == 0) {
            m_frame = 0;
            m_bResult = false;
        }
    }
    /// bResult: it came to an answer, and was not stopped before.
    void SolveEnded(bool bResult) {
        if (m_running > 0) {
            --m_running;
            m_bResult = m_bResult || bResult;
        }
    }
    /// The user looks at the window: a result is news no longer. Nothing while something runs.
    void Seen() { m_bResult = m_bResult && m_running > 0; }
    /// The timer, which is to run exactly while NeedsTimer.
    void Tick() { m_frame = (m_frame + 1) % RunningFrames; }

    bool NeedsTimer() const { return m_running > 0; }
    int RunningSolves() const { return m_running; }
    TIndicatorState State() const {
        if (m_running > 0) {
            return TIndicatorState::Running;
        }
        return m_bResult ? TIndicatorState::Finished : TIndicatorState::Idle;
    }
    int Icon() const {
        switch (State()) {
            case TIndicatorState::Running:
                return FirstRunningFrame + m_frame;
            case TIndicatorState::Finished:
                return FinishedIcon;
            default:
                return IdleIcon;
        }
    }

  private:
    int m_running = 0;
    int m_frame = 0;
    bool m_bResult = false;
};

}  // namespace tarnwick
