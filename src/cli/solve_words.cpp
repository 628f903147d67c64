#include "cli/solve_words.h"

#include "cli/command_words.h"
#include "cli/solve_options.h"
#include "engine/threads/level_quantum.h"

namespace tarnwick {
namespace {

constexpr const char* Footer =
    "FILE is a problem file (.cp) or a list of positions (.epd, lines like\n"
    "'7k/8/5K2/8/8/8/8/6R1 w - - bm #2;'), or - for standard input.\n"
    "\n"
    "Words of a problem file that count here, unless the command line says otherwise:\n"
    "AllSolutions, StopOnDual, StopOn3Sol, Threads, SchedulerLevels, SafeMode (against --quick\n"
    "too), StopRelaxHeuristicsOnFirstSolution, UseMainVariantAsSortIndications, and settings of\n"
    "heuristics.\n"
    "\n"
    "Examples:\n"
    "  tarnwick-cli solve problems.cp --id 1,4-9 --all      all keys of seven problems\n"
    "  tarnwick-cli solve list.epd --time 10 --brief        ten seconds and a line for each\n"
    "  tarnwick-cli solve --fen '7k/8/5K2/8/8/8/8/6R1 w - -' --mate 2\n"
    "  tarnwick-cli solve --json problems.cp | jq -r .keys[]\n"
    "  tarnwick-cli solve problems.cp --id 7 --register 7.tmpReg --checkpoint 30\n"
    "                                       a solve of days that survives a power cut\n"
    "  tarnwick-cli solve problems.cp --id 9 --heuristics 'SH_KEEPKINGONTHEEDGE, SH_AREKINGSNEAR'\n"
    "\n";

std::string OnOffFault(const std::string& text) {
    return text == "on" || text == "off" ? "" : "must be on or off";
}

void AddLimits(CLI::App& solve, TSolveArguments& arguments) {
    solve.add_flag("--all", arguments.bAll,
                   "Find all keys of every problem. Without it, the search ends at the first key "
                   "unless the problem itself asks for more");
    solve
        .add_option("--time", arguments.seconds, "At most so long for each problem, like 10 or 0.5")
        ->type_name("SECONDS")
        ->check(DurationFault);
    solve.add_option("--nodes", arguments.nodes, "At most about so many nodes for each problem")
        ->type_name("N")
        ->check(Between(std::uint64_t{1}, std::uint64_t{1} << 62));
    solve
        .add_option("--threads", arguments.threads,
                    "Threads at the root, or T^L: also in the first L moves of White. Without it, "
                    "one for each core")
        ->type_name("T^L")
        ->check(ThreadsFault);
    solve
        .add_option("--memory", arguments.memory,
                    "For remembered positions: MiB, or a share of the machine's like 20% "
                    "(which is the default); 0 remembers none")
        ->type_name("MIB")
        ->check(MemoryFault);
}

void AddSearch(CLI::App& solve, TSolveArguments& arguments) {
    CLI::Option* quick = solve.add_flag(
        "--quick", arguments.bQuick,
        "Drop repetitions at once: faster in long problems, but \"no mate\" is then no proof");
    solve
        .add_flag_callback(
            "--safe", [] {}, "Prove what is said, which is the default")
        ->excludes(quick);
    solve.add_flag("--no-scout", arguments.bNoScout,
                   "Search all moves at once, without a try for a mate by force before");
    CLI::Option* scheduler =
        solve
            .add_option("--scheduler", arguments.schedulerLevels,
                        "Let moves take turns in N further moves of White behind the threads, 0 "
                        "to 9: for very long problems. Without it, as the problem says, or 0")
            ->type_name("N")
            ->check(Between(0, MostSchedulerLevels));
    solve
        .add_flag("--custom-scheduler", arguments.bCustomScheduler,
                  "Turns also further down where hints name several moves; not with N = 0")
        ->needs(scheduler);
}

void AddHeuristics(CLI::App& solve, TSolveArguments& arguments) {
    solve
        .add_option("--heuristics", arguments.heuristics,
                    "What passes assume before the full search: auto (the default: the engine "
                    "looks at each problem, and the problem may change the choice), none, or a "
                    "list as analyze prints it")
        ->type_name("LIST")
        ->check(HeuristicsFault);
    solve
        .add_option("--relax", arguments.relax,
                    "Further passes with weaker heuristics, on (the default) or off")
        ->type_name("on|off")
        ->check(OnOffFault);
    solve
        .add_option("--pass2", arguments.finalPass,
                    "The last pass without heuristics, on (the default) or off; without it \"no "
                    "mate\" cannot be proved and the problem stays open")
        ->type_name("on|off")
        ->check(OnOffFault);
    solve.add_flag("--no-forced", arguments.bNoForced,
                   "Do not begin with passes of forcing moves, whatever the engine thinks");
}

/// Precalculated tables.
void AddTables(CLI::App& solve, TSolveArguments& arguments) {
    CLI::Option* folder =
        solve
            .add_option("--data", arguments.dataFolder,
                        "Ask the tables in this folder (in its subfolder Precalc, as the command "
                        "tables makes them) about positions of few men")
            ->type_name("FOLDER")
            ->check(CLI::ExistingDirectory);
    solve
        .add_option("--data-memory", arguments.dataPercent,
                    "For tables: a share of the machine's memory, 0 to 100 percent (the default is "
                    "20). Tables that do not fit are read from the disk; 0 asks none")
        ->type_name("PERCENT")
        ->check(Between(0, 100))
        ->needs(folder);
}

/// What outlives a solve: the register, answers, logs.
void AddFiles(CLI::App& solve, TSolveArguments& arguments) {
    CLI::Option* file =
        solve
            .add_option("--register", arguments.registerFile,
                        "Go on from what this file (.tmpReg) knows, and save into it at the end, "
                        "after Ctrl-C too. For one problem of at least six moves")
            ->type_name("FILE");
    solve
        .add_option("--checkpoint", arguments.checkpointMinutes,
                    "Save into it also while solving, every so many minutes")
        ->type_name("MINUTES")
        ->check(DurationFault)
        ->needs(file);
    solve
        .add_option("--register-size", arguments.registerMiB,
                    "Its size before packing at most; the cheapest positions are left out")
        ->type_name("MIB")
        ->check(Between(std::uint64_t{1}, std::uint64_t{1} << 32))
        ->needs(file);
    solve.add_flag("--compress", arguments.bCompress, "Pack it")->needs(file);
    solve
        .add_option(
            "--solved", arguments.solvedFolder,
            "Keep answers to problems of at least seven moves in this folder, and take them "
            "from there")
        ->type_name("FOLDER");
    solve
        .add_option("--log-moves", arguments.logFolder,
                    "Log every move and answer into this folder, which makes solving much slower")
        ->type_name("FOLDER");
}

}  // namespace

void AddSolveWords(CLI::App& solve, TSolveArguments& arguments) {
    AddProblemOptions(solve, arguments.file, arguments.fen, arguments.mate);
    AddIdOption(solve, arguments.ids);
    AddLimits(solve, arguments);
    AddSearch(solve, arguments);
    AddHeuristics(solve, arguments);
    AddTables(solve, arguments);
    AddFiles(solve, arguments);
    solve.add_flag("--brief", arguments.bBrief, "One line for each problem, without its picture");
    solve.add_flag("--json", arguments.bJson,
                   "One JSON object a line for each problem, and nothing else");
    solve.footer(Footer);
}

}  // namespace tarnwick
