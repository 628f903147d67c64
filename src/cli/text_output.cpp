#include "cli/text_output.h"

#include "base/chess_exception.h"
#include "platform/atomic_file.h"

namespace tarnwick {

TExitStatus WriteOutput(std::string_view bytes, const std::string& target, TConsole& console) {
    if (target.empty() || target == "-") {
        console.out << bytes;
        return TExitStatus::Success;
    }
    try {
        SaveFileAtomically(target, bytes);
        return TExitStatus::Success;
    } catch (const ChessException& error) {
        console.dialog.Tell(error.what());
        return TExitStatus::InternalError;
    }
}

}  // namespace tarnwick
