// tarnwick-cli: the program in the terminal.

#include <exception>
#include <iostream>
#include <new>

#include "base/chess_exception.h"
#include "platform/stop_signals.h"

#include "cli/command_line.h"

namespace tarnwick {
namespace {

TExitStatus RunAndTellErrors(int argc, const char* const* argv, TConsole& console) {
    try {
        return RunCommandLine(argc, argv, console);
    } catch (const ChessException& error) {
        console.dialog.Tell(error.what());
        return TExitStatus::Unreadable;
    } catch (const std::bad_alloc&) {
        console.dialog.Tell("Out of memory. Try less of it (--memory) or a smaller file.");
    } catch (const std::exception& error) {
        console.dialog.Tell(std::string("Internal error: ") + error.what());
    }
    return TExitStatus::InternalError;
}

TExitStatus RunProgram(int argc, const char* const* argv) {
    std::ios::sync_with_stdio(false);
    const bool bDrawing = IsTerminal(TStandardStream::Output) && LocaleIsUtf8();
    TConsole console{.out = std::cout,
                     .style = CTextStyle(WantsEmphasis(TStandardStream::Output)),
                     .boardStyle = bDrawing ? TBoardStyle::Letters : TBoardStyle::Ascii};
    const TExitStatus status = RunAndTellErrors(argc, argv, console);
    if (!std::cout.flush()) {
        console.dialog.Tell("Cannot write to standard output. Is the disk full?");
        return TExitStatus::InternalError;
    }
    return status;
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
    tarnwick::InstallStopSignals();
    return static_cast<int>(tarnwick::RunProgram(argc, argv));
}
