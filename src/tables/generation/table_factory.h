#pragma once
// CTableFactory: makes tables and keeps them as files.
//
// A type needs the tables of all types that captures and promotions lead to. Types that have no table by
// rule (White cannot force mate with them, or hardly) are made in memory when they are needed and never
// written, so that the few mates they have count.
//
// A generation that is stopped leaves two files: the partial table, whose mates may be used, and beside it
// "....precalc.unfinished" with all that is needed to go on. The next generation of the type does so.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tables/generation/retrograde.h"
#include "tables/table_files.h"

namespace tarnwick {

struct TPlannedTable {
    std::string type;
    std::uint64_t fileBytes = 0;
    std::uint64_t memoryBytes = 0;  ///< At its peak, tables of other types included.
    bool bGoesOn = false;           ///< A stopped generation is taken up again.
};

struct TMadeTable {
    bool bComplete = false;  ///< False after a stop.
    unsigned longestMate = 0;
    std::filesystem::path path;
};

class CTableFactory {
  public:
    /// The folders must outlive the factory.
    CTableFactory(const CTableFolders& folders, TGenerationSettings settings);

    /// What has to be made for these types, each behind those that it needs; types with a complete
    /// table are left out unless `bAnew` asks for those of the list itself. Without bWithDependencies a missing
    /// other type throws ChessException naming it. Throws also where memory cannot suffice.
    std::vector<TPlannedTable> Plan(const std::vector<std::string>& types, bool bWithDependencies,
                                    bool bAnew) const;

    /// Makes the table of a plan and writes its file at once, whole or not at all. Throws ChessException
    /// with the reason where a file cannot be read or written.
    TMadeTable Make(const TPlannedTable& planned);

  private:
    template <typename Element>
    TMadeTable MakeWith(const TPlannedTable& planned, const CTypeNode& node,
                        const TBeforePromotions& beforePromotions);
    /// bWhole: in memory, as far as the budget goes.
    std::shared_ptr<CTableValues> ValuesOf(const std::string& type, bool bWhole);
    std::shared_ptr<CTableValues> MakeInMemory(const std::string& type);
    std::filesystem::path PathOf(const std::string& type) const;
    bool HasCompleteTable(const std::string& type) const;

    const CTableFolders& m_folders;
    TGenerationSettings m_settings;
    std::uint64_t m_budget = 0;  ///< Bytes left for tables of other types.
    std::map<std::string, std::shared_ptr<CTableValues>> m_values;
    std::map<std::string, std::shared_ptr<CTableValues>> m_small;  ///< Of types without files.
    std::mutex m_lock;
};

/// The tables that a generation may hold beside its own: for each element of the table 2.5 in all.
std::uint64_t BudgetForOtherTables(std::uint64_t indexCount, std::size_t elementSize);

}  // namespace tarnwick
