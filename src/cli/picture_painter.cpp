#include "cli/picture_painter.h"

#include <filesystem>
#include <optional>

#include "base/chess_exception.h"
#include "platform/run_program.h"

#include "diagram/picture_frames.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr const char* PainterName = "tarnwick";

std::string PainterProgram() {
    const fs::path here = FolderOfThisProgram();
    constexpr const char* FolderInBuildTree = "../app/shell";
    for (const fs::path& folder : {here, here / FolderInBuildTree}) {
        std::error_code ignored;
        const fs::path program = folder / PainterName;
        if (!here.empty() && fs::is_regular_file(program, ignored)) {
            return program.string();
        }
    }
    return PainterName;
}

[[noreturn]] void ThrowNotPainted(const std::string& program) {
    throw ChessException(
        "PNG pictures are painted by the program with the window, and '" + program +
        "' is missing or did not do it. Install Tarnwick with its window, or write SVG: choose a "
        "name that ends in .svg.");
}

}  // namespace

std::vector<std::string> PaintPngs(std::span<const std::string> svgs) {
    std::string input;
    for (const std::string& svg : svgs) {
        input += PictureFrame(svg);
    }
    const std::string program = PainterProgram();
    const std::optional<std::string> output =
        RunProgram({.words = {program, "--paint-pictures"}, .input = input});
    if (!output) {
        ThrowNotPainted(program);
    }
    std::vector<std::string> pngs;
    std::string_view rest = *output;
    while (const std::optional<std::string_view> png = TakePictureFrame(rest)) {
        pngs.emplace_back(*png);
        if (png->empty()) {
            ThrowNotPainted(program);
        }
    }
    if (pngs.size() != svgs.size()) {
        ThrowNotPainted(program);
    }
    return pngs;
}

}  // namespace tarnwick
