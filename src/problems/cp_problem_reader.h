#pragma once
// Reads one problem of a problem file: stipulation, options, the special lines, and the section in
// braces. A hand-written recursive reader over the lexer; docs/formats/cp.md has the grammar.

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "problems/chess_problem.h"
#include "problems/cp_lexer.h"

namespace tarnwick {

/// The bit of the special heuristic of that name, in any case; 0 for any other word. The engine knows
/// the names, and it lies above this folder.
using THeuristicBitOfName = std::uint32_t (*)(std::string_view name) noexcept;

/// Options that the file's head gives to every problem of a length: moves of the stipulation to the
/// options' words.
using TProblemDefaults = std::map<int, std::set<std::string>>;

/// Reads a problem from the lexer's position and leaves the lexer behind its closing bracket. The
/// problem must be fresh. heuristicBitOfName may be null: then no word names a heuristic.
///
/// Throws ChessException with what the lexer, PreparePosition, ReadMoveText or this reader found wrong
/// (problem_texts.h); the problem is then to be thrown away.
void ReadProblem(TChessProblem& problem, CCpLexer& lexer, const TProblemDefaults& defaults,
                 THeuristicBitOfName heuristicBitOfName);

/// Numbers of problems in a file, the readable ones.
inline constexpr int MaxProblemId = 2147483647;

}  // namespace tarnwick
