#include "problems/cp_file_reader.h"

#include <algorithm>

#include "chess/trimmed_text.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Utf8Mark = "UTF-8";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view DefaultStart = "//!default";

/// Takes the mark of the encoding off the start of the text: the word "UTF-8" behind blanks, or the
/// three bytes that some editors write. False: the file is in Windows-1250.
bool TakeEncodingMark(std::string_view text, std::size_t& at) {
    const bool bByteOrderMark = text.starts_with(ByteOrderMark);
    at = bByteOrderMark ? ByteOrderMark.size() : 0;
    const std::size_t word = std::min(text.find_first_not_of(" \t", at), text.size());
    if (!text.substr(word).starts_with(Utf8Mark)) {
        return bByteOrderMark;
    }
    at = word + Utf8Mark.size();
    return true;
}

/// Cuts the next word off a line whose words stand between blanks; empty at its end.
std::string_view TakeWord(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(word.size());
    return word;
}

/// "//!default #3 AllSolutions": an option for all problems of that length.
void ReadDefaultClause(std::string_view line, const CCpLexer& lexer, TProblemDefaults& defaults) {
    TakeWord(line);
    const std::string_view stipulation = TakeWord(line);
    const std::string_view option = TakeWord(line);
    if (option.empty() || !TakeWord(line).empty()) {
        throw ChessException(UserText(DefaultClauseFormText));
    }
    int nMoves = -1;
    if (stipulation.starts_with('#')) {
        nMoves = NumberOfTokenOrNone(lexer, stipulation.substr(1), MaxStipulationMoves);
    }
    if (nMoves < 1) {
        throw ChessException(UserText(DefaultClauseNumberText));
    }
    defaults[nMoves].emplace(option);
}

TProblemDefaults ReadDefaults(CCpLexer& lexer) {
    TProblemDefaults defaults;
    while (true) {
        const std::size_t before = lexer.Position();
        const std::string_view token = lexer.NextToken(false, true);
        if (!token.starts_with(DefaultStart)) {
            lexer.SetPosition(before);
            return defaults;
        }
        ReadDefaultClause(token, lexer, defaults);
    }
}

void InsertProblem(std::unique_ptr<TChessProblem> pProblem, TProblemList& list,
                   const TCpReadOptions& options) {
    const int id = pProblem->m_id;
    const bool bReplaced = list.Insert(std::move(pProblem));
    if (bReplaced && options.warning) {
        options.warning("WARINING: Problem id=" + std::to_string(id) +
                        " redefinition - overwriting.");
    }
    if (options.debugLine) {
        options.debugLine("Problem " + std::to_string(id) + " read from file.");
    }
}

void ReadProblems(CCpLexer& lexer, TProblemList& list, const TCpReadOptions& options) {
    const TProblemDefaults defaults = ReadDefaults(lexer);
    while (true) {
        const std::size_t before = lexer.Position();
        if (lexer.NextToken(false, false).empty()) {
            return;
        }
        const std::size_t behindId = lexer.Position();
        lexer.SetPosition(before);
        auto pProblem = std::make_unique<TChessProblem>();
        ReadProblem(*pProblem, lexer, defaults, options.heuristicBitOfName);
        if (options.onProblem) {
            options.onProblem(*pProblem, behindId);
        }
        InsertProblem(std::move(pProblem), list, options);
    }
}

}  // namespace

void ReadProblemFile(const fs::path& path, TProblemList& list, const TCpReadOptions& options) {
    std::error_code ignored;
    const bool bMissing = !fs::exists(path, ignored) || fs::is_directory(path, ignored);
    if (bMissing && options.offerToCreate) {
        options.offerToCreate(path);
    }
    ReadProblemText(ReadFileText(path), FileNameForMessage(path), list, options);
}

void ReadProblemText(std::string_view text, const std::string& fileName, TProblemList& list,
                     const TCpReadOptions& options) {
    std::size_t start = 0;
    const bool bUtf8 = TakeEncodingMark(text, start);
    CCpLexer lexer(text, bUtf8);
    lexer.SetPosition(start);
    try {
        ReadProblems(lexer, list, options);
    } catch (const ChessException& e) {
        throw TProblemFileError(fileName, lexer.LineOfLastToken(), e.what());
    }
}

}  // namespace tarnwick
