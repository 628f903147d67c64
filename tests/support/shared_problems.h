#pragma once

// Problems by other people, with all keys as another solver found them, for tests of whole solves.
//
// They lie outside the repository, in the folder shared/data beside it or where the environment variable
// TARNWICK_SHARED_DATA_DIR points. Tests that need them are skipped where they are missing.

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Begins a test that needs a shared position.
#define SKIP_IF_MISSING(fenOrId)                   \
    if (tarnwick::SharedPosition(fenOrId).empty()) \
    GTEST_SKIP() << fenOrId << " is not there: set TARNWICK_SHARED_DATA_DIR to its folder"

namespace tarnwick {

struct TSharedProblem {
    std::string name;               ///< "short.64", the number in the file.
    int moves = 0;                  ///< Of White: 5 for a #5.
    std::string fen;                ///< The placement alone.
    std::vector<std::string> keys;  ///< All of them in full notation, sorted.
};

/// The problems of short.cp, or none if the file is missing.
std::vector<TSharedProblem> ReadSharedProblems();

/// The placement of a shared problem: "short.64" of short.cp, "6-8.19" of moremovers.epd. Empty if it is
/// not at hand. A FEN comes back as it is, so that tables can hold both.
std::string SharedPosition(const std::string& fenOrId);

}  // namespace tarnwick
