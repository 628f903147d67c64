// Saving, in the order that loses nothing: questions first, then the text is made and read again in
// memory (a text that our own reader refuses would cost the user the file), then the file is replaced
// in the steps of platform/atomic_file.cpp, which read it back once more from the disk.

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"

#include "app/document/document_texts.h"
#include "app/document/problem_files.h"
#include "app/document/problem_reading.h"
#include "app/document/same_positions.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// A file that a save writes.
struct TTarget {
    fs::path path;
    std::string text;
};

std::string ProblemLine(const TChessProblem& problem) {
    std::string line = std::to_string(problem.m_id) + ": ";
    if (const int nMoves = MovesOfStipulation(problem); nMoves > 0) {
        line += '#' + std::to_string(nMoves) + ' ';
    }
    return line + ToUtf8(problem.m_description) + '\n';
}

/// A line for each problem whose position an unsaved one repeats. Not more than a message can show.
std::string RepeatedPositions(const CDocument& document) {
    constexpr int MaxLines = 20;
    const TProblemsByPosition problems = ProblemsByPosition(document.Problems());
    std::string lines;
    int count = 0;
    for (const int id : document.UnsavedIds()) {
        if (!document.HasUnsavedPosition(id)) {
            continue;
        }
        const TChessProblem& unsaved = *document.Problems().Find(id);
        for (const TChessProblem* pSame : problems.at(PlacementOf(*unsaved.m_pBoard))) {
            const bool bOther = pSame->m_id != id;
            if (bOther && ++count <= MaxLines) {
                lines += ProblemLine(*pSame);
            }
        }
    }
    if (count > MaxLines) {
        lines += FilledText(AndMoreText, {std::to_string(count - MaxLines)}) + '\n';
    }
    lines.resize(lines.empty() ? 0 : lines.size() - 1);
    return lines;
}

bool ConfirmRepeatedPositions(const CDocument& document, const TFileHost& host) {
    const std::string lines = RepeatedPositions(document);
    return lines.empty() ||
           host.dialog.Ask(UserText(SamePositionText) + lines + UserText(SaveAnywayText));
}

bool ConfirmLosses(const CDocument& document, const fs::path& path, const TFileHost& host) {
    std::error_code ignored;
    const bool bSameFile =
        path == document.Path() || fs::equivalent(path, document.Path(), ignored);
    const int lost = document.Losses().problems;
    return lost == 0 || !bSameFile ||
           host.dialog.Ask(
               FilledText(LossesText, {FileNameForMessage(path), std::to_string(lost)}));
}

/// Other people's content is only replaced with the user's consent. A file that this document was never
/// read from or saved to is asked about in other words.
bool ConfirmForeignFile(CDocument& document, const fs::path& path, const TFileHost& host) {
    if (!document.Watch().IsForeign(path)) {
        return true;
    }
    const TUserText& question = document.Watch().IsNoted(path) ? ForeignChangeText : FileExistsText;
    return host.dialog.Ask(FilledText(question, {FileNameForMessage(path)}));
}

/// Reads what is to be saved as the next opening of the file will. Null, and the reason, if that fails
/// or gives other problems.
std::unique_ptr<TProblemList> ReadAgain(const std::string& text, std::string& reason) {
    auto pList = std::make_unique<TProblemList>();
    try {
        ReadProblemText(text, "", *pList, {.heuristicBitOfName = &HeuristicBitOfName});
    } catch (const TProblemFileError& error) {
        reason = error.what();
        return nullptr;
    }
    if (ProblemListToText(*pList) != text) {
        reason = UserText(NotTheSameAgainText);
        return nullptr;
    }
    return pList;
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

/// The files to write; none if the user gives up.
std::vector<TTarget> TargetsOf(const CDocument& document, const fs::path& path,
                               const TFileHost& host) {
    std::string text = ProblemListToText(document.Problems());
    std::string reason;
    const std::unique_ptr<TProblemList> pAgain = ReadAgain(text, reason);
    if (pAgain == nullptr && !host.dialog.Ask(FilledText(NotReadableAgainText, {reason}))) {
        return {};
    }
    if (!host.bCommentCompatibilityMode || path.extension() != ".cp" || pAgain == nullptr) {
        return {{path, std::move(text)}};
    }
    fs::path twin = path;
    twin += "x";
    return {{std::move(twin), std::move(text)}, {path, TextWithoutComments(*pAgain)}};
}

bool WriteTargets(CDocument& document, const std::vector<TTarget>& targets, const TFileHost& host) {
    host.dialog.Progress(UserText(SavingFileText));
    std::string error;
    try {
        for (const TTarget& target : targets) {
            SaveFileAtomically(target.path, target.text, TBackup::Keep);
            document.Watch().Note(target.path, target.text);
        }
    } catch (const ChessException& exception) {
        error = exception.what();
    }
    host.dialog.Progress("");
    if (!error.empty()) {
        host.dialog.Tell(UserText(ErrorSavingText) + ('\n' + error));
    }
    return error.empty();
}

}  // namespace

bool SaveProblemFile(CDocument& document, const fs::path& path, const TFileHost& host) {
    if (IsEpdName(path)) {
        host.dialog.Tell(UserText(EpdNotWrittenText));
        return false;
    }
    std::error_code ignored;
    const fs::path whole = fs::absolute(path, ignored);
    if (!ConfirmRepeatedPositions(document, host) || !ConfirmLosses(document, whole, host)) {
        return false;
    }
    const std::vector<TTarget> targets = TargetsOf(document, whole, host);
    const bool bConfirmed = !targets.empty() && std::ranges::all_of(targets, [&](const auto& t) {
        return ConfirmForeignFile(document, t.path, host);
    });
    if (!bConfirmed || !WriteTargets(document, targets, host)) {
        return false;
    }
    document.MarkSaved(whole);
    return true;
}

}  // namespace tarnwick
