#pragma once

// The one door from the program's inside to its user.
//
// Code that must tell or ask something gets a TUserDialog and does not know whether a window, a
// terminal or a test stands behind it. Texts are UTF-8 in the user's language, without a line end.

#include <string_view>

namespace tarnwick {

/// Any thread may call any operation at any time: the implementation brings the call to its own
/// thread or takes its own lock. Callers hold no lock of theirs meanwhile, as a user may take minutes.
class TUserDialog {
  public:
    virtual ~TUserDialog() = default;

    /// Shows a message. May wait until the user has seen it.
    virtual void Tell(std::string_view text) = 0;

    /// Asks a question and waits for the answer: true is yes. Where nobody can answer (no terminal,
    /// input at its end) the answer is no.
    virtual bool Ask(std::string_view text) = 0;

    /// Shows how far a long operation is. Replaces the progress text before it and never waits; an
    /// empty text takes it away.
    virtual void Progress(std::string_view text) = 0;

  protected:
    TUserDialog() = default;
    TUserDialog(const TUserDialog&) = default;
    TUserDialog& operator=(const TUserDialog&) = default;
};

}  // namespace tarnwick
