#pragma once
// Reads a problem file of any kind into a list, as far as it can be read.

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/document/document.h"

namespace tarnwick {

struct TReadFile {
    std::unique_ptr<TProblemList> pList;
    TReadLosses losses;
    std::string text;              ///< The bytes that were read.
    std::filesystem::path source;  ///< Where they came from.
    bool bOutdated = false;        ///< The source is a twin, and its file was changed without it.
};

/// Called for each problem as it is read, on the thread that reads. May throw to give up.
using TOnProblemRead = std::function<void(const TChessProblem& problem)>;

/// Whether the name ends in ".epd".
bool IsEpdName(const std::filesystem::path& path);

/// Throws ChessException if the file cannot be opened; anything else that is wrong with it is told by
/// the losses. The lines of an .epd file that cannot be read are lost one by one.
TReadFile ReadAnyProblemFile(const std::filesystem::path& path,
                             const TOnProblemRead& onProblem = {});

/// What the user should be told about an incomplete reading; empty if nothing was lost. nRead counts
/// the problems that were read.
std::string TextOfLosses(const TReadLosses& losses, const std::filesystem::path& path,
                         std::size_t nRead);

}  // namespace tarnwick
