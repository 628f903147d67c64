#include "tables/generation/table_factory.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"
#include "platform/memory_info.h"

#include "tables/generation/promotion_slices.h"
#include "tables/generation/unfinished_file.h"
#include "tables/open_values.h"
#include "tables/register/table_store.h"
#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t BytesPerMegabyte = 1 << 20;
/// Bytes of work for each index beside the table: the state with Black to move.
constexpr std::uint64_t StateBytes = 1;
/// Types without a file are made in memory up to this size; five men and more would take minutes.
constexpr std::size_t MaxLettersInMemory = 3;

bool HasWhiteMan(const std::string& type) {
    return std::ranges::any_of(type, [](char letter) { return IsWhite(FigureOfLetter(letter)); });
}

template <typename Element>
unsigned LongestMate(const void* pTable, std::uint64_t count) {
    const auto* pElements = static_cast<const Element*>(pTable);
    unsigned longest = 0;
    for (std::uint64_t index = 1; index < count; ++index) {
        if (pElements[index] > longest && pElements[index] != CRetrograde<Element>::Unset) {
            longest = pElements[index];
        }
    }
    return longest;
}

void WriteTable(const std::filesystem::path& path, const CPageMemory& table, std::uint64_t bytes) {
    std::filesystem::create_directories(path.parent_path());
    CAtomicFileWriter writer(path);
    const auto* pBytes = static_cast<const char*>(table.Data());
    constexpr std::uint64_t Piece = 1 << 26;
    for (std::uint64_t at = 0; at < bytes; at += Piece) {
        writer.Append({pBytes + at, static_cast<std::size_t>(std::min(Piece, bytes - at))});
    }
    writer.Commit();
}

}  // namespace

std::uint64_t BudgetForOtherTables(std::uint64_t indexCount, std::size_t elementSize) {
    const std::uint64_t limit = indexCount * elementSize * 5 / 2;
    const std::uint64_t own = indexCount * (elementSize + StateBytes);
    // Three men's tables would leave less than their own dependencies need, and all of those are small.
    return std::max<std::uint64_t>(limit - own, 8 * BytesPerMegabyte);
}

CTableFactory::CTableFactory(const CTableFolders& folders, TGenerationSettings settings)
    : m_folders(folders), m_settings(std::move(settings)) {}

std::filesystem::path CTableFactory::PathOf(const std::string& type) const {
    const TTableName name = TableNameOf(type);
    return m_folders.FolderOfNewTable(name) / (StemOfTable(type) + ".precalc");
}

bool CTableFactory::HasCompleteTable(const std::string& type) const {
    if (std::filesystem::exists(UnfinishedPathOf(PathOf(type)))) {
        return false;
    }
    try {
        return OpenValues(m_folders, CTableIndex(type), 0, true).pValues != nullptr;
    } catch (const ChessException&) {
        return false;
    }
}

std::vector<TPlannedTable> CTableFactory::Plan(const std::vector<std::string>& types,
                                               bool bWithDependencies, bool bAnew) const {
    std::vector<TPlannedTable> plan;
    std::set<std::string> seen;
    const std::uint64_t machine = MemoryOfMachine();
    const std::set<std::string> asked(types.begin(), types.end());
    const auto add = [&](const auto& self, const std::string& type) -> void {
        const bool bAsked = asked.contains(type);
        if (!HasWhiteMan(type) || !seen.insert(type).second) {
            return;
        }
        const bool bInMemory =
            !bAsked && IsPositionTypeWithoutData(type) && type.size() <= MaxLettersInMemory;
        if (!bInMemory && HasCompleteTable(type) && !(bAsked && bAnew)) {
            return;
        }
        if (!bAsked && !bInMemory && !bWithDependencies) {
            throw ChessException(FilledText(MissingTableText, {type}));
        }
        for (const std::string& other : TypesReachedFrom(type)) {
            self(self, other);
        }
        if (bInMemory) {
            return;
        }
        const std::uint64_t count = CTableIndex(type).GetIndexCount();
        TPlannedTable planned;
        planned.type = type;
        planned.fileBytes = count;
        planned.memoryBytes = count * (1 + StateBytes) + BudgetForOtherTables(count, 1);
        planned.bGoesOn = !bAnew && std::filesystem::exists(UnfinishedPathOf(PathOf(type)));
        if (machine != 0 && planned.memoryBytes > machine) {
            throw ChessException(FilledText(
                NoMemoryForTableText, {type, std::to_string(planned.memoryBytes / BytesPerMegabyte),
                                       std::to_string(machine / BytesPerMegabyte)}));
        }
        plan.push_back(planned);
    };
    for (const std::string& type : types) {
        add(add, type);
    }
    return plan;
}

