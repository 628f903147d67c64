#pragma once
// The commands on the open file and another one: append its problems, remove its problems, look for its
// positions. They find equal problems by the men alone. Window thread.

#include <filesystem>
#include <string_view>

#include "app/document/problem_files.h"

namespace tarnwick {

/// Adds the problems of another file whose positions are not here yet, under the next free numbers, and
/// tells how many and which differ by their stipulation only. Then the user may save or reject them; a
/// rejection takes exactly them out again. True: they are in the list.
bool AppendProblems(CDocument& document, const std::filesystem::path& path, const TFileHost& host);

/// Removes the problems whose positions stand in another file, but never the one on show. Asks as
/// AppendProblems does. True: they are out of the list.
bool RemoveProblems(CDocument& document, const std::filesystem::path& path, const TFileHost& host);

/// Offers the tags of another file's problems in this session too. False if it cannot be read.
bool AppendKnownTags(CDocument& document, const std::filesystem::path& path, const TFileHost& host);

/// Looks through any text for FEN codes and tells which positions the open file lacks; their list goes
/// to the file PATH.FENNotFound.txt. False if the user did not want it or a file was in the way.
bool CheckFenCodes(const CDocument& document, const std::filesystem::path& path,
                   const TFileHost& host);

}  // namespace tarnwick
