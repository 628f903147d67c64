#pragma once
// `tarnwick-cli lint`: what is wrong or suspicious in problem files, by line, without solving anything.

#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TLintArguments {
    std::vector<std::string> files;
    bool bJson = false;
};

/// Errors make the status Unreadable; warnings do not change it. Every file is looked at.
TExitStatus RunLint(const TLintArguments& arguments, TConsole& console);

}  // namespace tarnwick
