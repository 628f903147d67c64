// Tables made here against a separate solver, against the rules of the board, and against interruption.

#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "base/chess_exception.h"

#include "made_tables.h"
#include "support/small_endings.h"
#include "support/temp_folder.h"
#include "tables/generation/unfinished_file.h"
#include "tables/open_values.h"
#include "tables/table_positions.h"

namespace tarnwick {
namespace {

TEST(TableGeneration, FindsTheLongestMatesOfThreeMen) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    EXPECT_EQ(MakeAll(folders, "Q"), 10U);
    EXPECT_EQ(MakeAll(folders, "R"), 16U);
    EXPECT_EQ(MakeAll(folders, "P"), 28U);
    EXPECT_EQ(MakeAll(folders, "B"), 0U);
    EXPECT_EQ(MakeAll(folders, "N"), 0U);
    const CTempFolder logs;
    for (const char* type : {"Q", "R", "P", "B", "N"}) {
        const TVerifyCounts counts = Verify(folders, type, logs);
        EXPECT_EQ(counts.faults, 0U) << type;
        EXPECT_EQ(counts.indices, CTableIndex(type).GetIndexCount());
    }
}

/// Every value of a table of three men is that of the solver which shares no line with the program.
TEST(TableGeneration, AgreesWithASeparateSolverEverywhere) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    CSmallEndings solver;
    for (const std::string type : {"Q", "R", "P"}) {
        MakeAll(folders, type);
        ExpectSameEverywhere(folders, type, [&](const TEndingPosition& position) {
            const int moves = solver.MovesToMate(position);
            return moves == 0 ? 0 : 2 * moves - 1;
        });
    }
}

/// Pawns of both sides: captures en passant, promotions of both, and mates that need them.
TEST(TableGeneration, VerifiesWithPawnsOfBothSides) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    EXPECT_EQ(MakeAll(folders, "Pp"), 33U);
    const CTempFolder logs;
    EXPECT_EQ(Verify(folders, "Pp", logs).faults, 0U);
}

TEST(TableGeneration, AsksForMissingTablesByName) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    const CTableFactory factory(folders, TwoThreads());
    try {
        factory.Plan({"P"}, false, false);
        FAIL() << "P needs Q and R";
    } catch (const ChessException& error) {
        EXPECT_NE(std::string(error.what()).find("position Q"), std::string::npos) << error.what();
    }
    const auto plan = factory.Plan({"P"}, true, false);
    ASSERT_EQ(plan.size(), 3U);
    EXPECT_EQ(plan.back().type, "P");
    EXPECT_EQ(plan.back().fileBytes, 98304U);
    EXPECT_EQ(folder.Count(), 0U) << "a plan writes nothing";
}

/// A table that cannot be read in the middle of the work must not be taken for anything.
TEST(TableGeneration, EndsWhereAnotherTableHasNoValue) {
    class CUnreadable final : public CTableValues {
      public:
        unsigned ValueAt(std::uint64_t) const override { return NotGenerated; }
    };
    CTypeGraph graph("P", [](const std::string&) { return std::make_shared<CUnreadable>(); });
    CRetrograde<std::uint8_t> retrograde(graph.Root(), TwoThreads());
    EXPECT_THROW(retrograde.Run(), ChessException);
}

/// Stopped in its preparation and after each third pass and taken up again, a table is byte for byte the same.
TEST(TableGeneration, GoesOnAfterEveryStop) {
    const CTempFolder whole;
    MakeAll(CTableFolders(whole.Path(), {}), "P");
    const CTempFolder parts;
    const CTableFolders folders(parts.Path(), {});
    MakeAll(folders, "Q");
    MakeAll(folders, "R");
    TGenerationSettings settings = TwoThreads();
    int stops = 0;
    const CTempFolder logs;
    TVerifyOptions partial;
    partial.bPartial = true;
    TMadeTable made;
    for (; !made.bComplete && stops < 15; ++stops) {
        CRunControl control;
        settings.pControl = &control;
        settings.report = [&](const TGenerationProgress& progress) {
            if (progress.bPreparing ? stops == 0 : progress.pass % 3 == 0) {
                control.Stop();
            }
        };
        CTableFactory factory(folders, settings);
        const auto plan = factory.Plan({"P"}, true, false);
        ASSERT_EQ(plan.size(), 1U);
        EXPECT_EQ(plan[0].bGoesOn, stops > 0);
        made = factory.Make(plan[0]);
        if (!made.bComplete) {
            EXPECT_TRUE(std::filesystem::exists(UnfinishedPathOf(made.path)));
            EXPECT_THROW(OpenValues(folders, CTableIndex("P"), 1 << 20, true), ChessException);
            EXPECT_EQ(Verify(folders, "P", logs, partial).faults, 0U) << "after stop " << stops;
        }
    }
    EXPECT_GT(stops, 3);
    EXPECT_EQ(made.longestMate, 28U);
    EXPECT_FALSE(std::filesystem::exists(UnfinishedPathOf(made.path)));
    const CTableFolders other(whole.Path(), {});
    EXPECT_EQ(BytesOf(made.path), BytesOf(other.MakeFileName(
                                      TableNameOf("P"), TTableFileMode::Unpacked, false, false)));
}

/// A file to go on from that is cut or changed anywhere is left aside.
TEST(TableGeneration, BeginsAnewFromADamagedStop) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    CRunControl control;
    TGenerationSettings settings = TwoThreads();
    settings.pControl = &control;
    settings.report = [&](const TGenerationProgress& progress) {
        if (progress.pass == 5) {
            control.Stop();
        }
    };
    const auto made = CTableFactory(folders, settings).Make({"Q", 0, 0, false});
    ASSERT_FALSE(made.bComplete);
    const auto path = UnfinishedPathOf(made.path);
    const std::string good = BytesOf(path);
    std::mt19937 random(3);
    for (int i = 0; i < 12; ++i) {
        std::string bad = good;
        if (i % 2 == 0) {
            bad.resize(random() % bad.size());
        } else {
            char& byte = bad[i < 6 ? random() % 80 : random() % bad.size()];
            byte = static_cast<char>(byte ^ (1 << random() % 8));
        }
        std::ofstream(path, std::ios::binary) << bad;
        const auto again = CTableFactory(folders, TwoThreads()).Make({"Q", 0, 0, true});
        EXPECT_TRUE(again.bComplete) << i;
        EXPECT_EQ(again.longestMate, 10U) << i;
    }
}

}  // namespace
}  // namespace tarnwick
