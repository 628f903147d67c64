#include "cli/tables_words.h"

#include <CLI/CLI.hpp>

namespace tarnwick {
namespace {

constexpr const char* TablesHelp =
    "A table holds the distance to mate of every position of one type, White to move. A type is\n"
    "one letter for each man beside the kings, White's in upper case: Qr, RBp, QPq.\n"
    "\n"
    "Examples:\n"
    "  tarnwick-cli tables generate --men 4 --with-dependencies   all tables of four men\n"
    "  tarnwick-cli tables longest Qr --count 3                   its longest mates as boards\n"
    "  tarnwick-cli tables probe --fen '8/8/8/8/8/2k5/8/K6R w - -'\n"
    "  tarnwick-cli tables verify Qr                              each value by its successors\n"
    "  tarnwick-cli help tables generate                          everything about generate\n";

/// Adds one command after the other.
class CTablesWords {
  public:
    CTablesWords(CLI::App& tables, TTablesArguments& arguments, TConsole& console,
                 std::function<TExitStatus()>& run)
        : m_tables(tables), m_arguments(arguments), m_console(console), m_run(run) {}

    CLI::App& Add(const char* name, const char* what,
                  TExitStatus (*run)(const TTablesArguments&, TConsole&)) {
        CLI::App* command = m_tables.add_subcommand(name, what);
        command->callback([this_run = &m_run, arguments = &m_arguments, console = &m_console, run] {
            *this_run = [=] { return run(*arguments, *console); };
        });
        command
            ->add_option("--data", m_arguments.data,
                         "Folder of the tables. Without it, that of the user's data")
            ->type_name("DIR");
        command->add_flag("--json", m_arguments.bJson,
                          "JSON objects, one a line, and nothing else");
        return *command;
    }
    void AddTypes(CLI::App& command, bool bMen) {
        CLI::Option* types =
            command.add_option("TYPE", m_arguments.types, "Position types, like Qr");
        if (!bMen) {
            types->required();
            return;
        }
        command
            .add_option("--men", m_arguments.men,
                        "All types of so many men, kings included, 3 to 7")
            ->check(CLI::Range(3, 7))
            ->type_name("N");
    }
    void AddThreads(CLI::App& command) {
        command.add_option("--threads", m_arguments.threads, "Without it, one for each core")
            ->check(CLI::Range(1, 256))
            ->type_name("N");
    }

  private:
    CLI::App& m_tables;
    TTablesArguments& m_arguments;
    TConsole& m_console;
    std::function<TExitStatus()>& m_run;
};

void AddGenerate(CTablesWords& words, TTablesArguments& arguments) {
    CLI::App& generate =
        words.Add("generate", "Make tables, each complete and exact", &RunTablesGenerate);
    words.AddTypes(generate, true);
    words.AddThreads(generate);
    generate.add_flag("--with-dependencies", arguments.bWithDependencies,
                      "Make the tables first that these need and that are missing");
    generate.add_flag("--anew", arguments.bAnew, "Also those that are there already");
    generate.footer(
        "A table needs those of all types that a capture or a promotion leads to. Before it begins "
        "the\n"
        "command says what it will make, how large the files and how much memory; Ctrl-C stops, "
        "and the\n"
        "same command goes on from there.\n");
}

void AddVerify(CTablesWords& words, TTablesArguments& arguments) {
    CLI::App& verify = words.Add("verify", "Recompute every value of a table from its successors",
                                 &RunTablesVerify);
    words.AddTypes(verify, true);
    words.AddThreads(verify);
    verify.add_flag("--partial", arguments.bPartial,
                    "The table goes up to some length only: what is longer is no fault");
    verify.add_flag("--fix", arguments.bFix,
                    "Repair a mate where none is stored, and a shorter one than stored");
    verify.add_flag("--board-rules", arguments.bBoardRules,
                    "Judge every position by the rules of the game alone: the slow way");
    verify.footer(
        "Rules made for tables go through all positions; what they find wrong, and one position in "
        "64\n"
        "beside, is judged by the rules of the game. This takes twice the table in memory; without "
        "that\n"
        "much everything is judged the slow way.\n"
        "Faults are written into PrecalcFailuresTYPE.txt in the present folder, a line each: "
        "index,\n"
        "position, plies stored, plies expected. The exit status is 3 if faults remain.\n");
}

}  // namespace

void AddTablesWords(CLI::App& app, TTablesArguments& arguments, TConsole& console,
                    std::function<TExitStatus()>& run) {
    CLI::App* tables = app.add_subcommand("tables", "Exact tables of positions with few men");
    tables->require_subcommand(1);
    tables->footer(TablesHelp);
    CTablesWords words(*tables, arguments, console, run);
    words.Add("list", "The tables that are there", &RunTablesList);
    words.AddTypes(
        words.Add("info", "Files, sizes and missing dependencies of a type", &RunTablesInfo), true);
    AddGenerate(words, arguments);
    AddVerify(words, arguments);
    words.Add("probe", "The distance to mate of a position", &RunTablesProbe)
        .add_option("--fen", arguments.fen, "The position, White to move, as FEN")
        ->required()
        ->type_name("FEN");
    CLI::App& longest =
        words.Add("longest", "The longest mates of a type, as boards", &RunTablesLongest);
    words.AddTypes(longest, false);
    longest.add_option("--count", arguments.count, "How many positions, 10 without it")
        ->check(CLI::Range(1, 1000000))
        ->type_name("K");
    words.AddTypes(
        words.Add("stats", "How many positions are mate in how many moves", &RunTablesStats), true);
    CLI::App& pack =
        words.Add("pack", "Make a smaller copy that can still be looked up", &RunTablesPack);
    words.AddTypes(pack, false);
    pack.add_option(
            "--form", arguments.form,
            "lzw (the default): looked up as it is; lz4: smaller, expanded to memory for use")
        ->check(CLI::IsMember({"lzw", "lz4"}))
        ->type_name("FORM");
    words.AddTypes(
        words.Add("unpack", "Make the unpacked table again from a packed one", &RunTablesUnpack),
        false);
}

}  // namespace tarnwick
