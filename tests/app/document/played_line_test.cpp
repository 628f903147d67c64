#include "app/document/played_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "app/document/variants.h"
#include "chess/fen.h"
#include "chess/move_text.h"
#include "document_support.h"
#include "problems/cp_file_reader.h"
#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_rules.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Keeps the problem that a text of one problem gives.
struct TProblem {
    explicit TProblem(const std::string& text) { ReadProblemText(text, "", list); }
    TChessProblem& operator*() const { return *list.Problems().at(0); }
    TProblemList list;
};

TMove MoveFromText(const std::string& text) {
    const std::string fields = text.substr(0, 5);
    TMove move{.from = static_cast<TField>(FieldOf(fields)),
               .to = static_cast<TField>(FieldOf(fields.substr(3)))};
    if (text.size() > 5) {
        move.promotion = FigureTypeOfLetter(text[5]);
    }
    return move;
}

TMoveRefusal PlayText(CPlayedLine& line, const std::string& text) {
    return line.Play(MoveFromText(text));
}

struct TRefusalCase {
    const char* name;
    const char* placement;
    std::vector<std::string> before;
    const char* move;
    TMoveRefusal refusal;
};

class RefusedMove : public ::testing::TestWithParam<TRefusalCase> {};

TEST_P(RefusedMove, IsExplained) {
    const TProblem problem(ProblemOf(1, 9, GetParam().placement));
    CPlayedLine line;
    line.Start(*problem);
    for (const std::string& text : GetParam().before) {
        ASSERT_EQ(PlayText(line, text), TMoveRefusal::None) << text;
    }
    const TMove move = MoveFromText(GetParam().move);
    EXPECT_EQ(line.WhyRefused(move), GetParam().refusal);
    EXPECT_EQ(line.Play(move), GetParam().refusal);
    const int played = GetParam().refusal == TMoveRefusal::None ? 1 : 0;
    EXPECT_EQ(line.Ply(), static_cast<int>(GetParam().before.size()) + played);
    EXPECT_EQ(line.RefusalText(GetParam().refusal, move).empty(), played == 1);
}

using enum TMoveRefusal;
constexpr const char* Castling = "r3k2r/8/8/8/8/8/8/R3K2R";
INSTANTIATE_TEST_SUITE_P(
    PlayedLine, RefusedMove,
    ::testing::Values(
        TRefusalCase{"EmptyField", Castling, {}, "d4-d5", NoManThere},
        TRefusalCase{"OtherSide", Castling, {}, "a8-a7", WrongSide},
        TRefusalCase{"WhiteAgain", Castling, {"a1-a2"}, "a2-a3", WrongSide},
        TRefusalCase{"OwnMan", Castling, {}, "a1-e1", OwnManThere},
        TRefusalCase{"RookOnDiagonal", Castling, {}, "a1-b2", CannotGoThere},
        TRefusalCase{"BehindAMan", "4k3/8/8/8/p7/8/8/R3K3", {}, "a1-a5", WayBlocked},
        TRefusalCase{"PawnAgainstAMan", "4k3/8/8/8/4p3/4P3/8/R3K3", {}, "e3-e4", WayBlocked},
        TRefusalCase{"PawnBackwards", "4k3/8/8/8/8/4P3/8/R3K3", {}, "e3-e2", CannotGoThere},
        TRefusalCase{"PinnedKnight", "4r2k/8/8/8/8/4N3/Q7/4K3", {}, "e3-d5", Pinned},
        TRefusalCase{"DoesNotParry", "4r2k/8/8/8/8/8/Q7/4K3", {}, "a2-a3", StillInCheck},
        TRefusalCase{"KingIntoCheck", "3r3k/8/8/8/8/8/Q7/4K3", {}, "e1-d1", KingIntoCheck},
        TRefusalCase{"FigureNotNamed", "8/P6k/8/8/8/8/8/K7", {}, "a7-a8", PromotionMissing},
        TRefusalCase{"FigureForRook", Castling, {}, "a1-a8Q", PromotionWhereNone},
        TRefusalCase{"KingCameBack",
                     Castling,
                     {"e1-e2", "h8-g8", "e2-e1", "g8-h8"},
                     "e1-g1",
                     CastlingHasMoved},
        TRefusalCase{"RookCameBack",
                     Castling,
                     {"e1-e2", "h8-g8", "e2-e1", "g8-h8", "a1-b1"},
                     "e8-g8",
                     CastlingHasMoved},
        TRefusalCase{"KnightBetween", "4k3/8/8/8/8/8/8/RN2K3", {}, "e1-c1", CastlingBlocked},
        TRefusalCase{"InCheck", "4k3/4r3/8/8/8/8/8/R3K3", {}, "e1-c1", CastlingInCheck},
        TRefusalCase{"OverAttack", "4k3/3r4/8/8/8/8/8/R3K3", {}, "e1-c1", CastlingAttacked},
        TRefusalCase{"EnPassantTooLate",
                     "4k3/2p5/8/3P4/8/8/8/R3K3",
                     {"a1-a2", "c7-c5", "a2-a3", "e8-e7"},
                     "d5-c6",
                     CannotGoThere},
        TRefusalCase{
            "EnPassantInTime", "4k3/2p5/8/3P4/8/8/8/R3K3", {"a1-a2", "c7-c5"}, "d5-c6", None}),
    CaseName);

