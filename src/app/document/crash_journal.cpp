#include "app/document/crash_journal.h"

#include <sstream>
#include <string_view>
#include <utility>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"
#include "platform/clock.h"
#include "platform/live_process.h"

#include "app/document/document_texts.h"
#include "app/settings/application_log.h"
#include "chess/fen.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view NamePrefix = "unsaved-";
constexpr std::string_view NameEnd = ".cp";
constexpr std::string_view FileLine = "// unsaved edits of: ";
constexpr std::string_view RemovedLine = "// removed:";
/// The changed problems as they are in the file. Older journals have no such line.
constexpr std::string_view BeforeLine = "// changed:";
constexpr int HeadLines = 4;

/// A file's name may hold anything, a line of comment no line end.
std::string Escaped(const std::string& name) {
    std::string escaped;
    for (const char c : name) {
        if (c == '\n' || c == '\r' || c == '%') {
            escaped += c == '\n' ? "%n" : c == '\r' ? "%r" : "%%";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string Unescaped(std::string_view escaped) {
    std::string name;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] == '%' && i + 1 < escaped.size()) {
            const char code = escaped[++i];
            name += code == 'n' ? '\n' : code == 'r' ? '\r' : code;
        } else {
            name += escaped[i];
        }
    }
    return name;
}

/// The rest of the first line that begins like this; nothing if there is none in front of the problems.
std::optional<std::string> HeadLine(const std::string& text, std::string_view begin) {
    std::istringstream lines(text);
    std::string line;
    for (int i = 0; i < HeadLines && std::getline(lines, line); ++i) {
        if (line.starts_with(begin)) {
            return line.substr(begin.size());
        }
    }
    return std::nullopt;
}

/// The process that wrote the file; empty for a file that is no journal.
std::string ProcessOf(const fs::path& path) {
    const std::string name = path.filename().string();
    if (!name.starts_with(NamePrefix) || !name.ends_with(NameEnd)) {
        return {};
    }
    const std::size_t end = name.find('.');
    return name.substr(NamePrefix.size(), end - NamePrefix.size());
}

/// " 3=7k/8/5K2/8/8/8/8/R7 5=..."
std::string TextOfPlacements(const TPlacements& placements) {
    std::string text;
    for (const auto& [id, placement] : placements) {
        text += ' ' + std::to_string(id) + '=' + placement;
    }
    return text;
}

/// Older journals have numbers alone: their placements are empty.
TPlacements PlacementsOf(const std::string& text) {
    TPlacements placements;
    std::istringstream words(text);
    int id = 0;
    while (words >> id) {
        std::string& placement = placements[id];
        if (words.peek() == '=') {
            words.ignore();
            words >> placement;
        }
    }
    return placements;
}

/// Whether the document has the very problem under that number.
bool HasProblem(const CDocument& document, int id, const std::string& placement) {
    const TChessProblem* const pProblem = document.Problems().Find(id);
    return pProblem != nullptr && WriteFen(*pProblem->m_pBoard, true) == placement;
}

void RemoveQuietly(const fs::path& path) {
    std::error_code ignored;
    fs::remove(path, ignored);
}

bool IsSameFile(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return a == b || fs::equivalent(a, b, ignored);
}

/// Opens the file that the work belongs to. If it is gone, the recovered problems become a new one.
bool OpenFileOf(const TLostWork& work, CDocument& document, const TFileHost& host) {
    std::error_code ignored;
    if (IsSameFile(work.problemFile, document.Path())) {
        return true;
    }
    if (fs::exists(work.problemFile, ignored)) {
        return OpenProblemFile(document, work.problemFile, host);
    }
    if (!StopSolvingOnRequest(host) || !SettleUnsavedChanges(document, host)) {
        return false;
    }
    document.Watch().Clear();
    document.Replace(work.problemFile, std::make_unique<TProblemList>(), {});
    return true;
}

/// Whoever knows the format may still find in it what could not be read. The name is offered no more.
void KeepDamaged(const fs::path& journal, const TFileHost& host) {
    const fs::path kept = fs::path(journal) += ".damaged";
    std::error_code ignored;
    fs::rename(journal, kept, ignored);
    host.dialog.Tell(FilledText(DamagedJournalText, {kept.string()}));
}

void TellRenumbered(const std::map<int, int>& renumbered, const TFileHost& host) {
    std::string numbers;
    for (const auto& [before, now] : renumbered) {
        numbers += (numbers.empty() ? "" : ", ") + std::to_string(before) + " \u2192 " +
                   std::to_string(now);
    }
    if (!numbers.empty()) {
        host.dialog.Tell(UserText(RenumberedText) + numbers);
    }
}

}  // namespace

std::string JournalText(const CDocument& document) {
    std::string text = "UTF-8\n" + std::string(FileLine) + Escaped(document.Path().string()) +
                       '\n' + std::string(RemovedLine);
    TPlacements before;
    for (const int id : document.UnsavedIds()) {
        if (std::optional<std::string> placement = document.SavedPlacement(id)) {
            before.emplace(id, *std::move(placement));
        }
    }
    text += TextOfPlacements(document.Removed()) + '\n' + std::string(BeforeLine) +
            TextOfPlacements(before) + '\n';
    for (const int id : document.UnsavedIds()) {
        text += '\n' + ProblemToText(*document.Problems().Find(id));
    }
    return text;
}

