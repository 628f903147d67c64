#pragma once
// The user at a terminal: messages and the progress line on standard error, answers from standard
// input. Results go to standard output and never through here.

#include <mutex>
#include <string>
#include <string_view>

#include "base/user_dialog.h"

namespace tarnwick {

class CConsoleDialog final : public TUserDialog {
  public:
    CConsoleDialog();
    ~CConsoleDialog() override;

    /// One line, in front of which the progress line goes away.
    void Tell(std::string_view text) override;
    /// Takes "y" or "yes" in any case for yes and everything else, the end of the input too, for no.
    /// Without a terminal at both ends it asks nothing and answers no.
    bool Ask(std::string_view text) override;
    /// Cut to the width of the terminal. Nothing at all where standard error is no terminal.
    void Progress(std::string_view text) override;

    bool ShowsProgress() const { return m_bShowsProgress; }

  private:
    /// Needs the lock.
    void ClearProgressLine();

    std::mutex m_lock;  ///< Guards the terminal and m_bLineShown.
    const bool m_bShowsProgress;
    bool m_bLineShown = false;
};

}  // namespace tarnwick
