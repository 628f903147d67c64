#pragma once

// A line of play in which each move is checked as in a pass with heuristics, for the tests of single
// heuristics: the answer after the last move counts. The moves before it are checked too, because the
// checks leave marks on the boards.

#include <gtest/gtest.h>

#include <string>

#include "engine/heuristics/heuristic_checks.h"
#include "heuristic_line.h"

namespace tarnwick {

struct TRoleCase {
    const char* name;
    const char* fen;
    std::uint32_t bits;
    const char* line;  ///< In full notation, White begins.
    bool bBroken;
    void (*setUp)(TSpecialHeuristics&) = nullptr;
    int plies = 21;  ///< At the root.
};

/// Far from the leaves unless the case says otherwise, under the case's heuristics.
class CRoleLine : public CHeuristicLine {
  public:
    explicit CRoleLine(const TRoleCase& c) : CHeuristicLine(c.fen, 0, c.plies) {
        if (c.setUp != nullptr) {
            c.setUp(Parameters());
        }
        Set(c.bits);
    }

    /// Plays on; whether the last of the moves breaks a heuristic.
    bool PlayAndCheck(const char* line) {
        bool bBroken = false;
        for (const std::string& move : WordsOf(line)) {
            Play({move});
            bBroken = IsWhiteToMove(Board()) ? BreaksHeuristicsAfterBlack(Board())
                                             : BreaksHeuristicsAfterWhite(Board());
        }
        return bBroken;
    }
};

inline void CheckRoleCase(const TRoleCase& c) {
    EXPECT_EQ(CRoleLine(c).PlayAndCheck(c.line), c.bBroken);
    // A pass without the heuristic is not touched by it.
    TRoleCase without = c;
    without.bits = 0;
    EXPECT_FALSE(CRoleLine(without).PlayAndCheck(c.line));
}

}  // namespace tarnwick
