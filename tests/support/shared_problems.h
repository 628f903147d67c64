#pragma once

// Problems by other people, with all keys as another solver found them, for tests of whole solves.
//
// They lie outside the repository, in the folder shared/data beside it or where the environment variable
// TARNWICK_SHARED_DATA_DIR points. Tests that need them are skipped where they are missing.

#include <string>
#include <vector>

namespace tarnwick {

struct TSharedProblem {
    std::string name;               ///< "short.64", the number in the file.
    int moves = 0;                  ///< Of White: 5 for a #5.
    std::string fen;                ///< The placement alone.
    std::vector<std::string> keys;  ///< All of them in full notation, sorted.
};

/// The problems of short.cp, or none if the file is missing.
std::vector<TSharedProblem> ReadSharedProblems();

}  // namespace tarnwick
