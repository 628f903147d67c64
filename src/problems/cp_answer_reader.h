#pragma once
// The sections of moves in a problem's braces: the line of play and the correct answers.

#include <string_view>

#include "problems/chess_problem.h"
#include "problems/cp_lexer.h"

namespace tarnwick {

/// If the token opens a section of moves, reads it, plays its moves on the problem's line, and returns
/// the token behind it; else returns the token. A problem with moves has PliesOfPosition plies.
///
/// Throws ChessException for a text that is no move, a move that chess does not allow, more than
/// MaxMovesOfLine moves, or a starting position that PreparePosition refuses.
std::string_view ReadMovesSection(TChessProblem& problem, CCpLexer& lexer, std::string_view token);

/// If the token opens a section of answers or of expected moves, reads it and returns the closing
/// bracket that ended it; else returns the token. Answers are not checked against the position.
std::string_view ReadAnswerSection(TChessProblem& problem, CCpLexer& lexer, std::string_view token);

}  // namespace tarnwick
