#include "cli/format_command.h"

#include "cli/cp_output.h"
#include "cli/text_output.h"

namespace tarnwick {

TExitStatus RunFormat(const TFormatArguments& arguments, TConsole& console) {
    const TTextInput text = ReadTextInput(arguments.file);
    if (arguments.bInPlace && (arguments.file == "-" || text.form == TInputForm::Epd)) {
        console.dialog.Tell("--in-place works on problem files. Name a new file with -o.");
        return TExitStatus::WrongUsage;
    }
    TProblemInput input = ReadProblems(text);
    TellRemarks(input, console.dialog);
    if (input.HasFault()) {
        console.dialog.Tell("Nothing was written. Mend the file first.");
        return TExitStatus::Unreadable;
    }
    TellLostOperations(input, console.dialog);
    TellCpLosses(text, input, console.dialog);
    const std::string& target = arguments.bInPlace ? arguments.file : arguments.out;
    return WriteOutput(TakeCpText(input), target, console);
}

}  // namespace tarnwick
