#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>
#include <vector>

#include "base/chess_exception.h"
#include "base/version.h"

#include "cli/bench_command.h"
#include "cli/format_command.h"
#include "cli/id_list.h"
#include "cli/lint_command.h"
#include "cli/perft_command.h"
#include "cli/show_command.h"
#include "cli/solve_command.h"
#include "problems/chess_problem.h"

namespace tarnwick {
namespace {

constexpr const char* StatusHelp =
    "Exit status:\n"
    "  0  every problem got an answer, each with a mate\n"
    "  1  at least one problem has no mate\n"
    "  2  wrong usage\n"
    "  3  some input could not be read, a file not be written, or a problem was refused; what "
    "could\n"
    "     be read was solved\n"
    "  4  stopped by a limit or by Ctrl-C\n"
    "  5  an internal error\n"
    "When several hold, the order is 5, 2, 3, 4, 1.\n";

constexpr const char* MainExamples =
    "Examples:\n"
    "  tarnwick-cli solve problems.cp                       all problems of a file\n"
    "  tarnwick-cli solve --fen 7k/8/5K2/8/8/8/8/6R1 --mate 2\n"
    "  tarnwick-cli help solve                              everything about solve\n";

constexpr const char* SolveExamples =
    "FILE is a problem file (.cp) or a list of positions (.epd, lines like\n"
    "'7k/8/5K2/8/8/8/8/6R1 w - - bm #2;'), or - for standard input.\n"
    "\n"
    "Examples:\n"
    "  tarnwick-cli solve problems.cp --id 1,4-9 --all      all keys of seven problems\n"
    "  tarnwick-cli solve list.epd --time 10 --brief        ten seconds and a line for each\n"
    "  tarnwick-cli solve --fen '7k/8/5K2/8/8/8/8/6R1 w - -' --mate 2\n"
    "  tarnwick-cli solve --json problems.cp | jq -r .keys[]\n"
    "  tarnwick-cli solve problems.cp --id 7 --register 7.tmpReg --checkpoint 30\n"
    "                                       a solve of days that survives a power cut\n"
    "\n";

std::string IdListFault(const std::string& text) {
    try {
        CIdList::Parse(text);
        return "";
    } catch (const ChessException& error) {
        return error.what();
    }
}

std::string SecondsFault(const std::string& text) {
    double seconds = 0;
    const bool bGood =
        CLI::detail::lexical_cast(text, seconds) && std::isfinite(seconds) && seconds > 0;
    return bGood ? "" : "must be a number above 0, like 10 or 0.5";
}

/// The program with its subcommands. Each command keeps its arguments here; the chosen one sets what is
/// to be run.
class CCommandLine {
  public:
    explicit CCommandLine(TConsole& console);

    /// The words behind the program's name.
    TExitStatus Run(std::vector<std::string> words);

  private:
    template <typename TRun>
    CLI::App* AddCommand(const char* name, const char* what, TRun run);
    template <typename TArguments>
    TExitStatus NeedsProblems(const TArguments& arguments,
                              TExitStatus (*run)(const TArguments&, TConsole&));
    void AddSolve();
    void AddSolveFiles(CLI::App& solve);
    void AddShow();
    void AddLint();
    void AddFormat();
    void AddPerft();
    void AddBench();
    void AddHelp();
    TExitStatus Answer(const CLI::ParseError& error, bool bHasFen);

    TConsole& m_console;
    CLI::App m_app;
    std::function<TExitStatus()> m_run;

