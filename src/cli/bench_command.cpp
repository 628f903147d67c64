#include "cli/bench_command.h"

#include <iomanip>
#include <optional>

#include "base/chess_exception.h"
#include "platform/stop_signals.h"

#include "cli/bench_positions.h"
#include "cli/json_line.h"
#include "cli/problem_input.h"
#include "cli/progress_line.h"
#include "engine/jobs/start_solving.h"

namespace tarnwick {
namespace {

struct TBenchResult {
    std::uint64_t nodes = 0;
    std::uint64_t ms = 0;

    void Add(const TSolveResult& result) {
        nodes += result.workNodes;
        ms += result.elapsedMs;
    }
};

TSolveResult SolvePosition(const TBenchPosition& position, CConsoleDialog& dialog) {
    const TTypedPosition typed = ReadTypedPosition(position.fen);
    TSolveTask task;
    task.m_options.bAllSolutions = position.bAll;
    const CSolveWatcher watcher(task, typed.board, dialog, position.name);
    return StartSolving(task, typed.board, position.moves);
}

constexpr int NameWidth = 22;
constexpr int NumberWidth = 14;

void PrintHead(TConsole& console) {
    console.out << std::left << std::setw(NameWidth) << "Position" << std::right << std::setw(4)
                << "#" << std::setw(6) << "Keys" << std::setw(NumberWidth) << "Nodes"
                << std::setw(10) << "Seconds" << '\n';
}

std::string SecondsText(std::uint64_t ms) {
    const std::string thousandths = std::to_string(1000 + ms % 1000).substr(1);
    return std::to_string(ms / 1000) + '.' + thousandths;
}

void PrintRow(const TBenchPosition& position, const TSolveResult& result, TConsole& console) {
    console.out << std::left << std::setw(NameWidth) << position.name << std::right << std::setw(4)
                << position.moves << std::setw(6) << result.keys.size() << std::setw(NumberWidth)
                << GroupedNumber(result.workNodes) << std::setw(10) << SecondsText(result.elapsedMs)
                << std::endl;
}

void PrintTotal(const TBenchResult& total, TConsole& console) {
    console.out << "\nSearch signature: " << console.style.Bold(std::to_string(total.nodes)) << '\n'
                << "Time:             " << SecondsText(total.ms) << " s\n"
                << "Speed:            " << SpeedText(total.nodes, total.ms, " nodes") << '\n';
}

void PrintJson(const char* name, std::uint64_t nodes, std::uint64_t ms, TConsole& console) {
    console.out << CJsonLine().Add("name", name).Add("nodes", nodes).Add("ms", ms).Line()
                << std::flush;
}

}  // namespace

TExitStatus RunBench(const TBenchArguments& arguments, TConsole& console) {
    TBenchResult total;
    if (!arguments.bJson) {
        PrintHead(console);
    }
    for (const TBenchPosition& position : BenchPositions) {
        const TSolveResult result = SolvePosition(position, console.dialog);
        if (result.status == TSolveStatus::Stopped || StopRequested()) {
            console.dialog.Tell("Stopped: no signature");
            return TExitStatus::Stopped;
        }
        total.Add(result);
        if (arguments.bJson) {
            PrintJson(position.name, result.workNodes, result.elapsedMs, console);
        } else {
            PrintRow(position, result, console);
        }
    }
    if (arguments.bJson) {
        PrintJson("signature", total.nodes, total.ms, console);
    } else {
        PrintTotal(total, console);
    }
    return TExitStatus::Success;
}

}  // namespace tarnwick
