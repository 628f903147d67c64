#include "app/document/problem_files.h"

#include <cstdio>
#include <utility>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"

#include "app/document/comment_twin.h"
#include "app/document/document_texts.h"
#include "app/document/problem_reading.h"
#include "problems/cp_writer.h"
#include "problems/file_text.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

std::string FreshFileText() {
    return std::string("UTF-8\n1 #2\n{\n\tDesc: ") + UserText(NewDescriptionText) +
           "\n\tWhite: Ke1\n\tBlack: Ke8\n}\n";
}

/// The file that is read for the path: the twin with comments, where there is one.
fs::path SourceOf(const fs::path& path, bool bCommentCompatibilityMode) {
    fs::path twin = TwinOf(path);
    std::error_code ignored;
    return bCommentCompatibilityMode && fs::is_regular_file(twin, ignored) ? twin : path;
}

/// Reads the file into the document. False, and nothing changed, if it cannot be opened.
bool ReadIntoDocument(CDocument& document, const fs::path& path, const TFileHost& host) {
    host.dialog.Progress(UserText(OpeningFileText));
    try {
        TReadFile file = ReadForDocument(path, host.bCommentCompatibilityMode);
        host.dialog.Progress("");
        TakeIntoDocument(document, path, std::move(file), host);
        return true;
    } catch (const ChessException& error) {
        host.dialog.Progress("");
        host.dialog.Tell(error.what());
        return false;
    }
}

/// Old problems are never shown without a word.
TReadFile ReadNewerIfWanted(TReadFile file, const fs::path& path, const TFileHost& host) {
    const std::vector<std::string> names = {FileNameForMessage(path),
                                            FileNameForMessage(file.source.filename())};
    if (!file.bOutdated || !host.dialog.Ask(FilledText(OutdatedTwinText, names))) {
        return file;
    }
    try {
        return ReadAnyProblemFile(path);
    } catch (const ChessException& error) {
        host.dialog.Tell(error.what());
        return file;
    }
}

TSaveAnswer AskToSave(const CDocument& document, const TFileHost& host) {
    const std::string question =
        FilledText(SaveChangesText, {FileNameForMessage(document.Path().filename())});
    if (host.askToSave) {
        return host.askToSave(question);
    }
    if (host.dialog.Ask(question)) {
        return TSaveAnswer::Save;
    }
    return host.dialog.Ask(UserText(DiscardChangesText)) ? TSaveAnswer::Discard
                                                         : TSaveAnswer::Cancel;
}

/// Makes an empty file of the first free number. The name is taken at once, so that two instances of the
/// program never choose the same one.
fs::path TakeFreeName(const fs::path& folder) {
    constexpr int MaxNumber = 1'000'000;
    for (int number = 1; number <= MaxNumber; ++number) {
        fs::path path = folder / (std::to_string(number) + ".cp");
        if (std::FILE* pFile = std::fopen(path.c_str(), "wbx")) {
            std::fclose(pFile);
            return path;
        }
        std::error_code ignored;
        if (!fs::exists(path, ignored)) {
            break;  // not taken by somebody: the folder cannot be written
        }
    }
    throw ChessException(UserText(ErrorSavingText) + (": " + FileNameForMessage(folder)));
}

}  // namespace

bool NewProblemFile(const fs::path& path, const TFileHost& host) {
    std::error_code ignored;
    if (fs::exists(path, ignored) &&
        !host.dialog.Ask(FilledText(FileExistsText, {FileNameForMessage(path)}))) {
        return false;
    }
    try {
        SaveFileAtomically(path, FreshFileText(), TBackup::Keep);
    } catch (const ChessException& error) {
        host.dialog.Tell(UserText(ErrorSavingText) + (std::string(1, '\n') + error.what()));
        return false;
    }
    return true;
}

TReadFile ReadForDocument(const fs::path& path, bool bCommentCompatibilityMode,
                          const TOnProblemRead& onProblem) {
    TReadFile file = ReadAnyProblemFile(SourceOf(path, bCommentCompatibilityMode), onProblem);
    file.bOutdated = file.source != path && IsTwinOutdated(path);
    return file;
}

void TakeIntoDocument(CDocument& document, const fs::path& path, TReadFile read,
                      const TFileHost& host) {
    TReadFile file = ReadNewerIfWanted(std::move(read), path, host);
    const std::string told = TextOfLosses(file.losses, file.source, file.pList->Size());
    document.Watch().Clear();
    document.Watch().Note(file.source, file.text);
    if (file.source != path) {
        document.Watch().NoteAsItIs(path);
    }
    std::error_code ignored;
    fs::path whole = fs::absolute(path, ignored);
    document.Replace(std::move(whole), std::move(file.pList), std::move(file.losses));
    if (!told.empty()) {
        host.dialog.Tell(told);
    }
}

bool StopSolvingOnRequest(const TFileHost& host) {
    if (!host.isSolving || !host.isSolving()) {
        return true;
    }
    if (!host.dialog.Ask(UserText(StopThreadsText))) {
        return false;
    }
    if (host.stopSolving) {
        host.stopSolving();
    }
    return true;
}

bool SettleUnsavedChanges(CDocument& document, const TFileHost& host) {
    if (!document.HasUnsavedChanges()) {
        return true;
    }
    switch (AskToSave(document, host)) {
        case TSaveAnswer::Save:
            return SaveProblemFile(document, document.Path(), host);
        case TSaveAnswer::Discard:
            return true;
        default:
            return false;
    }
}

bool OpenProblemFile(CDocument& document, const fs::path& path, const TFileHost& host) {
    return StopSolvingOnRequest(host) && SettleUnsavedChanges(document, host) &&
           ReadIntoDocument(document, path, host);
}

bool ReloadProblemFile(CDocument& document, const TFileHost& host) {
    const TChessProblem* pShown = document.Current();
    const int id = pShown == nullptr ? -1 : pShown->m_id;
    if (!ReadIntoDocument(document, fs::path(document.Path()), host)) {
        return false;
    }
    document.GoTo(id);
    return true;
}

bool HandleForeignChange(CDocument& document, const TFileHost& host) {
    if (!document.Watch().HasChanged()) {
        return false;
    }
    if (document.HasUnsavedChanges()) {
        host.dialog.Tell(UserText(ChangedUnsavedText));
        return false;
    }
    return host.dialog.Ask(UserText(ChangedReloadText)) && ReloadProblemFile(document, host);
}

bool MakeBackup(const fs::path& path) {
    std::error_code ignored;
    if (!fs::exists(path, ignored)) {
        return false;
    }
    KeepBackupOf(path);
    return true;
}

fs::path WriteTemporaryProblem(const TChessProblem& problem, const fs::path& homeFolder) {
    const fs::path folder = homeFolder / "tmp";
    std::error_code ignored;  // taking a name in it tells
    fs::create_directories(folder, ignored);
    const fs::path path = TakeFreeName(folder);
    SaveFileAtomically(path, "UTF-8\n\n" + ProblemToText(problem));
    return path;
}

}  // namespace tarnwick
