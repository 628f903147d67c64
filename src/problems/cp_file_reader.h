#pragma once
// Reads a problem file (.cp) into the list. docs/formats/cp.md describes the format.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "problems/cp_problem_reader.h"
#include "problems/file_text.h"
#include "problems/problem_list.h"

namespace tarnwick {

struct TCpReadOptions {
    THeuristicBitOfName heuristicBitOfName = nullptr;
    /// Called when the file does not exist or is a folder, before it is tried: may make it.
    std::function<void(const std::filesystem::path&)> offerToCreate = {};
    /// Receives a line for each problem that takes the number of one before it.
    std::function<void(const std::string&)> warning = {};
    /// Receives each problem before it goes to the list, and where it begins: the place in the text
    /// behind its number.
    std::function<void(const TChessProblem& problem, std::size_t position)> onProblem = {};
    /// Receives a line for each problem read.
    std::function<void(const std::string&)> debugLine = {};
};

/// Adds the problems of the file to the list. A problem whose number the list has replaces the old one.
///
/// Throws ChessException "Error opening file: " + the name, or TProblemFileError for the first thing
/// that cannot be read; the problems in front of it are then in the list.
void ReadProblemFile(const std::filesystem::path& path, TProblemList& list,
                     const TCpReadOptions& options = {});

/// The same for a text that was read already; fileName is for the error.
void ReadProblemText(std::string_view text, const std::string& fileName, TProblemList& list,
                     const TCpReadOptions& options = {});

}  // namespace tarnwick
