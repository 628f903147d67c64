#pragma once
// `tarnwick-cli diagram`: positions as pictures.

#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "diagram/diagram_svg.h"

namespace tarnwick {

struct TDiagramArguments {
    std::string file;  ///< "-": standard input. Empty: the position is in `fen`.
    std::string fen;
    std::string ids;  ///< "1,4-9"; empty: all.
    std::string
        output;  ///< A file .svg or .png, "%d" in it being the number, or a folder. Empty or "-":
                 ///< standard output, as SVG.
    bool bStipulation = false;
    TDiagramOptions picture;  ///< Without the texts, which come from the problem.
};

TExitStatus RunDiagram(const TDiagramArguments& arguments, TConsole& console);

}  // namespace tarnwick
