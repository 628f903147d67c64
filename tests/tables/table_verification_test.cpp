// Verification: the rules for rows against those of the board, and what is reported of spoiled tables.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "base/chess_exception.h"

#include "chess/board_stack.h"
#include "chess/chessboard.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "made_tables.h"
#include "support/case_name.h"
#include "tables/open_values.h"
#include "tables/verification/table_screen.h"

namespace tarnwick {
namespace {

/// Tables of made-up values, so that every move counts: of a true table many a lost move would change nothing.
/// Where the board's rules say of themselves that White cannot mate, the tables are true.
class CMadeUpTables {
  public:
    CMadeUpTables() : m_folders(m_folder.Path(), {}) { MakeAll(m_folders, "P"); }

    const TFoundTable* Of(const std::string& type) {
        // Left to the verdict by material.
        if (type == "B" || type == "N" || IsPositionTypeWithoutData(type)) {
            return type == "Bp" ? Made(type) : nullptr;
        }
        return type == "P" ? Opened(type) : Made(type);
    }

  private:
    const TFoundTable* Opened(const std::string& type) {
        TFoundTable& found = m_tables[type];
        if (!found.pValues) {
            found.pIndex = std::make_shared<const CTableIndex>(type);
            found.pValues = OpenValues(m_folders, *found.pIndex, ~std::uint64_t{0}, true).pValues;
        }
        return &found;
    }

    const TFoundTable* Made(const std::string& type) {
        TFoundTable& found = m_tables[type];
        if (!found.pValues) {
            found.pIndex = std::make_shared<const CTableIndex>(type);
            const CRowLayout layout(*found.pIndex);
            std::vector<std::uint8_t> values(found.pIndex->GetIndexCount());
            for (std::uint64_t begin = 0; begin < values.size(); begin += layout.Cells()) {
                TLetterFields fields;
                const bool bRow = layout.FieldsAt(begin, fields);
                std::mt19937 random(static_cast<std::uint32_t>(bRow ? layout.Begin(fields) : 0));
                for (std::size_t cell = 0; cell < layout.Cells(); cell += 4) {
                    const auto drawn = static_cast<std::uint32_t>(random());
                    for (std::size_t i = 0; i < 4; ++i) {
                        const std::uint32_t byte = (drawn >> (8 * i)) & 0xFF;
                        values[begin + cell + i] =
                            static_cast<std::uint8_t>(byte < 8 ? 0 : byte % 100 + 1);
                    }
                }
            }
            found.pValues = std::make_shared<CMemoryStore>(std::move(values), 1);
        }
        return &found;
    }

    CTempFolder m_folder;
    CTableFolders m_folders;
    std::map<std::string, TFoundTable> m_tables;
};

/// Rows by the name of what their pawns can do.
struct TRowCase {
    const char* name;
    const char* type;
    const char* fields;  ///< Of the letters, "e5d7"; empty: rows at random.
    bool bLeftToBoard = false;
};

class RowRules : public testing::TestWithParam<TRowCase> {
  protected:
    static void SetUpTestSuite() { s_pTables = std::make_unique<CMadeUpTables>(); }
    static void TearDownTestSuite() { s_pTables.reset(); }

