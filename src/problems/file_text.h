#pragma once
// What the readers of problem files share: the whole file as one text, and errors that name the line.

#include <filesystem>
#include <string>

#include "base/chess_exception.h"

namespace tarnwick {

/// A text of a file was refused. what() is the message alone.
class TProblemFileError : public ChessException {
  public:
    TProblemFileError(std::string file, int nLine, const std::string& userText);
    ~TProblemFileError() override;

    /// As it was given to the reader; UTF-8.
    const std::string& File() const { return m_file; }
    /// From 1: where the word stands that could not be read.
    int Line() const { return m_nLine; }

  private:
    std::string m_file;
    int m_nLine;
};

/// All bytes of a file, or of a pipe until it ends. Throws ChessException "Error opening file: " + the
/// name if it cannot be opened or read, or is a folder.
std::string ReadFileText(const std::filesystem::path& path);

/// The name as it may stand in a message.
std::string FileNameForMessage(const std::filesystem::path& path);

}  // namespace tarnwick
