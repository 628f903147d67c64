#pragma once
// Files and standard input as text, whatever hides behind the name that the user typed.

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {

/// Larger inputs are refused. It is far beyond any collection of problems, and ends a read from a
/// device that never ends before it takes all memory.
inline constexpr std::size_t MaxInputBytes = std::size_t{1} << 30;

enum class TInputForm {
    ProblemFile,  ///< The program's own .cp form.
    Epd           ///< One position a line.
};

struct TTextInput {
    std::string name;  ///< For messages, valid UTF-8: the file, or "standard input".
    std::string text;  ///< The bytes as they are.
    TInputForm form = TInputForm::ProblemFile;
};

/// Reads a file whole, "-" being standard input. The name's ending .cp, .cpx or .epd, in either
/// case, tells the form; without such an ending the content does. Pipes and devices are read to their end.
///
/// Throws ChessException with the name and what to do: no such file, a folder, no permission, more than
/// maxBytes, nothing in it.
TTextInput ReadTextInput(const std::string& path, std::size_t maxBytes = MaxInputBytes);

/// The form of a text without a name: EPD if its first line that says anything begins with eight rows of
/// a board.
TInputForm FormOfText(std::string_view text);

}  // namespace tarnwick