    static inline std::unique_ptr<CMadeUpTables> s_pTables;
};

/// Compares all positions of a row; returns how many there were, and adds those left to the board.
template <typename Element>
int CompareRow(const CRowRules<Element>& rules, CMadeUpTables& tables, const TFoundTable& own,
               const TLetterFields& fields, int& left) {
    static TBoardStack stack;
    TChessboard board = EmptyChessboard();
    board.m_pThread = &stack;
    stack.m_pRootBoard = &board;
    const TTableLookup lookup = [&](const TChessboard& other) {
        const bool bWhiteBare = WhiteFigureCount(other) + other.m_whitePawns == 0;
        const std::string type = bWhiteBare ? "" : PositionTypeOf(other);
        return type.empty() ? nullptr : tables.Of(type);
    };
    typename CRowRules<Element>::TRow expected;
    rules.Expected(fields, expected);
    const std::uint64_t begin = rules.Layout().Begin(fields);
    int compared = 0;
    for (std::size_t cell = 0; cell < rules.Layout().Cells(); ++cell) {
        if (!own.pIndex->PositionOfIndex(begin + cell, board)) {
            continue;
        }
        board.m_shPlies = board.m_shRootPlies = 13;
        if (!PreparePositionNoThrow(board, true) || board.m_blackChecker != NoChecker) {
            continue;
        }
        ++compared;
        if (expected[cell] == CRowRules<Element>::Ask) {
            ++left;
            continue;
        }
        const unsigned moves =
            expected[cell] == CRowRules<Element>::Never ? 0U : unsigned{expected[cell]};
        EXPECT_EQ(PliesOfMoves(moves), ExpectedPlies(board, own, lookup)) << WriteFen(board, false);
    }
    return compared;
}

template <typename Element>
void CompareRows(CMadeUpTables& tables, const std::string& type, const std::string& places,
                 bool bLeftToBoard) {
    const TFoundTable& own = *tables.Of(type);
    const CTypeGraph graph(type, [](const std::string&) { return nullptr; });
    CRowRules<Element> rules(graph.Root(),
                             [&](const std::string& other) { return tables.Of(other); });
    // Rows that are not kept are computed: the same answers without the work of preparing all.
    ASSERT_TRUE(rules.IsUsable());
    std::mt19937 random(5);
    int compared = 0;
    int left = 0;
    for (int row = 0; compared < 8000; ++row) {
        const std::uint64_t rows = own.pIndex->GetIndexCount() / rules.Layout().Cells();
        TLetterFields fields{};
        if (!rules.Layout().FieldsAt(random() % rows * rules.Layout().Cells(), fields)) {
            continue;
        }
        for (std::size_t i = 0; 2 * i + 1 < places.size(); ++i) {
            const int file = (places[2 * i] - 'a' + (row % 2 == 0 ? 0 : 7)) % 8;
            const int field = (places[2 * i + 1] - '1') * 8 + file;
            fields[i] = static_cast<std::uint8_t>(field);
        }
        compared += CompareRow(rules, tables, own, fields, left);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
    EXPECT_EQ(left > compared / 2, bLeftToBoard) << left << " of " << compared;
}

TEST_P(RowRules, AgreeWithThoseOfTheBoard) {
    CompareRows<std::uint8_t>(*s_pTables, GetParam().type, GetParam().fields,
                              GetParam().bLeftToBoard);
}

INSTANTIATE_TEST_SUITE_P(Verification, RowRules,
                         testing::Values(TRowCase{"Sliders", "Rr", ""},
                                         TRowCase{"LikeMen", "QQ", ""},
                                         TRowCase{"OfKnightAndQueen", "Qn", ""},
                                         TRowCase{"Pawns", "Pp", ""},
                                         TRowCase{"WhiteDoubleStep", "Pp", "b2c4", true},
                                         TRowCase{"BeforeBlackDoubleStep", "Pp", "b5c7"},
                                         TRowCase{"StepToEnPassant", "Pp", "b4c7"},
                                         TRowCase{"PromotionOfWhite", "QP", "c3f7"},
                                         TRowCase{"PromotionOfBlack", "Qp", "d5g2"},
                                         TRowCase{"CaptureThatPromotes", "Pn", "d7e8"},
                                         TRowCase{"VerdictByMaterial", "Bp", ""},
                                         TRowCase{"PromotionToTheVerdict", "Bp", "c4b2"}),
                         CaseName);

/// Wide elements are of tables with six men; their rules are the same.
TEST(WideRowRules, AgreeWithThoseOfTheBoard) {
    CMadeUpTables tables;
    CompareRows<std::uint16_t>(tables, "Rr", "", false);
}

/// The kept rows say what computed ones do, and tell when the orders of like men differ.
TEST(TableScreen, KeepsItsRowsAndComparesOrders) {
    CMadeUpTables tables;
    const TFoundTable& own = *tables.Of("QQ");
    const CTypeGraph graph("QQ", [](const std::string&) { return nullptr; });
    const TTypeLookup lookup = [&](const std::string& other) { return tables.Of(other); };
    const auto prepare = [&](CRowRules<std::uint8_t>& rules) {
        return rules.Prepare(2, NeverStopped, [](double) {}) && rules.DoOrdersAgree();
    };
    CRowRules<std::uint8_t> kept(graph.Root(), lookup);
    const CRowRules<std::uint8_t> computed(graph.Root(), lookup);
    EXPECT_TRUE(prepare(kept));
    const TLetterFields fields = {10, 53};
    CRowRules<std::uint8_t>::TRow rows[2];
    kept.Expected(fields, rows[0]);
    computed.Expected(fields, rows[1]);
    EXPECT_TRUE(std::equal(rows[0].begin(), rows[0].begin() + 640, rows[1].begin()));
    TTablePlace place{1, 40, {53, 10}};
    own.pValues->SetValueAt(own.pIndex->IndexOfFolded(place), 77);
    CRowRules<std::uint8_t> spoiled(graph.Root(), lookup);
    EXPECT_FALSE(prepare(spoiled));
}

std::filesystem::path FileOf(const CTableFolders& folders, const std::string& type) {
    return folders.MakeFileName(TableNameOf(type), TTableFileMode::Unpacked, false, false);
}

/// Tables that do not fit into memory are read row by row, with the same outcome; one that is cut meanwhile is
/// no table without mates.
TEST(TableScreen, ReadsRowsFromTheDisk) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    MakeAll(folders, "P");
    const CTypeGraph graph("P", [](const std::string&) { return nullptr; });
    const auto tablesWith = [&](std::uint64_t budget) {
        std::map<std::string, TFoundTable> tables;
        for (const std::string type : {"P", "Q", "R"}) {
            TFoundTable& table = tables[type];
            table.pIndex = std::make_shared<const CTableIndex>(type);
            const std::uint64_t most = type == "P" ? ~std::uint64_t{0} : budget;
            table.pValues = OpenValues(folders, *table.pIndex, most, true).pValues;
        }
        return tables;
    };
    const auto inMemory = tablesWith(~std::uint64_t{0});
    const auto onDisk = tablesWith(0);
    ASSERT_TRUE(onDisk.at("Q").pValues->IsOnDisk());
    const auto lookupIn = [](const std::map<std::string, TFoundTable>& tables) {
        return [&](const std::string& type) {
            return tables.contains(type) ? &tables.at(type) : nullptr;
        };
    };
    CRowRules<std::uint8_t> memoryRules(graph.Root(), lookupIn(inMemory));
    CRowRules<std::uint8_t> diskRules(graph.Root(), lookupIn(onDisk));
    ASSERT_TRUE(diskRules.IsUsable());
    for (CRowRules<std::uint8_t>* pRules : {&memoryRules, &diskRules}) {
        ASSERT_TRUE(pRules->Prepare(2, NeverStopped, [](double) {}));
    }
    for (std::uint8_t pawn = 8; pawn < 56; ++pawn) {
        CRowRules<std::uint8_t>::TRow rows[2];
        memoryRules.Expected({pawn}, rows[0]);
        diskRules.Expected({pawn}, rows[1]);
        EXPECT_TRUE(std::ranges::equal(rows[0], rows[1])) << int{pawn};
    }
    std::filesystem::resize_file(FileOf(folders, "Q"), 100);
    CRowRules<std::uint8_t>::TRow row;
    EXPECT_THROW(diskRules.Expected({52}, row), ChessException);
}

/// The lines of a log, in the order of the indices whatever threads wrote them.
std::vector<std::string> LinesOf(const std::filesystem::path& path) {
    std::istringstream text(BytesOf(path));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    std::ranges::sort(lines);
    return lines;
}

/// Mates that are too short, too long, missing or made up are reported as the board alone would do it.
TEST(TableVerification, ReportsWhatTheBoardReports) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    MakeAll(folders, "P");
    for (const std::string type : {"Q", "R", "P"}) {
        const auto path = FileOf(folders, type);
        const std::string good = BytesOf(path);
        std::string bad = good;
        std::mt19937 random(1);
        for (int i = 0; i < 60; ++i) {
            char& value = bad[1 + random() % (bad.size() - 1)];
            const int changes[] = {0, value + 1, std::max(value - 1, 1), 5};
            value = static_cast<char>(changes[i % 4]);
        }
        std::ofstream(path, std::ios::binary) << bad;
        const CTempFolder quickLogs;
        const CTempFolder boardLogs;
        TVerifyOptions byBoard;
        byBoard.bBoardRules = true;
        const TVerifyCounts quick = Verify(folders, type, quickLogs);
        const TVerifyCounts board = Verify(folders, type, boardLogs, byBoard);
        const std::string log = "PrecalcFailures" + type + ".txt";
        EXPECT_EQ(LinesOf(quickLogs / log), LinesOf(boardLogs / log)) << type;
        EXPECT_GT(quick.faults, 30U) << type;
        EXPECT_EQ(quick.fixable, board.fixable) << type;
        EXPECT_LT(quick.byBoard, board.byBoard / 2) << type;
        std::ofstream(path, std::ios::binary) << good;
    }
}

/// A lone bishop mates nobody, whatever its table says: the board knows, the rules for rows believe the table.
TEST(TableVerification, TellsWhenItsRulesDisagree) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    MakeAll(folders, "P");
    MakeAll(folders, "B");
    const auto path = FileOf(folders, "B");
    const std::string all = BytesOf(path);
    std::ofstream(path, std::ios::binary) << std::string(all.size(), '\3');
    class CListener final : public TUserDialog {
      public:
        void Tell(std::string_view text) override { told += text; }
        bool Ask(std::string_view) override { return false; }
        void Progress(std::string_view) override {}
        std::string told;
    };
    CListener dialog;
    const CTempFolder logs;
    TVerifyOptions options;
    options.logFolder = logs.Path();
    options.pControl = &NeverStopped;
    const TVerifyCounts counts = CTableVerifier(folders, dialog, options).Verify("P");
    EXPECT_EQ(counts.faults, 0U);
    EXPECT_GT(counts.disputed, 0U);
    EXPECT_NE(dialog.told.find(std::to_string(counts.disputed)), std::string::npos) << dialog.told;
}

