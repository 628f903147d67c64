#pragma once
// What the window's controllers ask of the user beyond telling and yes or no. Tests bring their own.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "base/language.h"
#include "base/user_dialog.h"

#include "app/document/problem_files.h"

namespace tarnwick {

enum class TFileUse {
    Open,
    OpenText,  ///< Any kind of file.
    Save,      ///< The command asks by itself before it replaces a file.
    SavePicture,
    SavePgn,
};

/// What it means if the user closes a question without an answer.
enum class TEscape {
    IsNo,
    IsYes
};

class CWindowDialog : public TUserDialog {
  public:
    /// Shows a message and returns at once: for what a solve has to say, which must not be held up.
    virtual void TellLater(const std::string& title, const std::string& text) = 0;
    /// Asks and returns at once; the answer comes on the window's thread.
    virtual void AskLater(const std::string& text, std::function<void(bool bYes)> answer,
                          TEscape escape = TEscape::IsNo) = 0;
    /// Yes or no; nothing if the user cancels.
    virtual std::optional<bool> AskOrCancel(std::string_view text) = 0;
    /// Nothing if the user does not want any file.
    virtual std::optional<std::filesystem::path> ChooseFile(const TUserText& title, TFileUse use,
                                                            const std::filesystem::path& start) = 0;
    /// Whether a question waits for its answer.
    virtual bool IsAsking() const = 0;
};

}  // namespace tarnwick
