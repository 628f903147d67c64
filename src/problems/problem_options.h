#pragma once
// The words between a problem's stipulation and its section in braces. One table line each: the reader
// looks words up in it, the writer walks it from top to bottom.

#include <span>
#include <string>
#include <string_view>

#include "problems/chess_problem.h"
#include "problems/cp_lexer.h"

namespace tarnwick {

/// What stands behind the word, and where it goes.
enum class TOptionValue {
    None,             ///< Nothing: the word sets a bit.
    Threads,          ///< "n" or "n^m", both 0 to 255.
    SchedulerLevels,  ///< 0 to 255.
    LichessLevels,    ///< 0 or more.
    GlobRegMB,        ///< 0 or more, MiB.
    GuiCheckCount,    ///< A positive number, or nothing for 1.
    Requires,         ///< A position type. The word may stand several times.
    AllSolutionsRequires,
    StopRelaxHeuristics  ///< Nothing: the word sets a member.
};

struct TOptionKeyword {
    const char* keyword;  ///< Upper case; read in any case.
    TOptionValue value;
    std::uint16_t bits;   ///< Of m_shOptions; 0 for none.
    const char* written;  ///< Null: not kept when the file is saved.
};

std::span<const TOptionKeyword> OptionKeywords();

/// Null if the word is none of the keywords.
const TOptionKeyword* FindOptionKeyword(std::string_view word);

/// Reads what belongs behind the keyword, which has been read, and sets it in the problem. Throws
/// ChessException for a missing or impossible value.
void ReadOptionValue(TChessProblem& problem, const TOptionKeyword& keyword, CCpLexer& lexer);

/// Appends all options that have a written form, each with a blank in front.
void AppendOptions(std::string& text, const TChessProblem& problem);

}  // namespace tarnwick
