#include "cli/command_words.h"

#include <cmath>

#include "base/chess_exception.h"

#include "cli/id_list.h"
#include "problems/chess_problem.h"

namespace tarnwick {
namespace {

std::string IdListFault(const std::string& text) {
    try {
        CIdList::Parse(text);
        return "";
    } catch (const ChessException& error) {
        return error.what();
    }
}

}  // namespace

CLI::Option* AddPositionOptions(CLI::App& command, std::string& file, std::string& fen) {
    CLI::Option* fileOption =
        command.add_option("FILE", file, "Problem file (.cp, .epd), or - for standard input")
            ->type_name("");
    return command.add_option("--fen", fen, "A position instead of a file, as FEN")
        ->type_name("FEN")
        ->excludes(fileOption);
}

void AddProblemOptions(CLI::App& command, std::string& file, std::string& fen, int& mate) {
    CLI::Option* fenOption = AddPositionOptions(command, file, fen);
    CLI::Option* mateOption =
        command.add_option("--mate", mate, "The stipulation of that position: mate in N")
            ->type_name("N")
            ->check(Between(1, MaxStipulationMoves));
    mateOption->needs(fenOption);
    fenOption->needs(mateOption);
}

CLI::Option* AddIdOption(CLI::App& command, std::string& ids) {
    return command.add_option("--id", ids, "Only the problems of these numbers, like 1,4-9")
        ->type_name("LIST")
        ->check(IdListFault);
}

std::string DurationFault(const std::string& text) {
    double duration = 0;
    const bool bGood =
        CLI::detail::lexical_cast(text, duration) && std::isfinite(duration) && duration > 0;
    return bGood ? "" : "must be a number above 0, like 10 or 0.5";
}

}  // namespace tarnwick
