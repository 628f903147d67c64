#include "app/document/comment_twin.h"

#include <utility>

#include "base/chess_exception.h"

#include "app/document/problem_reading.h"
#include "problems/cp_writer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

bool HasOtherProblems(const fs::path& path, const fs::path& twin) {
    const std::string bare = TextWithoutComments(*ReadAnyProblemFile(twin).pList);
    const TReadFile file = ReadAnyProblemFile(path);
    // The second comparison is for files that another program has laid out in its own way.
    return file.text != bare && TextWithoutComments(*file.pList) != bare;
}

}  // namespace

fs::path TwinOf(const fs::path& path) {
    if (path.extension() != ".cp") {
        return {};
    }
    fs::path twin = path;
    twin += "x";
    return twin;
}

std::string TextWithoutComments(const TProblemList& list) {
    for (TChessProblem* pProblem : list.Problems()) {
        TVariantMap bare;
        for (auto& [key, variant] : pProblem->m_variants) {
            for (TVariantEntry& entry : variant.m_entries) {
                entry.m_comment.clear();
            }
            std::wstring text = variant.ToText();
            bare.insert_or_assign(std::move(text), std::move(variant));
        }
        pProblem->m_variants = std::move(bare);
    }
    return ProblemListToText(list);
}

bool IsTwinOutdated(const fs::path& path) {
    const fs::path twin = TwinOf(path);
    std::error_code fileError;
    std::error_code twinError;
    const auto written = fs::last_write_time(path, fileError);
    const auto twinWritten = fs::last_write_time(twin, twinError);
    if (fileError || twinError || written <= twinWritten) {
        return false;
    }
    try {
        return HasOtherProblems(path, twin);
    } catch (const ChessException&) {
        return false;
    }
}

}  // namespace tarnwick
