#pragma once
// Writes problems in the form of a problem file. What the reader accepts but the file has no form for
// is lost (docs/formats/cp.md lists it); everything else is read again as the same problem.

#include <filesystem>
#include <string>

#include "platform/atomic_file.h"

#include "problems/problem_list.h"

namespace tarnwick {

/// One problem with its line end, UTF-8, without the mark of the encoding.
std::string ProblemToText(const TChessProblem& problem);

/// What a whole file begins with: the mark of the encoding.
inline constexpr const char* BeginningOfProblemFile = "UTF-8\n\n";
/// A problem's part of a whole file.
std::string EntryOfProblemFile(const TChessProblem& problem);

/// A whole file: its beginning and the entries of all problems by rising number.
std::string ProblemListToText(const TProblemList& list);

/// Replaces the file in one step: whoever looks finds the old file or the new one, whole. Throws
/// ChessException "Error opening file: " + the name, and the reason on a second line; the file is then
/// as it was.
void WriteProblemFile(const std::filesystem::path& path, const TProblemList& list,
                      TBackup backup = TBackup::None);

}  // namespace tarnwick