    TSolveArguments m_solve;
    TShowArguments m_show;
    TLintArguments m_lint;
    TFormatArguments m_format;
    TPerftArguments m_perft;
    TBenchArguments m_bench;
};

CCommandLine::CCommandLine(TConsole& console)
    : m_console(console), m_app("Solves direct-mate chess problems.", "tarnwick-cli") {
    m_app.get_formatter()->column_width(22);
    m_app.set_version_flag("--version", VersionLine, "Print the version and exit");
    m_app.footer(std::string(MainExamples) + '\n' + StatusHelp);
    AddSolve();
    AddShow();
    AddLint();
    AddFormat();
    AddPerft();
    AddBench();
    AddHelp();
}

template <typename TRun>
CLI::App* CCommandLine::AddCommand(const char* name, const char* what, TRun run) {
    CLI::App* command = m_app.add_subcommand(name, what);
    command->callback([this, run] { m_run = run; });
    return command;
}

/// Runs the command if there is a FILE or a --fen.
template <typename TArguments>
TExitStatus CCommandLine::NeedsProblems(const TArguments& arguments,
                                        TExitStatus (*run)(const TArguments&, TConsole&)) {
    if (arguments.file.empty() && arguments.fen.empty()) {
        m_console.dialog.Tell(
            "Name a file of problems, - for standard input, or a position with "
            "--fen. Run with --help for more information.");
        return TExitStatus::WrongUsage;
    }
    return run(arguments, m_console);
}

/// FILE or --fen. Returns the latter.
CLI::Option* AddPositionOptions(CLI::App& command, std::string& file, std::string& fen) {
    CLI::Option* fileOption =
        command.add_option("FILE", file, "Problem file (.cp, .epd), or - for standard input")
            ->type_name("");
    return command.add_option("--fen", fen, "A position instead of a file, as FEN")
        ->type_name("FEN")
        ->excludes(fileOption);
}

CLI::Option* AddIdOption(CLI::App& command, std::string& ids) {
    return command.add_option("--id", ids, "Only the problems of these numbers, like 1,4-9")
        ->type_name("LIST")
        ->check(IdListFault);
}

/// Numbers in that range; CLI11 would put the range into the middle of the help.
template <typename TNumber>
CLI::Validator Between(TNumber low, TNumber high) {
    return CLI::Range(low, high).description("");
}

void CCommandLine::AddSolve() {
    CLI::App* solve = AddCommand("solve", "Solve the problems of a file, or one position",
                                 [this] { return NeedsProblems(m_solve, &RunSolve); });
    CLI::Option* fen = AddPositionOptions(*solve, m_solve.file, m_solve.fen);
    CLI::Option* mate =
        solve->add_option("--mate", m_solve.mate, "The stipulation of that position: mate in N")
            ->type_name("N")
            ->check(Between(1, MaxStipulationMoves));
    mate->needs(fen);
    fen->needs(mate);
    AddIdOption(*solve, m_solve.ids);
    solve->add_flag("--all", m_solve.bAll,
                    "Find all keys of every problem. Without it, the search ends at the first key "
                    "unless the problem itself asks for more");
    solve->add_option("--time", m_solve.seconds, "At most so long for each problem, like 10 or 0.5")
        ->type_name("SECONDS")
        ->check(SecondsFault);
    solve->add_option("--nodes", m_solve.nodes, "At most about so many nodes for each problem")
        ->type_name("N")
        ->check(Between(std::uint64_t{1}, std::uint64_t{1} << 62));
    solve
        ->add_option("--threads", m_solve.threads,
                     "Threads at the root, or T^L: also in the first L moves of White. Without it, "
                     "one for each core")
        ->type_name("T^L")
        ->check(ThreadsFault);
    solve
        ->add_option("--memory", m_solve.memory,
                     "For remembered positions: MiB, or a share of the machine's like 20% "
                     "(which is the default); 0 remembers none")
        ->type_name("MIB")
        ->check(MemoryFault);
    CLI::Option* quick = solve->add_flag(
        "--quick", m_solve.bQuick,
        "Drop repetitions at once: faster in long problems, but \"no mate\" is then no proof");
    solve
        ->add_flag_callback(
            "--safe", [] {}, "Prove what is said, which is the default")
        ->excludes(quick);
    solve->add_flag("--no-scout", m_solve.bNoScout,
                    "Search all moves at once, without a try for a mate by force before");
    AddSolveFiles(*solve);
    solve->add_flag("--brief", m_solve.bBrief, "One line for each problem, without its picture");
    solve->add_flag("--json", m_solve.bJson,
                    "One JSON object a line for each problem, and nothing else");
    solve->footer(std::string(SolveExamples) + StatusHelp);
}

/// What outlives a solve: the register, answers, logs.
void CCommandLine::AddSolveFiles(CLI::App& solve) {
    CLI::Option* file =
        solve
            .add_option("--register", m_solve.registerFile,
                        "Go on from what this file (.tmpReg) knows, and save into it at the end, "
                        "after Ctrl-C too. For one problem of at least six moves")
            ->type_name("FILE");
    solve
        .add_option("--checkpoint", m_solve.checkpointMinutes,
                    "Save into it also while solving, every so many minutes")
        ->type_name("MINUTES")
        ->check(SecondsFault)
        ->needs(file);
    solve
        .add_option("--register-size", m_solve.registerMiB,
                    "Its size before packing at most; the cheapest positions are left out")
        ->type_name("MIB")
        ->check(Between(std::uint64_t{1}, std::uint64_t{1} << 32))
        ->needs(file);
    solve.add_flag("--compress", m_solve.bCompress, "Pack it")->needs(file);
    solve
        .add_option(
            "--solved", m_solve.solvedFolder,
            "Keep answers to problems of at least seven moves in this folder, and take them "
            "from there")
        ->type_name("FOLDER");
    solve
        .add_option("--log-moves", m_solve.logFolder,
                    "Log every move and answer into this folder, which makes solving much slower")
        ->type_name("FOLDER");
}

void CCommandLine::AddShow() {
    CLI::App* show = AddCommand("show", "Show problems without solving them",
                                [this] { return NeedsProblems(m_show, &RunShow); });
    AddPositionOptions(*show, m_show.file, m_show.fen);
    AddIdOption(*show, m_show.ids);
    const auto style = [this](TBoardStyle boardStyle) {
        return [this, boardStyle] { m_show.boardStyle = boardStyle; };
    };
    CLI::Option* unicode = show->add_flag_callback("--unicode", style(TBoardStyle::Figures),
                                                   "Draw the men as chess figures");
    show->add_flag_callback("--ascii", style(TBoardStyle::Ascii),
                            "Draw with plain letters and signs")
        ->excludes(unicode);
    show->footer(
        "Examples:\n"
        "  tarnwick-cli show problems.cp --id 7 --unicode\n"
        "  tarnwick-cli show --fen 7k/8/5K2/8/8/8/8/6R1\n");
}

void CCommandLine::AddLint() {
    CLI::App* lint = AddCommand("lint", "Say what is wrong in problem files, by line",
                                [this] { return RunLint(m_lint, m_console); });
    lint->add_option("FILE", m_lint.files, "Problem files (.cp, .epd), or - for standard input")
        ->type_name("")
        ->required();
    lint->add_flag("--json", m_lint.bJson,
                   "One JSON object a line for each finding: file, line, severity, text");
    lint->footer(
        "A problem file is read up to its first error.\n"
        "Exit status: 0 no errors (there may be warnings), 3 errors.\n"
        "\n"
        "Example:\n"
        "  tarnwick-cli lint *.cp\n");
}

void CCommandLine::AddFormat() {
    CLI::App* format = AddCommand("format", "Write a problem file in the program's own form",
                                  [this] { return RunFormat(m_format, m_console); });
    format->add_option("FILE", m_format.file, "Problem file (.cp, .epd), or - for standard input")
        ->type_name("")
        ->required();
    CLI::Option* out =
        format
            ->add_option("-o,--output", m_format.out, "Write to this file, not to standard output")
            ->type_name("FILE");
    format->add_flag("-i,--in-place", m_format.bInPlace, "Replace the file itself")->excludes(out);
    format->footer(
        "Nothing is written if any part of the file cannot be read. Comments and options\n"
        "without a written form are not kept; the program says which.\n"
        "\n"
        "Examples:\n"
        "  tarnwick-cli format list.epd -o list.cp      positions as a problem file\n"
        "  tarnwick-cli format --in-place problems.cp\n");
}

void CCommandLine::AddPerft() {
    CLI::App* perft =
        AddCommand("perft", "Count move sequences, to test and time the making of moves",
                   [this] { return RunPerft(m_perft, m_console); });
    perft->add_option("DEPTH", m_perft.depth, "Length of the sequences in half-moves")
        ->type_name("")
        ->required()
        ->check(Between(0, MaxPerftDepth));
    perft->add_option("--fen", m_perft.fen, "The position; without it, the start of a game")
        ->type_name("FEN");
    perft->add_flag("--divide", m_perft.bDivide, "Also the count behind each first move");
    perft->footer(
        "All castlings that the men allow are possible, en passant in the first move is not,\n"
        "and moves that leave White without the force to mate are not counted.\n"
        "\n"
        "Examples:\n"
        "  tarnwick-cli perft 5\n"
        "  tarnwick-cli perft 4 --divide --fen 'r3k2r/8/8/8/8/8/8/R3K2R b KQkq -'\n");
}

void CCommandLine::AddBench() {
    CLI::App* bench = AddCommand("bench", "Solve a fixed set and print its search signature",
                                 [this] { return RunBench(m_bench, m_console); });
    bench->add_flag("--json", m_bench.bJson,
                    "One JSON object a line for each position, the last with the signature");
}

/// Only for the list of commands: Run turns it into --help.
void CCommandLine::AddHelp() {
    m_app.add_subcommand("help", "Explain the program or a command, like: help solve");
}

/// Wrong words, or a wish for help.
TExitStatus CCommandLine::Answer(const CLI::ParseError& error, bool bHasFen) {
    const int status = m_app.exit(error, m_console.out, std::cerr);
    const std::string kind = error.get_name();
    if (bHasFen && (kind == "ExtrasError" || kind == "ExcludesError")) {
        m_console.dialog.Tell(
            "A FEN with blanks in it needs quotes: --fen '7k/8/8/8/8/8/8/K6Q w - -'");
    }
    return status == 0 ? TExitStatus::Success : TExitStatus::WrongUsage;
}

TExitStatus CCommandLine::Run(std::vector<std::string> words) {
    if (words.empty()) {
        m_console.out << m_app.help();
        return TExitStatus::WrongUsage;
    }
    if (words.front() == "help") {
        words.erase(words.begin());
        words.emplace_back("--help");
    }
    const bool bHasFen = std::ranges::find(words, "--fen") != words.end();
    std::ranges::reverse(words);  // the order in which CLI11 takes them
    try {
        m_app.parse(words);
    } catch (const CLI::ParseError& error) {
        return Answer(error, bHasFen);
    }
    return m_run ? m_run() : TExitStatus::WrongUsage;
}

}  // namespace

TExitStatus RunCommandLine(int argc, const char* const* argv, TConsole& console) {
    return CCommandLine(console).Run(
        std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
}

}  // namespace tarnwick
