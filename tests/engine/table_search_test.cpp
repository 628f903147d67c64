// The search with precalculated tables: the same keys as without, sooner; and no word of a table where the
// table does not know all that counts.

#include <gtest/gtest.h>

#include "engine/search/node_hooks.h"
#include "solve_support.h"
#include "support/random_positions.h"
#include "support/slow_solver.h"
#include "support/small_endings.h"
#include "support/table_folder.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {
namespace {

/// The five types of three men in memory: so they are asked also in short problems, for which the search would not
/// load them.
class TableSearch : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        s_pFolder = std::make_unique<CTableFolder>(
            std::initializer_list<const char*>{"Q", "R", "P", "B", "N"});
        s_tables = LoadedTables(s_pFolder->Options());
    }
    static void TearDownTestSuite() {
        s_tables.reset();
        s_pFolder.reset();
    }

    static std::shared_ptr<TGlobalRegisterSet> LoadedTables(const TTableOptions& options) {
        auto tables = std::make_shared<TGlobalRegisterSet>(options);
        for (const char* type : {"Q", "R", "P", "B", "N"}) {
            TGlobalRegister* pRegister = tables->FindDataForType(type);
            EXPECT_NE(pRegister, nullptr) << type;
            tables->ReleaseData(pRegister);
        }
        return tables;
    }

    static TSolveResult SolveWith(const std::shared_ptr<TGlobalRegisterSet>& tables,
                                  const TChessboard& board, int moves,
                                  const TEngineOptions& options = AllKeysWanted()) {
        TSolveTask task;
        task.m_options = options;
        task.m_pTables = tables;
        return StartSolving(task, board, moves);
    }

    static std::unique_ptr<CTableFolder> s_pFolder;
    static std::shared_ptr<TGlobalRegisterSet> s_tables;
};

std::unique_ptr<CTableFolder> TableSearch::s_pFolder;
std::shared_ptr<TGlobalRegisterSet> TableSearch::s_tables;

std::string KeysText(const TChessboard& board, const TSolveResult& result) {
    std::string all = result.bComplete ? "" : "incomplete: " + result.message;
    for (const std::string& key : KeyTexts(board, result.keys)) {
        all += key + " ";
    }
    return all;
}

/// Positions of at most five men: captures and promotions lead into the tables all the time.
TEST_F(TableSearch, FindsTheKeysOfTheSlowSolver) {
    slow::CRandomPositions positions(slow::TestSeed() + 70, {.minMen = 3, .maxMen = 5});
    std::uint64_t hits = 0;
    int mates = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::string fen = positions.Next();
        const int moves = 2 + i % 2;
        std::string want;
        for (const std::string& key : slow::AllKeys(slow::FromFen(fen), moves)) {
            want += key + " ";
        }
        const TChessboard board = BoardOf(fen);
        const TSolveResult result = SolveWith(s_tables, board, moves);
        ASSERT_EQ(KeysText(board, result), want)
            << fen << " #" << moves << ", " << positions.Story();
        hits += result.tableHits;
        mates += want.empty() ? 0 : 1;
    }
    EXPECT_GT(hits, 500U);
    EXPECT_GT(mates, 5);
}

/// Deeper than the slow solver reaches, the search without tables is the judge; with heuristics, scouts and
/// threads, as users have them.
TEST_F(TableSearch, FindsTheKeysThatTheSearchAloneFinds) {
    slow::CRandomPositions positions(slow::TestSeed() + 71, {.minMen = 4, .maxMen = 5});
    std::uint64_t with = 0;
    std::uint64_t without = 0;
    for (int i = 0; i < 60; ++i) {
        const std::string fen = positions.Next();
        const TChessboard board = BoardOf(fen);
        TEngineOptions options = AllKeysWanted();
        options.threads = static_cast<std::uint16_t>(1 + i % 2);
        options.heuristics = i % 3 == 0 ? THeuristicsFrom::Analysis : THeuristicsFrom::None;
        options.bAnalyseAlways = true;
        options.bRegisterAlways = i % 4 < 2;
        const TSolveResult plain = SolveWith(nullptr, board, 4, options);
        const TSolveResult result = SolveWith(s_tables, board, 4, options);
        ASSERT_EQ(KeysText(board, result), KeysText(board, plain))
            << fen << ", " << positions.Story();
        EXPECT_EQ(plain.tableHits, 0U);
        with += result.workNodes;
        without += plain.workNodes;
    }
    EXPECT_LT(with, without);
}

