#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <vector>

#include "base/version.h"

#include "cli/analyze_command.h"
#include "cli/bench_command.h"
#include "cli/command_words.h"
#include "cli/convert_command.h"
#include "cli/diagram_command.h"
#include "cli/format_command.h"
#include "cli/lint_command.h"
#include "cli/perft_command.h"
#include "cli/show_command.h"
#include "cli/solve_command.h"
#include "cli/solve_words.h"
#include "cli/tables_words.h"

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
    "  4  stopped by a limit or by Ctrl-C, or left open because the last pass was off\n"
    "  5  an internal error\n"
    "When several hold, the order is 5, 2, 3, 4, 1.\n";

constexpr const char* MainExamples =
    "Examples:\n"
    "  tarnwick-cli solve problems.cp                       all problems of a file\n"
    "  tarnwick-cli solve --fen 7k/8/5K2/8/8/8/8/6R1 --mate 2\n"
    "  tarnwick-cli help solve                              everything about solve\n";

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
    void AddAnalyze();
    void AddShow();
    void AddLint();
    void AddFormat();
    void AddConvert();
    void AddDiagram();
    void AddPerft();
    void AddBench();
    void AddHelp();
    TExitStatus Answer(const CLI::ParseError& error, bool bHasFen);

    TConsole& m_console;
    CLI::App m_app;
    std::function<TExitStatus()> m_run;

    TSolveArguments m_solve;
    TAnalyzeArguments m_analyze;
    TShowArguments m_show;
    TLintArguments m_lint;
    TFormatArguments m_format;
    TConvertArguments m_convert;
    TDiagramArguments m_diagram;
    TTablesArguments m_tables;
    TPerftArguments m_perft;
    TBenchArguments m_bench;
};

CCommandLine::CCommandLine(TConsole& console)
    : m_console(console), m_app("Solves direct-mate chess problems.", "tarnwick-cli") {
    m_app.get_formatter()->column_width(22);
    m_app.set_version_flag("--version", VersionLine, "Print the version and exit");
    m_app.footer(std::string(MainExamples) + '\n' + StatusHelp);
    AddSolve();
    AddAnalyze();
    AddShow();
    AddLint();
    AddFormat();
    AddConvert();
    AddDiagram();
    AddTablesWords(m_app, m_tables, m_console, m_run);
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

void CCommandLine::AddSolve() {
    CLI::App* solve = AddCommand("solve", "Solve the problems of a file, or one position",
                                 [this] { return NeedsProblems(m_solve, &RunSolve); });
    AddSolveWords(*solve, m_solve);
    solve->footer(solve->get_footer() + StatusHelp);
}

void CCommandLine::AddAnalyze() {
    CLI::App* analyze =
        AddCommand("analyze", "Say what kind of position it is and which heuristics would be tried",
                   [this] { return NeedsProblems(m_analyze, &RunAnalyze); });
    AddProblemOptions(*analyze, m_analyze.file, m_analyze.fen, m_analyze.mate);
    AddIdOption(*analyze, m_analyze.ids);
    analyze->add_flag("--no-trials", m_analyze.bNoTrials,
                      "Judge by the placing of the men alone, without short searches");
    analyze->add_flag("--json", m_analyze.bJson,
                      "One JSON object a line for each problem, and nothing else");
    analyze->footer(
        "Nothing is solved. The passes are those that solve makes one after the other while no\n"
        "key is found; after them comes the full search without heuristics. What the settings of\n"
        "a problem file change in the choice is in it.\n"
        "\n"
        "Examples:\n"
        "  tarnwick-cli analyze problems.cp --id 7\n"
        "  tarnwick-cli analyze --json problems.cp | jq -r .heuristics\n");
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

void CCommandLine::AddConvert() {
    CLI::App* convert = AddCommand("convert", "Write problems in another form: .cp, .epd or .pgn",
                                   [this] { return RunConvert(m_convert, m_console); });
    convert->add_option("IN", m_convert.in, "Problem file (.cp, .epd), or - for standard input")
        ->type_name("")
        ->required();
    convert->add_option("OUT", m_convert.out, "The file to write, or - for standard output")
        ->type_name("")
        ->required();
    convert->add_option("--to", m_convert.to, "The form: cp, epd or pgn; without it OUT's ending")
        ->type_name("FORM")
        ->check(CLI::IsMember({"cp", "epd", "pgn"}).description(""));
    AddIdOption(*convert, m_convert.ids);
    convert->footer(
        "EPD holds mates, their descriptions and keys. PGN holds each problem as a game from its\n"
        "position, its variants as variations. What the form has no words for is told.\n"
        "Nothing is written if any part of the file cannot be read.\n"
        "\n"
        "Examples:\n"
        "  tarnwick-cli convert problems.cp problems.pgn\n"
        "  tarnwick-cli convert problems.cp - --to epd --id 1-9\n");
}

void CCommandLine::AddDiagram() {
    CLI::App* diagram = AddCommand("diagram", "Draw positions as pictures, SVG or PNG",
                                   [this] { return NeedsProblems(m_diagram, &RunDiagram); });
    CLI::Option* fen = AddPositionOptions(*diagram, m_diagram.file, m_diagram.fen);
    AddIdOption(*diagram, m_diagram.ids)->excludes(fen);
    diagram
        ->add_option("-o,--output", m_diagram.output,
                     "Picture file (.svg, .png), %d in it for the number, or a folder")
        ->type_name("FILE");
    TDiagramOptions& picture = m_diagram.picture;
    diagram->add_option("--size", picture.size, "Width of the picture, by default 480")
        ->type_name("PIXELS")
        ->check(Between(MinDiagramSize, MaxDiagramSize));
    const std::map<std::string, TDiagramStyle> styles = {{"window", TDiagramStyle::Window},
                                                         {"print", TDiagramStyle::Print},
                                                         {"hatched", TDiagramStyle::Hatched},
                                                         {"plain", TDiagramStyle::Plain}};
    diagram
        ->add_option("--style", picture.style, "Dark fields: print (grey), window, hatched, plain")
        ->type_name("STYLE")
        ->transform(CLI::Transformer(styles).description(""));
    diagram->add_flag("--black-below", picture.bBlackBelow, "Seen from Black's side");
    diagram->add_flag("--coordinates", picture.bCoordinates, "Letters and digits at the edge");
    diagram->add_flag("--stipulation", m_diagram.bStipulation, "#N below the board");
    diagram->footer(
        "Without --output the picture goes to standard output as SVG. The position is also in the\n"
        "picture as text: the window reads it from there exactly. PNG needs the program with the\n"
        "window installed; no screen.\n"
        "\n"
        "Examples:\n"
        "  tarnwick-cli diagram problems.cp --id 7 --stipulation -o seven.png\n"
        "  tarnwick-cli diagram problems.cp --style hatched -o 'pictures/%d.svg'\n"
        "  tarnwick-cli diagram --fen 7k/8/5K2/8/8/8/8/6R1 > rook.svg\n");
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