TEST(PlayedLine, AgreesWithTheRulesOnEveryMoveOfRandomGames) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int game = 0; game < 60; ++game) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story());
        const TProblem problem(ProblemOf(1, 20, fen));
        CPlayedLine line;
        line.Start(*problem);
        for (const slow::TGameStep& step : slow::RandomGame(static_cast<unsigned>(game), fen, 10)) {
            for (const slow::TSlowMove& move : slow::LegalMoves(step.before)) {
                ASSERT_EQ(WhyIllegal(line.Board(), MoveOf(move)), TMoveRefusal::None)
                    << slow::FullText(step.before, move);
            }
            if (line.Play(MoveOf(step.move)) == TMoveRefusal::MateImpossible) {
                break;
            }
            ASSERT_EQ(WriteFen(line.Board(), true), slow::PlacementText(step.after));
        }
    }
}

TEST(PlayedLine, StopsAtTheStipulationAndAtMovesThatGiveUpTheMate) {
    const TProblem mate(ProblemOf(1, 1, PlacementA));
    CPlayedLine line;
    line.Start(*mate);
    EXPECT_EQ(PlayText(line, "a1-a5"), TMoveRefusal::None);
    const TMove reply = MoveFromText("h8-g8");
    EXPECT_EQ(line.Play(reply), TMoveRefusal::StipulationOver);
    EXPECT_EQ(line.RefusalText(TMoveRefusal::StipulationOver, reply),
              "No more moves can be made because of stipulation #1");

    const char* const rookHangs = "8/8/8/8/8/1K6/6k1/B6R";
    const TProblem problem(ProblemOf(1, 9, rookHangs));
    line.Start(*problem);
    EXPECT_EQ(PlayText(line, "b3-c3"), TMoveRefusal::None);
    EXPECT_EQ(PlayText(line, "g2-h1"), TMoveRefusal::MateImpossible);
    const TProblem position(std::string("1\n{\n\tFEN: ") + rookHangs + "\n}\n");
    line.Start(*position);
    for (const char* const text : {"b3-c3", "g2-h1", "c3-d3"}) {
        EXPECT_EQ(PlayText(line, text), TMoveRefusal::None) << "nothing is asked for: " << text;
    }
}

TEST(PlayedLine, ExplainsAStartThatIsNoPosition) {
    CPlayedLine line;
    const TProblem checked(ProblemOf(1, 2, "7k/8/5K2/8/8/8/8/7R"));
    line.Start(*checked);
    const TMove move = MoveFromText("f6-f7");
    EXPECT_EQ(line.Play(move), TMoveRefusal::InvalidPosition);
    EXPECT_EQ(line.RefusalText(TMoveRefusal::InvalidPosition, move),
              "Invalid position: Black king cannot be checked in starting position.");
    const TProblem noKing("1 #2\n{\n\tWhite: Ke1, Kf6\n\tBlack: a7\n}\n");
    line.Start(*noKing);
    EXPECT_EQ(line.Play(move), TMoveRefusal::InvalidPosition);
    EXPECT_THAT(line.RefusalText(TMoveRefusal::InvalidPosition, move), HasSubstr("kings"));
}

