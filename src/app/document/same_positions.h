#pragma once
// Which problems have the same men on the same fields: what appending, removing and saving compare.

#include <string_view>
#include <unordered_map>
#include <vector>

#include "problems/problem_list.h"

namespace tarnwick {

/// The men of the starting position, one byte a field; points into the board.
std::string_view PlacementOf(const TChessboard& board);

/// Problems by their placement, each list by rising number. Good while the problems stay as they are.
using TProblemsByPosition = std::unordered_map<std::string_view, std::vector<const TChessProblem*>>;

TProblemsByPosition ProblemsByPosition(const TProblemList& list);

}  // namespace tarnwick
