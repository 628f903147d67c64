// Tables made here against a separate solver, against the rules of the board, and against interruption.

#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "base/chess_exception.h"

#include "support/small_endings.h"
#include "support/temp_folder.h"
#include "tables/generation/table_factory.h"
#include "tables/generation/unfinished_file.h"
#include "tables/open_values.h"
#include "tables/table_positions.h"
#include "tables/verification/table_verifier.h"

namespace tarnwick {
namespace {

const std::atomic<bool> NeverStopped{false};

/// Tells nothing and says no.
class CSilentDialog final : public TUserDialog {
  public:
    void Tell(std::string_view) override {}
    bool Ask(std::string_view) override { return false; }
    void Progress(std::string_view) override {}
};

TGenerationSettings TwoThreads() {
    TGenerationSettings settings;
    settings.threads = 2;
    settings.pStop = &NeverStopped;
    return settings;
}

unsigned MakeAll(const CTableFolders& folders, const std::string& type) {
    CTableFactory factory(folders, TwoThreads());
    unsigned longest = 0;
    for (const TPlannedTable& planned : factory.Plan({type}, true, false)) {
        const TMadeTable made = factory.Make(planned);
        EXPECT_TRUE(made.bComplete);
        longest = made.longestMate;
    }
    return longest;
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TVerifyCounts Verify(const CTableFolders& folders, const std::string& type, const CTempFolder& logs,
                     TVerifyOptions options = {}) {
    CSilentDialog dialog;
    options.threads = 2;
    options.logFolder = logs.Path();
    options.pStop = &NeverStopped;
    return CTableVerifier(folders, dialog, options).Verify(type);
}

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
        const CTableIndex index(type);
        const auto values = OpenValues(folders, index, 1 << 20, true);
        int compared = 0;
        TEndingPosition position;
        for (std::uint64_t number = 1; number < index.GetIndexCount(); ++number) {
            if (!IsLegalIndex(index, number, position)) {
                continue;
            }
            ++compared;
            ASSERT_EQ(static_cast<int>(values.pValues->ValueAt(number)),
                      solver.MovesToMate(position))
                << position.Fen();
        }
        EXPECT_GT(compared, 20000) << type;
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
    const CTypeGraph graph("P", [](const std::string&) { return std::make_shared<CUnreadable>(); });
    CRetrograde<std::uint8_t> retrograde(graph.Root(), TwoThreads());
    EXPECT_THROW(retrograde.Run(), ChessException);
}

/// Stopped after each of its passes and taken up again, a table is byte for byte the same.
TEST(TableGeneration, GoesOnAfterEveryStop) {
    const CTempFolder whole;
    MakeAll(CTableFolders(whole.Path(), {}), "R");
    const CTempFolder parts;
    const CTableFolders folders(parts.Path(), {});
    std::atomic<bool> stop{false};
    TGenerationSettings settings = TwoThreads();
    settings.pStop = &stop;
    settings.report = [&](const TGenerationProgress& progress) {
        stop = !progress.bPreparing && progress.pass % 3 == 0;
    };
    const CTempFolder logs;
    TVerifyOptions partial;
    partial.bPartial = true;
    TMadeTable made;
    int stops = 0;
    for (; !made.bComplete && stops < 10; ++stops) {
        stop = false;
        CTableFactory factory(folders, settings);
        const auto plan = factory.Plan({"R"}, true, false);
        ASSERT_EQ(plan.size(), 1U);
        EXPECT_EQ(plan[0].bGoesOn, stops > 0);
        made = factory.Make(plan[0]);
        if (!made.bComplete) {
            EXPECT_TRUE(std::filesystem::exists(UnfinishedPathOf(made.path)));
            EXPECT_THROW(OpenValues(folders, CTableIndex("R"), 1 << 20, true), ChessException);
            EXPECT_EQ(Verify(folders, "R", logs, partial).faults, 0U) << "after stop " << stops;
        }
    }
    EXPECT_GT(stops, 3);
    EXPECT_EQ(made.longestMate, 16U);
    EXPECT_FALSE(std::filesystem::exists(UnfinishedPathOf(made.path)));
    const CTableFolders other(whole.Path(), {});
    EXPECT_EQ(BytesOf(made.path), BytesOf(other.MakeFileName(
                                      TableNameOf("R"), TTableFileMode::Unpacked, false, false)));
}

/// A file to go on from that is cut or changed anywhere is left aside.
TEST(TableGeneration, BeginsAnewFromADamagedStop) {
    const CTempFolder folder;
    const CTableFolders folders(folder.Path(), {});
    std::atomic<bool> stop{false};
    TGenerationSettings settings = TwoThreads();
    settings.pStop = &stop;
    settings.report = [&](const TGenerationProgress& progress) { stop = progress.pass == 5; };
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