std::vector<std::string> TextsOf(const CPlayedLine& line) {
    std::vector<std::string> texts;
    for (int ply = 1; ply <= line.Length(); ++ply) {
        texts.push_back(line.MoveText(ply));
    }
    return texts;
}

TEST(PlayedLine, AnotherMoveCutsTheTailAndUndoBringsItBack) {
    const TProblem problem(ProblemOf(1, 5, PlacementA));
    CPlayedLine line;
    line.Start(*problem);
    for (const char* const text : {"a1-a2", "h8-h7", "a2-a3", "h7-h8"}) {
        PlayText(line, text);
    }
    EXPECT_TRUE(line.Back(3));
    PlayText(line, "h8-h7");
    EXPECT_EQ(line.Length(), 4) << "the same move again only steps on";
    line.Back();
    PlayText(line, "h8-g8");
    EXPECT_THAT(TextsOf(line), ElementsAre("Ra1-a2", "Kh8-g8"));
    EXPECT_TRUE(line.UndoCut());
    EXPECT_THAT(TextsOf(line), ElementsAre("Ra1-a2", "Kh8-h7", "Ra2-a3", "Kh7-h8"));
    EXPECT_EQ(line.Ply(), 1);
    EXPECT_TRUE(line.Forward(99));
    EXPECT_EQ(line.Ply(), 4);
    EXPECT_FALSE(line.Forward() || line.GoTo(5) || line.UndoCut());
}

TEST(PlayedLine, RowsHaveNumbersSignsCommentsAndTheCursor) {
    TProblem problem(ProblemOf(1, 2, "7k/8/5K2/8/8/8/8/R7"));
    CPlayedLine line;
    line.Start(*problem);
    for (const char* const text : {"f6-g6", "h8-g8", "a1-a8"}) {
        PlayText(line, text);
    }
    line.Back(1);
    SaveMainVariant(*problem, line);
    SetMoveComment(*problem, line.Moves(1), L"key");
    const std::vector<TMoveRow> rows = line.Rows(*problem, true);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].number, "#2");
    EXPECT_EQ(rows[0].white.comment, L"key");
    EXPECT_TRUE(rows[0].black.bInVariant && rows[0].black.bCurrent);
    EXPECT_EQ(rows[1].white.text, "Ra1-a8#");
    EXPECT_FALSE(rows[1].white.bInVariant || rows[1].white.bCurrent);
    EXPECT_EQ(rows[1].black.nPly, 0);
    EXPECT_EQ(line.Rows(*problem, false)[1].number, "2.");
}

TEST(PlayedLine, BeginsWithTheMovesOfAPosition) {
    const TProblem problem(std::string("1\n{\n\tFEN: ") + PlacementA +
                           "\n\tMoves: Ra1-a2 Kh8-h7\n}\n");
    CPlayedLine line;
    line.Start(*problem);
    EXPECT_EQ(line.Ply(), 2);
    EXPECT_EQ(WriteFen(line.Board(), true), WriteFen(*(*problem).m_pLastBoard, true));
}

TEST(TypedMove, IsTheMoveOrTheReasonWhyNot) {
    const TProblem problem(ProblemOf(1, 9, "4k3/P7/8/4N3/1N6/8/8/R3K2R"));
    CPlayedLine line;
    line.Start(*problem);
    const auto answer = [&line](const std::string& text) -> std::string {
        try {
            return MoveToDisplayText(MoveOfTypedText(line.Board(), text), line.Board());
        } catch (const ChessException& error) {
            return error.what();
        }
    };
    const struct {
        const char* typed;
        const char* answer;
    } cases[] = {
        {"Ra1-a2", "Ra1-a2"},
        {" a1a2 ", "Ra1-a2"},
        {"Wa2", "Ra1-a2"},
        {"a8=Q+", "a7-a8Q"},
        {"O-O-O", "0-0-0"},
        {"Nd3", "Which of these moves: Nb4-d3, Ne5-d3?"},
        {"Sbd3", "Nb4-d3"},
        {"a1a8", "Another man blocks the way from a1 to a8."},
        {"Qd4", "No legal move is written Qd4."},
        {"hello", "This is no move: hello"},
        {"", "This is no move: "},
    };
    for (const auto& typed : cases) {
        EXPECT_EQ(answer(typed.typed), typed.answer) << typed.typed;
    }
}

}  // namespace
}  // namespace tarnwick
