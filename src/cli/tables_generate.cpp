// `tables generate`: makes tables, each behind those that it needs.

#include <algorithm>

#include "platform/clock.h"

#include "cli/json_line.h"
#include "cli/tables_support.h"
#include "cli/text_style.h"
#include "tables/generation/table_factory.h"

namespace tarnwick {
namespace {

/// "Qr: captures looked up 34.5%, 0.9 s left"; "Qr: mate in 17, 12,345 positions so far".
std::string ProgressText(const std::string& type, const TGenerationProgress& progress,
                         std::int64_t elapsedMs) {
    if (!progress.bPreparing) {
        return type + ": mate in " + std::to_string(progress.pass) + ", " +
               GroupedNumber(progress.found) + " positions so far";
    }
    const auto permille = static_cast<int>(progress.prepared * 1000);
    std::string text = type + ": moves counted and captures looked up " +
                       std::to_string(permille / 10) + '.' + std::to_string(permille % 10) + '%';
    if (progress.prepared > 0.02) {
        const double left = static_cast<double>(elapsedMs) * (1 / progress.prepared - 1);
        text += ", " + DurationText(static_cast<std::uint64_t>(left)) + " left for this";
    }
    return text;
}

void TellPlan(const std::vector<TPlannedTable>& plan, TConsole& console) {
    std::uint64_t files = 0;
    std::uint64_t memory = 0;
    std::string types;
    for (const TPlannedTable& planned : plan) {
        files += planned.fileBytes;
        memory = std::max(memory, planned.memoryBytes);
        types += (types.empty() ? "" : " ") + planned.type + (planned.bGoesOn ? " (goes on)" : "");
    }
    console.dialog.Tell(CountText(plan.size(), "table") + " to make: " + types + "; " +
                        BytesText(files) + " on disk, at most " + BytesText(memory) +
                        " of memory. Ctrl-C stops; the same command goes on.");
}

void ReportTable(const TPlannedTable& planned, const TMadeTable& made, std::uint64_t milliseconds,
                 bool bJson, TConsole& console) {
    if (bJson) {
        console.out << CJsonLine()
                           .Add("type", planned.type)
                           .Add("complete", made.bComplete)
                           .Add("longest", static_cast<int>(made.longestMate))
                           .Add("ms", milliseconds)
                           .Add("bytes", planned.fileBytes)
                           .Add("memory", planned.memoryBytes)
                           .Add("file", made.path.string())
                           .Line()
                    << std::flush;
        return;
    }
    std::string text =
        planned.type + std::string(8 - std::min<std::size_t>(7, planned.type.size()), ' ');
    text += made.longestMate == 0 ? "no mate" : "longest mate #" + std::to_string(made.longestMate);
    text += "  " + DurationText(milliseconds) + "  " + made.path.string();
    console.out << text << (made.bComplete ? "" : console.style.Warning("  stopped")) << '\n'
                << std::flush;
}

}  // namespace

TExitStatus RunTablesGenerate(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    const CStopFlag stop;
    std::string type;
    std::int64_t startMs = 0;
    std::int64_t shownMs = 0;
    TGenerationSettings settings;
    settings.threads = ThreadsOf(arguments);
    settings.pControl = &stop.Control();
    settings.report = [&](const TGenerationProgress& progress) {
        const std::int64_t now = NowMs();
        if (now - shownMs >= 100) {
            shownMs = now;
            console.dialog.Progress(ProgressText(type, progress, now - startMs));
        }
    };
    CTableFactory factory(folders, settings);
    const auto plan =
        factory.Plan(TypesOf(arguments), arguments.bWithDependencies, arguments.bAnew);
    if (plan.empty()) {
        console.dialog.Tell(
            "Nothing to do: all of these tables are there. --anew makes them again.");
        return TExitStatus::Success;
    }
    TellPlan(plan, console);
    for (const TPlannedTable& planned : plan) {
        type = planned.type;
        startMs = NowMs();
        const TMadeTable made = factory.Make(planned);
        console.dialog.Progress("");
        ReportTable(planned, made, static_cast<std::uint64_t>(NowMs() - startMs), arguments.bJson,
                    console);
        if (!made.bComplete) {
            return TExitStatus::Stopped;
        }
    }
    return TExitStatus::Success;
}

}  // namespace tarnwick