/// A fault that can be repaired is, one that cannot is told.
TEST(TableVerification, FindsAndRepairsFaults) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    MakeAll(folders, "Q");
    const auto path =
        folders.MakeFileName(TableNameOf("Q"), TTableFileMode::Unpacked, false, false);
    const std::string good = BytesOf(path);
    std::string bad = good;
    const std::size_t lost = good.find('\4', 1000);
    const std::size_t shorter = good.find('\6', 2000);
    const std::size_t longer = good.find('\7', 3000);
    bad[lost] = 0;
    bad[shorter] = 2;
    bad[longer] = 9;
    std::ofstream(path, std::ios::binary) << bad;
    const CTempFolder logs;
    const TVerifyCounts found = Verify(folders, "Q", logs);
    EXPECT_GE(found.faults, 3U) << "and positions that lead to them";
    EXPECT_EQ(found.fixed, 0U);
    EXPECT_EQ(BytesOf(path), bad) << "nothing was to be repaired";
    const CTempFolder moreLogs;
    TVerifyOptions repair;
    repair.repair = TRepair::Yes;
    for (int i = 0; i < 3; ++i) {
        Verify(folders, "Q", moreLogs, repair);
    }
    const std::string repaired = BytesOf(path);
    EXPECT_EQ(repaired[lost], 4);
    EXPECT_EQ(repaired[longer], 7);
    EXPECT_EQ(repaired[shorter], 2) << "a mate too short is reported and stays";
    const std::string log = BytesOf(logs / "PrecalcFailuresQ.txt");
    EXPECT_NE(log.find(std::to_string(lost) + ","), std::string::npos);
    EXPECT_NE(log.find(",0,7\n"), std::string::npos) << "stored none, expected a mate in 4";
}

}  // namespace
}  // namespace tarnwick
