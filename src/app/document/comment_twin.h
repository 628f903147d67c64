#pragma once
// The twin of a problem file: the same problems with the comments of their variants, for programs that
// know comments, while the .cp file itself stays readable for those that do not.
//
// A save writes the twin first. Whoever does not know of it writes the .cp file alone: then the twin
// shows old problems, and the user has to choose.

#include <filesystem>
#include <string>

#include "problems/problem_list.h"

namespace tarnwick {

/// PATH.cpx of PATH.cp; empty for other names.
std::filesystem::path TwinOf(const std::filesystem::path& path);

/// The list as a file without the comments of variants. The list has none any more then.
std::string TextWithoutComments(const TProblemList& list);

/// Whether the .cp file was written after its twin, and not with the twin's problems: a save, a copy or an
/// unpacked archive may set any times. Reads both files then. False if one of them cannot be read.
bool IsTwinOutdated(const std::filesystem::path& path);

}  // namespace tarnwick
