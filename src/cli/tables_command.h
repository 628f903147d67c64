#pragma once
// `tarnwick-cli tables`: the tables of precalculated data, from generation to looking things up.

#include <cstdint>
#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TTablesArguments {
    std::vector<std::string> types;  ///< As the user wrote them: "rQ" is Qr.
    int men = 0;       ///< All types of so many men, kings included; 0: the list above.
    std::string data;  ///< Folder of the tables; empty: DefaultTablesFolder.
    std::string fen;
    int count = 10;   ///< Positions of `longest`.
    int threads = 0;  ///< 0: one for each core.
    bool bWithDependencies = false;
    bool bAnew = false;
    bool bPartial = false;
    bool bFix = false;
    bool bBoardRules = false;
    bool bJson = false;
    std::string form = "lzw";  ///< Of `pack`: "lzw", "lz4".
};

TExitStatus RunTablesList(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesInfo(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesGenerate(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesVerify(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesProbe(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesLongest(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesStats(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesPack(const TTablesArguments& arguments, TConsole& console);
TExitStatus RunTablesUnpack(const TTablesArguments& arguments, TConsole& console);

}  // namespace tarnwick