std::optional<TLostWork> ReadJournal(const std::string& text) {
    const std::optional<std::string> file = HeadLine(text, FileLine);
    const std::optional<std::string> removed = HeadLine(text, RemovedLine);
    if (!file || !removed) {
        return std::nullopt;
    }
    TLostWork work{.problemFile = Unescaped(*file),
                   .removed = PlacementsOf(*removed),
                   .pChanged = std::make_unique<TProblemList>(),
                   .before = {}};
    try {
        ReadProblemText(text, "", *work.pChanged, {.heuristicBitOfName = &HeuristicBitOfName});
    } catch (const ChessException&) {
        work.bDamaged = true;
    }
    if (const std::optional<std::string> before = HeadLine(text, BeforeLine)) {
        work.before = PlacementsOf(*before);
    } else {  // from an older version: problems whose men were moved come back as new ones
        for (const TChessProblem* pChanged : work.pChanged->Problems()) {
            work.before.emplace(pChanged->m_id, WriteFen(*pChanged->m_pBoard, true));
        }
    }
    return work;
}

std::map<int, int> ApplyLostWork(CDocument& document, TLostWork work) {
    std::map<int, int> renumbered;
    std::vector<int> added;
    for (const TChessProblem* pChanged : work.pChanged->Problems()) {
        const int id = pChanged->m_id;
        const auto before = work.before.find(id);
        if (before != work.before.end() && HasProblem(document, id, before->second)) {
            document.EditProblem(
                id, [&](TChessProblem& problem) { RestoreState(problem, StateOf(*pChanged)); });
        } else {
            added.push_back(id);
        }
    }
    for (const int id : added) {
        const int newId = document.Add(work.pChanged->Remove(id));
        if (newId != id && work.before.contains(id)) {
            renumbered.emplace(id, newId);
        }
    }
    // Last, so that new problems get the numbers that they had.
    for (const auto& [id, placement] : work.removed) {
        if (HasProblem(document, id, placement)) {
            document.Take(id);
        }
    }
    return renumbered;
}

CCrashJournal::CCrashJournal(fs::path folder, fs::path log)
    : m_folder(std::move(folder)),
      m_log(std::move(log)),
      m_path(m_folder / (std::string(NamePrefix) + NameOfThisProcess() + std::string(NameEnd))),
      m_nLastTryMs(NowMs() - IntervalMs) {}

bool CCrashJournal::Update(const CDocument& document) {
    if (document.Revision() == m_nWrittenRevision || NowMs() - m_nLastTryMs < IntervalMs) {
        return true;
    }
    return WriteNow(document);
}

bool CCrashJournal::WriteNow(const CDocument& document) {
    m_nLastTryMs = NowMs();
    if (!document.HasUnsavedChanges()) {
        RemoveQuietly(m_path);
        m_nWrittenRevision = document.Revision();
        return true;
    }
    try {
        std::error_code ignored;  // saving tells
        fs::create_directories(m_folder, ignored);
        SaveFileAtomically(m_path, JournalText(document));
    } catch (const ChessException&) {
        return false;
    }
    m_nWrittenRevision = document.Revision();
    return true;
}

void CCrashJournal::Close() {
    RemoveQuietly(m_path);
}

std::vector<fs::path> CCrashJournal::JournalsOfTheDead() const {
    std::vector<fs::path> journals;
    std::error_code error;
    for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string process = ProcessOf(entry->path());
        if (process.empty()) {
            continue;
        }
        switch (LifeOfProcess(process)) {
            case TProcessLife::Alive:
                break;
            case TProcessLife::Dead:
                journals.push_back(entry->path());
                break;
            case TProcessLife::Unknown:
                if (!m_log.empty()) {
                    LogApplicationEvent(m_log, "Left alone, perhaps still in use elsewhere: %s",
                                        entry->path().string());
                }
                break;
        }
    }
    return journals;
}

bool CCrashJournal::OfferLostWork(CDocument& document, const TFileHost& host) {
    bool bRecovered = false;
    int number = 0;
    for (const fs::path& journal : JournalsOfTheDead()) {
        fs::path taken = m_path;
        taken.replace_extension("." + std::to_string(++number) + std::string(NameEnd));
        std::error_code error;
        fs::rename(journal, taken, error);
        if (!error) {
            bRecovered |= Recover(taken, document, host);
        }
    }
    return bRecovered;
}

bool CCrashJournal::Recover(const fs::path& journal, CDocument& document, const TFileHost& host) {
    std::optional<TLostWork> work;
    try {
        work = ReadJournal(ReadFileText(journal));
    } catch (const ChessException&) {
    }
    if (!work) {
        return false;
    }
    const std::size_t count = work->pChanged->Size() + work->removed.size();
    if (!host.dialog.Ask(FilledText(
            LostWorkText, {FileNameForMessage(work->problemFile), std::to_string(count)}))) {
        RemoveQuietly(journal);
        return false;
    }
    if (!OpenFileOf(*work, document, host)) {
        return false;  // the journal has this process's name now: it is offered again after its end
    }
    const bool bDamaged = work->bDamaged;
    TellRenumbered(ApplyLostWork(document, *std::move(work)), host);
    if (bDamaged) {
        KeepDamaged(journal, host);
    } else if (WriteNow(document)) {
        RemoveQuietly(journal);
    }
    return true;
}

}  // namespace tarnwick
