#include "tables/verification/verify_all.h"

#include <fstream>

#include "made_tables.h"
#include "support/table_folder.h"

namespace tarnwick {
namespace {

/// Wants to go on a number of times; keeps what it was asked.
class CPatientDialog final : public TUserDialog {
  public:
    explicit CPatientDialog(int rounds) : m_nRounds(rounds) {}
    void Tell(std::string_view) override {}
    bool Ask(std::string_view text) override {
        asked.emplace_back(text);
        return --m_nRounds > 0;
    }
    void Progress(std::string_view) override {}

    std::vector<std::string> asked;

  private:
    int m_nRounds;
};

struct TRound {
    explicit TRound(const CTableFolder& tables) : folders(tables.Path(), {}) {
        options.verify.threads = 2;
        options.verify.pControl = &control;
        options.verify.logFolder = logs.Path();
        options.log = [this](const std::string& line) { lines.push_back(line); };
    }
    TVerifyAllResult Run(int rounds) {
        dialog = CPatientDialog(rounds);
        lines.clear();
        return VerifyAllPositionTypes(folders, dialog, options);
    }

    CTempFolder logs;
    CTableFolders folders;
    CRunControl control;
    CPatientDialog dialog{0};
    TVerifyAllOptions options;
    std::vector<std::string> lines;
};

const std::string Starts = "Starting verification of precalculated data for position type ";
const std::string Verified = "Verification of precalculated data for position type ";

TEST(VerifyAll, WalksTheSizesAndListsWhatIsMissing) {
    const CTableFolder tables({"Rn"});
    TRound round(tables);
    const TVerifyAllResult result = round.Run(3);
    EXPECT_EQ(round.lines,
              (std::vector<std::string>{Starts + "R", Verified + "R complete - all OK",
                                        Starts + "Rn", Verified + "Rn complete - all OK"}));
    EXPECT_EQ(result.verified, 2U);
    EXPECT_EQ(result.faulty, 0U);
    const std::string more =
        "\n\nShould program look for missing precalculated data for positions with more pieces?";
    ASSERT_EQ(round.dialog.asked.size(), 3U);
    EXPECT_EQ(
        round.dialog.asked[0],
        "List of missing precalculated data for positions with 3 pieces without pawns:\nQ" + more);
    EXPECT_EQ(
        round.dialog.asked[1],
        "List of missing precalculated data for positions with 3 pieces with pawns:\nP" + more);
    // Every type of four men without pawns but Rn, and but those that need no table.
    EXPECT_EQ(round.dialog.asked[2].find("Rn"), std::string::npos);
    EXPECT_NE(round.dialog.asked[2].find("Rb; "), std::string::npos) << round.dialog.asked[2];
    EXPECT_EQ(round.dialog.asked[2].find("Nn"), std::string::npos);
}

TEST(VerifyAll, GoesOnAfterFaultyTablesAndBeginsWhereItIsTold) {
    const CTableFolder tables({"P"});
    std::vector<std::uint8_t> bytes = tables.BytesOf("P");
    const auto mate = std::ranges::find(bytes.begin() + 1, bytes.end(), 20);
    ASSERT_NE(mate, bytes.end());
    *mate = 2;
    tables.WriteBytes("P", bytes);
    std::filesystem::resize_file(tables.FileOf("Q"), 1000);
    TRound round(tables);
    const TVerifyAllResult result = round.Run(2);
    EXPECT_EQ(result.verified, 1U);  // P needs Q and cannot be judged
    EXPECT_EQ(result.faulty, 2U);
    ASSERT_EQ(round.lines.size(), 6U);
    EXPECT_TRUE(round.lines[1].starts_with(Verified + "Q failed: ")) << round.lines[1];
    EXPECT_EQ(round.lines[3], Verified + "R complete - all OK");
    EXPECT_TRUE(round.lines[5].starts_with(Verified + "P failed: ")) << round.lines[5];

    std::filesystem::remove(tables.FileOf("Q"));
    tables.MakeTables({"Q"});
    round.options.firstType = "P";
    const TVerifyAllResult later = round.Run(2);
    EXPECT_EQ(later.verified, 1U);
    EXPECT_EQ(later.faulty, 1U);
    ASSERT_EQ(round.lines.size(), 2U);
    EXPECT_TRUE(round.lines[1].ends_with("failure(s) detected")) << round.lines[1];
}

TEST(VerifyAll, StopsForGood) {
    const CTableFolder tables({"P"});
    TRound round(tables);
    round.options.log = [&](const std::string& line) {
        round.lines.push_back(line);
        if (line == Starts + "R") {
            round.control.Stop();
        }
    };
    const TVerifyAllResult result = round.Run(9);
    EXPECT_TRUE(result.bStopped);
    EXPECT_EQ(result.verified, 1U);
    EXPECT_EQ(round.lines.back(), Verified + "R but stopped by user.");
    EXPECT_TRUE(round.dialog.asked.empty());
}

}  // namespace
}  // namespace tarnwick