TMadeTable CTableFactory::Make(const TPlannedTable& planned) {
    // Tables with as many men are held in slices; the smaller ones whole, up to half of the budget.
    CTypeGraph graph(planned.type, [&](const std::string& type) {
        return ValuesOf(type, type.size() < planned.type.size());
    });
    const CTypeNode& node = graph.Root();
    m_values.clear();
    const std::uint64_t budget = BudgetForOtherTables(node.Index().GetIndexCount(), 1);
    m_budget = std::min(budget / 2, graph.BytesOfSmallerTables());
    CPromotionSlices slices(graph, budget - m_budget, m_settings.threads);
    const auto holdSlices = [&](std::size_t step) { slices.Hold(step); };
    TMadeTable made = MakeWith<std::uint8_t>(planned, node, holdSlices);
    if (made.path.empty()) {
        made = MakeWith<std::uint16_t>(planned, node, holdSlices);
    }
    m_values.clear();
    return made;
}

/// A table without a path needs wider elements.
template <typename Element>
TMadeTable CTableFactory::MakeWith(const TPlannedTable& planned, const CTypeNode& node,
                                   const TBeforePromotions& beforePromotions) {
    const CTableIndex& index = node.Index();
    const auto path = PathOf(planned.type);
    const auto unfinished = UnfinishedPathOf(path);
    CRetrograde<Element> retrograde(node, m_settings, beforePromotions);
    if (planned.bGoesOn) {
        LoadUnfinished(unfinished, planned.type, retrograde);
    }
    using TEnd = typename CRetrograde<Element>::TEnd;
    const TEnd end = retrograde.Run();
    TMadeTable made;
    if (end == TEnd::NeedsWiderElements) {
        if (index.Letters() < 4) {
            throw ChessException(FilledText(TooLongMateText, {planned.type}));
        }
        return made;
    }
    made.bComplete = end == TEnd::Complete;
    made.path = path;
    if (!made.bComplete) {
        std::filesystem::create_directories(path.parent_path());
        SaveUnfinished(unfinished, planned.type, retrograde);
    }
    const CPageMemory table = retrograde.TakeTable();
    made.longestMate = LongestMate<Element>(table.Data(), index.GetIndexCount());
    WriteTable(path, table, index.GetIndexCount() * sizeof(Element));
    if (made.bComplete) {
        std::error_code ignored;
        std::filesystem::remove(unfinished, ignored);
    }
    return made;
}

/// Called at the first value of a type that the generation asks for, by any of its threads.
std::shared_ptr<CTableValues> CTableFactory::ValuesOf(const std::string& type, bool bWhole) {
    const std::scoped_lock guard(m_lock);
    std::shared_ptr<CTableValues>& pValues = m_values[type];
    if (!pValues) {
        TOpenedValues opened =
            OpenValues(m_folders, CTableIndex(type), bWhole ? m_budget : 0, true);
        m_budget -= std::min(m_budget, opened.bytesInMemory);
        pValues = opened.pValues ? opened.pValues : MakeInMemory(type);
    }
    return pValues;
}

std::shared_ptr<CTableValues> CTableFactory::MakeInMemory(const std::string& type) {
    if (!IsPositionTypeWithoutData(type) || type.size() > MaxLettersInMemory) {
        throw ChessException(FilledText(MissingTableText, {type}));
    }
    std::shared_ptr<CTableValues>& pValues = m_small[type];
    if (!pValues) {
        CTypeGraph graph(type, [this](const std::string& other) {
            const TOpenedValues opened = OpenValues(m_folders, CTableIndex(other), m_budget, true);
            return opened.pValues ? opened.pValues : MakeInMemory(other);
        });
        TGenerationSettings settings;
        settings.threads = 1;  // The other threads of the generation wait for this table.
        settings.pControl = &NeverStopped;
        CRetrograde<std::uint8_t> retrograde(graph.Root(), settings);
        retrograde.Run();
        pValues = std::make_shared<CMemoryStore>(retrograde.TakeTable(), 1);
    }
    return pValues;
}

}  // namespace tarnwick
