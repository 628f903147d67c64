#include "cli/diagram_command.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <vector>

#include "base/encoding.h"
#include "platform/stop_signals.h"

#include "cli/picture_painter.h"
#include "cli/problem_input.h"
#include "cli/text_output.h"
#include "diagram/diagram_fen.h"
#include "problems/cp_lexer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view NumberSign = "%d";
/// Painted by one start of the other program; a batch is in memory at once.
constexpr std::size_t PicturesInBatch = 32;

struct TDiagram {
    std::string svg;
    std::string fen;
    std::string target;  ///< Empty: standard output.
};

bool HasEnding(const std::string& name, std::string_view ending) {
    return EqualsIgnoringCase(fs::path(name).extension().string(), ending);
}

bool IsFolder(const std::string& name) {
    std::error_code ignored;
    return name.ends_with('/') || fs::is_directory(name, ignored);
}

/// "#3" or "s#2"; empty for a position.
std::string StipulationSign(const TChessProblem& problem) {
    if (problem.m_type == TProblemType::Position) {
        return "";
    }
    const char* sign = problem.m_type == TProblemType::SelfMate ? "s#" : "#";
    return sign + std::to_string(MovesOfStipulation(problem));
}

std::string TargetOf(const std::string& output, int id) {
    if (output == "-") {
        return "";
    }
    const std::string number = std::to_string(id);
    if (!output.empty() && IsFolder(output)) {
        return (fs::path(output) / ("problem-" + number + ".svg")).string();
    }
    const std::size_t sign = output.find(NumberSign);
    return sign == std::string::npos
               ? output
               : output.substr(0, sign) + number + output.substr(sign + NumberSign.size());
}

/// What is wrong with the output's name for so many pictures; empty: nothing.
std::string FaultOfOutput(const std::string& output, std::size_t count) {
    const bool bStream = output.empty() || output == "-";
    const bool bFolder = !bStream && IsFolder(output);
    if (!bStream && !bFolder && !HasEnding(output, ".svg") && !HasEnding(output, ".png")) {
        return "The name of a picture ends in .svg or .png: '" + ToValidUtf8(output) +
               "' does not, and there is no folder of that name.";
    }
    if (count > 1 && !bFolder && output.find(NumberSign) == std::string::npos) {
        return std::to_string(count) +
               " pictures need names of their own: give a folder, or a name with %d for the "
               "number, like --output 'problem-%d.svg'; or choose one problem with --id.";
    }
    return "";
}

TDiagram DiagramOf(const TChessProblem& problem, const TDiagramArguments& arguments) {
    TDiagramOptions options = arguments.picture;
    options.title = ToUtf8(problem.m_description);
    options.fen = DiagramFen(*problem.m_pBoard);
    if (arguments.bStipulation) {
        options.stipulation = StipulationSign(problem);
    }
    return {.svg = DiagramSvg(*problem.m_pBoard, options),
            .fen = options.fen,
            .target = TargetOf(arguments.output, problem.m_id)};
}

/// As it was typed: with Black to move the picture is not the one of a problem, which White begins.
TDiagram TypedDiagram(const TDiagramArguments& arguments) {
    const TTypedPosition typed = ReadTypedPosition(arguments.fen);
    TDiagramOptions options = arguments.picture;
    options.fen = DiagramFen(typed.board, arguments.fen);
    return {.svg = DiagramSvg(typed.board, options),
            .fen = options.fen,
            .target = TargetOf(arguments.output, 1)};
}

TExitStatus WriteBatch(std::span<const TDiagram> diagrams, TConsole& console) {
    std::vector<std::string> svgs;
    for (const TDiagram& diagram : diagrams) {
        if (HasEnding(diagram.target, ".png")) {
            svgs.push_back(diagram.svg);
        }
    }
    const std::vector<std::string> pngs =
        svgs.empty() ? std::vector<std::string>() : PaintPngs(svgs);
    auto png = pngs.begin();
    for (const TDiagram& diagram : diagrams) {
        const bool bPng = HasEnding(diagram.target, ".png");
        const std::string bytes = bPng ? AddFenToPng(*png++, diagram.fen) : diagram.svg;
        const TExitStatus status = WriteOutput(bytes, diagram.target, console);
        if (status != TExitStatus::Success) {
            return status;
        }
    }
    return TExitStatus::Success;
}

TExitStatus DrawTyped(const TDiagramArguments& arguments, TConsole& console) {
    const TDiagram diagram = TypedDiagram(arguments);
    return WriteBatch({&diagram, 1}, console);
}

TExitStatus DrawProblems(const std::vector<TInputProblem>& problems,
                         const TDiagramArguments& arguments, TConsole& console) {
    for (std::size_t done = 0; done < problems.size(); done += PicturesInBatch) {
        if (StopRequested() || !console.out) {
            return TExitStatus::Stopped;
        }
        std::vector<TDiagram> batch;
        const std::size_t end = std::min(done + PicturesInBatch, problems.size());
        for (std::size_t i = done; i < end; ++i) {
            batch.push_back(DiagramOf(*problems[i].pProblem, arguments));
        }
        const TExitStatus status = WriteBatch(batch, console);
        if (status != TExitStatus::Success) {
            return status;
        }
    }
    return TExitStatus::Success;
}

bool IsRefused(const std::string& output, std::size_t count, TConsole& console) {
    const std::string fault = FaultOfOutput(output, count);
    if (!fault.empty()) {
        console.dialog.Tell(fault);
    }
    return !fault.empty();
}

}  // namespace

TExitStatus RunDiagram(const TDiagramArguments& arguments, TConsole& console) {
    if (arguments.file.empty()) {
        return IsRefused(arguments.output, 1, console) ? TExitStatus::WrongUsage
                                                       : DrawTyped(arguments, console);
    }
    const CIdList ids = CIdList::Parse(arguments.ids);
    TProblemInput input = ReadProblems(ReadTextInput(arguments.file));
    TellRemarks(input, console.dialog);
    TExitStatus status = input.HasFault() ? TExitStatus::Unreadable : TExitStatus::Success;
    if (!SelectProblems(input, ids, console.dialog) && !ids.IsEmpty()) {
        return WorseOf(status, TExitStatus::WrongUsage);
    }
    if (IsRefused(arguments.output, input.problems.size(), console)) {
        return WorseOf(status, TExitStatus::WrongUsage);
    }
    TellExchangedColours(input, console.dialog);
    return WorseOf(status, DrawProblems(input.problems, arguments, console));
}

}  // namespace tarnwick
