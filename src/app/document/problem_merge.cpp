#include "app/document/problem_merge.h"

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

#include "base/chess_exception.h"

#include "app/document/document_texts.h"
#include "app/document/problem_reading.h"
#include "app/document/same_positions.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// Nothing if the file cannot be read; the user has been told. What a faulty file has in front of the
/// fault counts.
std::optional<TReadFile> ReadOther(const fs::path& path, const TFileHost& host) {
    try {
        TReadFile file = ReadAnyProblemFile(path);
        const std::string losses = TextOfLosses(file.losses, path, file.pList->Size());
        if (!losses.empty()) {
            host.dialog.Tell(losses);
        }
        return file;
    } catch (const ChessException& error) {
        host.dialog.Tell(error.what());
        return std::nullopt;
    }
}

/// "5 #3 vs. #4" for a problem here and one in the other file; empty if they ask for the same.
std::string StipulationPair(const TChessProblem& here, const TChessProblem& there) {
    if (here.m_type == there.m_type && here.m_shPlies == there.m_shPlies) {
        return {};
    }
    return std::to_string(here.m_id) + ": #" + std::to_string(MovesOfStipulation(here)) + " vs. #" +
           std::to_string(MovesOfStipulation(there)) + '\n';
}

struct TAppended {
    std::vector<int> ids;
    std::string pairs;  ///< A line each.
};

/// A position that the other file has twice comes once.
TAppended MoveNewProblems(CDocument& document, TProblemList& other) {
    TAppended appended;
    TProblemsByPosition here = ProblemsByPosition(document.Problems());
    for (const TChessProblem* pOther : other.Problems()) {
        const std::string_view placement = PlacementOf(*pOther->m_pBoard);
        const auto found = here.find(placement);
        if (found == here.end()) {
            here[placement].push_back(pOther);  // the record stays where it is, and so does the key
            appended.ids.push_back(document.Add(other.Remove(pOther->m_id)));
        } else if (std::ranges::none_of(found->second, [&](const TChessProblem* p) {
                       return StipulationPair(*p, *pOther).empty();
                   })) {
            appended.pairs += StipulationPair(*found->second.front(), *pOther);
        }
    }
    return appended;
}

/// Tells the result. True: the changes stay, saved if that was possible.
bool KeepChanges(CDocument& document, const std::string& result, bool bAnyChange,
                 const TFileHost& host) {
    if (!bAnyChange) {
        host.dialog.Tell(result);
        return false;
    }
    if (!host.dialog.Ask(result + UserText(SaveOrRejectText))) {
        return false;
    }
    SaveProblemFile(document, document.Path(), host);
    return true;
}

/// True if the one on show would have to go.
bool TakePresentIn(CDocument& document, const TProblemList& other,
                   std::vector<std::unique_ptr<TChessProblem>>& taken) {
    const TProblemsByPosition there = ProblemsByPosition(other);
    bool bCurrentStays = false;
    for (const TChessProblem* pProblem : document.Problems().Problems()) {
        if (!there.contains(PlacementOf(*pProblem->m_pBoard))) {
            continue;
        }
        if (pProblem == document.Current()) {
            bCurrentStays = true;
        } else {
            taken.push_back(document.Take(pProblem->m_id));
        }
    }
    return bCurrentStays;
}

}  // namespace

bool AppendProblems(CDocument& document, const fs::path& path, const TFileHost& host) {
    if (!StopSolvingOnRequest(host)) {
        return false;
    }
    const std::optional<TReadFile> other = ReadOther(path, host);
    if (!other) {
        return false;
    }
    const TAppended appended = MoveNewProblems(document, *other->pList);
    std::string result = UserText(AppendedText) + std::to_string(appended.ids.size());
    if (!appended.pairs.empty()) {
        result += UserText(OnlyStipulationText) + appended.pairs;
    }
    if (KeepChanges(document, result, !appended.ids.empty(), host)) {
        return true;
    }
    for (const int id : appended.ids) {
        document.Take(id);
    }
    return false;
}

bool RemoveProblems(CDocument& document, const fs::path& path, const TFileHost& host) {
    if (!StopSolvingOnRequest(host)) {
        return false;
    }
    const std::optional<TReadFile> other = ReadOther(path, host);
    if (!other) {
        return false;
    }
    std::vector<std::unique_ptr<TChessProblem>> taken;
    const bool bCurrentStays = TakePresentIn(document, *other->pList, taken);
    std::string result = UserText(RemovedText) + std::to_string(taken.size());
    if (bCurrentStays) {
        result += UserText(CurrentStaysText);
    }
    if (KeepChanges(document, result, !taken.empty(), host)) {
        return true;
    }
    for (auto& pProblem : taken) {
        document.PutBack(std::move(pProblem));
    }
    return false;
}

bool AppendKnownTags(CDocument& document, const fs::path& path, const TFileHost& host) {
    const std::optional<TReadFile> other = ReadOther(path, host);
    if (other) {
        document.AddKnownTags(other->pList->Tags());
    }
    return other.has_value();
}

}  // namespace tarnwick
