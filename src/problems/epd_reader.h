#pragma once
// Reads collections of positions in EPD: one position to a line with operations behind it.
//
//     7k/8/5K2/8/8/8/8/R7 w - - bm #2; id "two keys";
//
// Wanted are "bm #N", the moves to mate, and "id", which becomes the description; all other operations
// are passed over. The side to move mates in N. Black to move is read with colours exchanged, since here
// White always mates. "bm #-N" says that the side to move is mated: no problem of ours, so the line is
// passed over with a note.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "problems/chess_problem.h"
#include "problems/file_text.h"

namespace tarnwick {

struct TEpdProblem {
    /// A mate in N. m_id counts the lines with a position from 1, those passed over included.
    std::unique_ptr<TChessProblem> pProblem;
    int nLine = 0;
    bool bColoursSwapped = false;
    std::vector<std::string> passedOver;  ///< Names of the operations whose content is lost.
};

struct TEpdNote {
    int nLine = 0;
    std::string text;  ///< For the user, UTF-8.
};

struct TEpdFile {
    std::vector<TEpdProblem> problems;
    std::vector<TEpdNote> notes;  ///< Lines passed over, castlings and en passant not considered.
};

/// Appends the file's problems to `file`. Blank lines are skipped.
///
/// Throws ChessException "Error opening file: " + the name, or TProblemFileError for the first line
/// that cannot be read; what stands in front of it is then in `file`.
void ReadEpdFile(const std::filesystem::path& path, TEpdFile& file);

/// The same for a text that was read already; fileName is for the error.
void ReadEpdText(std::string_view text, const std::string& fileName, TEpdFile& file);

}  // namespace tarnwick