/// Endings of three men, at their exact length and one move below, against a solver that knows them all. Each key
/// must lead to a position that Black loses in time.
TEST_F(TableSearch, KnowsTheExactLengthOfLongEndings) {
    CSmallEndings judge;
    for (const char* placing :
         {"8/8/8/3k4/8/8/8/KR6", "8/8/4k3/8/8/8/8/Q6K", "8/8/8/1k6/8/8/4P3/4K3"}) {
        const TChessboard board = BoardOf(placing);
        TEndingPosition ending;
        ending.count = 1;
        for (int field = 0; field < FieldCount; ++field) {
            const char letter = LetterOfFigure(board.m_fields[field]);
            (letter == 'K'   ? ending.whiteKing
             : letter == 'k' ? ending.blackKing
                             : ending.fields[0]) = letter != '\0' ? field : ending.fields[0];
            ending.letters[0] =
                letter != '\0' && letter != 'K' && letter != 'k' ? letter : ending.letters[0];
        }
        const int moves = judge.MovesToMate(ending);
        ASSERT_GT(moves, 6) << placing;
        EXPECT_EQ(SolveWith(s_tables, board, moves - 1).status, TSolveStatus::NoMate) << placing;
        const TSolveResult result = SolveWith(s_tables, board, moves);
        ASSERT_EQ(result.status, TSolveStatus::Mate) << placing;
        for (const TMove key : result.keys) {
            TEndingPosition after = ending;
            (key.from == ending.whiteKing ? after.whiteKing : after.fields[0]) = key.to;
            EXPECT_EQ(judge.MovesToBeMated(after), moves - 1) << placing;
        }
    }
}

TEST_F(TableSearch, AsksNoTablesWithoutMemoryForThem) {
    TTableOptions options = s_pFolder->Options();
    options.maxMemRatioForPrecalculatedData = 0;
    const auto off = std::make_shared<TGlobalRegisterSet>(options);
    const TChessboard board = BoardOf("8/8/8/3k4/8/8/8/KR6");
    EXPECT_EQ(SolveWith(off, board, 3).tableHits, 0U);
    EXPECT_GT(SolveWith(s_tables, board, 3).tableHits, 0U);
}

/// A mate by the rook's castling is in no table; once the king has moved the table is right again.
TEST_F(TableSearch, DoesNotAskWhereCastlingIsPossible) {
    CSearchLine line("8/8/8/8/8/k7/8/4K2R", 41, AllKeysWanted(), s_tables);
    EXPECT_FALSE(HasNoCastlingRights(line.Board()));
    EXPECT_FALSE(AskGlobalRegister(line.Board()));
    line.Play({"Ke1-d1", "Ka3-b3", "Kd1-e1", "Kb3-a3"});
    EXPECT_TRUE(HasNoCastlingRights(line.Board()));
    EXPECT_EQ(AskGlobalRegister(line.Board()), ResultMate);
}

/// A table that says "no mate" knows nothing of the capture that a double step allows.
TEST_F(TableSearch, DoesNotBelieveNoMateWhereEnPassantIsPossible) {
    const CTableFolder folder({});
    std::vector<std::uint8_t> bytes(CTableIndex("Pp").GetIndexCount());
    bytes[0] = CompactPawnsFlag;
    folder.WriteBytes("Pp", bytes);
    const auto tables = std::make_shared<TGlobalRegisterSet>(folder.Options());
    CSearchLine beside("8/p6k/8/1P6/8/8/8/K7", 40, AllKeysWanted(), tables);
    beside.Play({"a7-a5"});
    EXPECT_FALSE(AskGlobalRegister(beside.Board()));
    CSearchLine apart("8/p6k/8/2P5/8/8/8/K7", 40, AllKeysWanted(), tables);
    apart.Play({"a7-a5"});
    EXPECT_EQ(AskGlobalRegister(apart.Board()), ResultNoMate);

    // A mate that the table knows holds whatever else White may do.
    bytes[CTableIndex("Pp").IndexOfPosition(beside.Board())] = 9;
    folder.WriteBytes("Pp", bytes);
    tables->Clear(true);
    beside.SearchThread().GiveTablesBack();
    apart.SearchThread().GiveTablesBack();
    tables->Clear(true);
    EXPECT_EQ(AskGlobalRegister(beside.Board()), ResultMate);
}

/// The mark of an unknown position leaves the search to find out.
TEST_F(TableSearch, SearchesWhereATableIsPartial) {
    const CTableFolder folder({});
    folder.WriteBytes("R", std::vector<std::uint8_t>(CTableIndex("R").GetIndexCount(), 0xFF));
    const auto tables = std::make_shared<TGlobalRegisterSet>(folder.Options());
    tables->ReleaseData(tables->FindDataForType("R"));
    const TChessboard board = BoardOf("7k/8/5K2/8/8/8/8/6R1");
    const TSolveResult result = SolveWith(tables, board, 2);
    EXPECT_EQ(KeysText(board, result), KeysText(board, Solve(board, 2, AllKeysWanted())));
    EXPECT_EQ(result.tableHits, 0U);
}

}  // namespace
}  // namespace tarnwick
