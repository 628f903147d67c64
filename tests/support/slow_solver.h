#pragma once

// Mates by trying everything: the judge of every solver test.
//
// White to move at the root, lengths in moves of White (#3 is 3), Black defends as long as he can,
// stalemate is no mate. No heuristic, no memory, no move ordering; the search only stops at the first
// refutation. On the mix of random_positions with up to 12 men all keys of a #3 take 10 to 30 ms on the
// average and now and then a second; one move more takes fifty to a hundred times as long.

#include <functional>
#include <string>
#include <vector>

#include "support/slow_rules.h"

namespace tarnwick::slow {

/// White, to move, can force mate in at most n moves. False for n below 1.
bool MateIn(const TSlowPosition& position, int n);

/// Black is mated, or to move and cannot avoid being mated within n further moves of White.
bool IsMateForced(const TSlowPosition& position, int n);

/// The length of the shortest forced mate, or 0 if there is none of at most maxN moves.
int ShortestMate(const TSlowPosition& position, int maxN);

/// FullText of all first moves of White that force mate in at most n moves (this one included), sorted.
std::vector<std::string> AllKeys(const TSlowPosition& position, int n);

/// Names White's move in a position that a solution has reached; movesLeft counts the move itself.
using TNamedMove = std::function<std::string(const TSlowPosition& position, int movesLeft)>;

/// Plays the named moves of White against every defence. Returns an empty text if each line ends in
/// mate within n moves, else the first line that does not, with the reason, for the test's message.
std::string FindFlaw(const TSlowPosition& position, int n, const TNamedMove& nameMove);

}  // namespace tarnwick::slow
