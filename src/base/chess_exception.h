#pragma once

// The one exception of the program.
//
// It means: a position, a text, a file or a setting was refused, and what() tells the user why, as
// UTF-8 in the user's language. Whoever catches it shows the text and goes on; nobody parses it.
// Programming errors are asserts, and the search reports by codes, so neither comes here.

#include <stdexcept>
#include <string>

namespace tarnwick {

class ChessException : public std::runtime_error {
  public:
    /// userText is complete and translated: build it with UserText() at the throw.
    explicit ChessException(const std::string& userText);
    ChessException(const ChessException&) noexcept = default;
    ChessException& operator=(const ChessException&) noexcept = default;
    ~ChessException() override;
};

}  // namespace tarnwick
