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

#include "app/document/comment_twin.h"
#include "app/document/document_texts.h"
#include "app/document/export_losses.h"
#include "app/document/problem_files.h"
#include "app/document/problem_reading.h"
#include "app/document/same_positions.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"
#include "problems/epd_writer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

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
bool ConfirmForeignFile(const CFileWatch& watch, const fs::path& path, const TFileHost& host) {
    if (!watch.IsForeign(path)) {
        return true;
    }
    const TUserText& question = watch.IsNoted(path) ? ForeignChangeText : FileExistsText;
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

/// None if the user does not want to lose what an .epd file has no form for.
std::vector<TFileContent> EpdContent(const CDocument& document, const fs::path& path,
                                     const TFileHost& host) {
    const std::vector<TChessProblem*> problems = document.Problems().Problems();
    TExportedText exported = EpdOfProblems({problems.begin(), problems.end()});
    if (!exported.losses.empty() && !host.dialog.Ask(QuestionAboutLosses(exported))) {
        return {};
    }
    return {{path, std::move(exported.text)}};
}

/// The files to write; none if the user gives up.
std::vector<TFileContent> ContentsOf(const TSaveJob& job, const TFileHost& host) {
    std::string reason;
    const std::unique_ptr<TProblemList> pAgain = ReadAgain(job.text, reason);
    if (pAgain == nullptr && !host.dialog.Ask(FilledText(NotReadableAgainText, {reason}))) {
        return {};
    }
    fs::path twin = TwinOf(job.path);
    if (!host.bCommentCompatibilityMode || twin.empty() || pAgain == nullptr) {
        return {{job.path, job.text}};
    }
    return {{std::move(twin), job.text}, {job.path, TextWithoutComments(*pAgain)}};
}

/// From now on only what was saved is watched: after "Save as" the file before is somebody else's.
CFileWatch WatchOf(const std::vector<TFileContent>& contents) {
    CFileWatch watch;
    for (const TFileContent& content : contents) {
        watch.Note(content.path, content.text);
    }
    return watch;
}

bool WriteContents(TSaveJob& job, const TFileHost& host) {
    host.dialog.Progress(UserText(SavingFileText));
    std::string error;
    try {
        for (const TFileContent& content : job.contents) {
            SaveFileAtomically(content.path, content.text, TBackup::Keep);
            job.watch.Note(content.path, content.text);
        }
        job.watch = WatchOf(job.contents);
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

bool ConfirmSave(const CDocument& document, const fs::path& path, const TFileHost& host) {
    return ConfirmRepeatedPositions(document, host) && ConfirmLosses(document, path, host);
}

bool RunSave(TSaveJob& job, const TFileHost& host) {
    if (job.contents.empty()) {
        job.contents = ContentsOf(job, host);
    }
    const bool bConfirmed =
        !job.contents.empty() && std::ranges::all_of(job.contents, [&](const auto& content) {
            return ConfirmForeignFile(job.watch, content.path, host);
        });
    return bConfirmed && WriteContents(job, host);
}

void FinishSave(CDocument& document, TSaveJob job, bool bSaved) {
    document.Watch() = std::move(job.watch);
    if (bSaved && document.Revision() == job.nRevision) {
        document.MarkSaved(job.path);
    }
}

bool SaveProblemFile(CDocument& document, const fs::path& path, const TFileHost& host) {
    std::error_code ignored;
    const fs::path whole = fs::absolute(path, ignored);
    if (!ConfirmSave(document, whole, host)) {
        return false;
    }
    TSaveJob job{.path = whole,
                 .text = {},
                 .nRevision = document.Revision(),
                 .watch = document.Watch(),
                 .contents = {}};
    if (!IsEpdName(whole)) {
        job.text = ProblemListToText(document.Problems());
    } else if ((job.contents = EpdContent(document, whole, host)).empty()) {
        return false;
    }
    const bool bSaved = RunSave(job, host);
    FinishSave(document, std::move(job), bSaved);
    return bSaved;
}

}  // namespace tarnwick
