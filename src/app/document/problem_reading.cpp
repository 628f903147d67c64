#include "app/document/problem_reading.h"

#include <algorithm>

#include "base/filled_text.h"

#include "app/document/document_texts.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_lexer.h"
#include "problems/epd_reader.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// Opening brackets from the position on: about as many problems follow, since comments are passed
/// over and few descriptions have a bracket. A guess for a warning, so no reason to parse.
int CountOpeningBrackets(std::string_view text, std::size_t position) {
    CCpLexer lexer(text, true);
    lexer.SetPosition(position);
    int count = 0;
    while (true) {
        const std::size_t before = lexer.Position();
        try {
            const std::string_view token = lexer.NextToken(false, false);
            if (token.empty()) {
                return count;
            }
            count += token == "{" ? 1 : 0;
        } catch (const ChessException&) {
            lexer.SetPosition(std::max(lexer.Position(), before + 1));
        }
    }
}

void ReadCp(TReadFile& file, const fs::path& path, const TOnProblemRead& onProblem) {
    std::size_t behindLastId = 0;
    TCpReadOptions options;
    options.heuristicBitOfName = &HeuristicBitOfName;
    options.onProblem = [&](const TChessProblem& problem, std::size_t position) {
        behindLastId = position;
        if (onProblem) {
            onProblem(problem);
        }
    };
    options.warning = [&](const std::string&) { ++file.losses.problems; };
    try {
        ReadProblemText(file.text, FileNameForMessage(path), *file.pList, options);
    } catch (const TProblemFileError& error) {
        file.losses.nLine = error.Line();
        file.losses.fault = error.what();
        // The last problem that was read has its own bracket behind its number.
        const int behind = CountOpeningBrackets(file.text, behindLastId);
        file.losses.problems += std::max(1, file.pList->Size() == 0 ? behind : behind - 1);
    }
}

/// One line of an .epd file with its number in the file.
void ReadEpdLine(TReadFile& file, std::string_view line, int nLine) {
    TEpdFile read;
    try {
        ReadEpdText(line, "", read);
    } catch (const ChessException& error) {
        ++file.losses.problems;
        if (file.losses.nLine == 0) {
            file.losses.nLine = nLine;
            file.losses.fault = error.what();
        }
    }
    for (TEpdProblem& problem : read.problems) {
        problem.pProblem->m_id = static_cast<int>(file.pList->Size()) + 1;
        file.pList->Insert(std::move(problem.pProblem));
    }
}

void ReadEpd(TReadFile& file) {
    std::string_view rest = file.text;
    for (int nLine = 1; !rest.empty(); ++nLine) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        ReadEpdLine(file, rest.substr(0, end), nLine);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

}  // namespace

bool IsEpdName(const fs::path& path) {
    return EqualsIgnoringCase(path.extension().string(), ".epd");
}

TReadFile ReadAnyProblemFile(const fs::path& path, const TOnProblemRead& onProblem) {
    TReadFile file{.pList = std::make_unique<TProblemList>(),
                   .losses = {},
                   .text = ReadFileText(path),
                   .source = path};
    if (IsEpdName(path)) {
        ReadEpd(file);
    } else {
        ReadCp(file, path, onProblem);
    }
    return file;
}

std::string TextOfLosses(const TReadLosses& losses, const fs::path& path, std::size_t nRead) {
    if (losses.problems == 0) {
        return {};
    }
    const std::string lost = std::to_string(losses.problems);
    if (losses.nLine == 0) {
        return FilledText(SameNumberTwiceText, {lost});
    }
    return FilledText(FaultInFileText,
                      {FileNameForMessage(path), std::to_string(losses.nLine), losses.fault}) +
           FilledText(PartialReadText, {std::to_string(nRead), lost});
}

}  // namespace tarnwick
