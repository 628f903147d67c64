#include "chess/checked_move.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "base/chess_exception.h"

#include "chess/board_tables.h"
#include "chess/move_text.h"
#include "notation_support.h"
#include "support/case_name.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

bool IsAccepted(const TChessboard& board, TMove move) {
    TMove read;
    try {
        ParseCheckedMove(board, read, MoveToDisplayText(move, board));
    } catch (const ChessException&) {
        return false;
    }
    return read.SameAs(move);
}

/// Texts of all accepted ones among the moves that can be written at all.
std::vector<std::string> AcceptedMoves(const TChessboard& board) {
    std::vector<std::string> texts;
    for (TField from = 0; from < FieldCount; ++from) {
        for (TField to = 0; to < FieldCount; ++to) {
            for (const TFigureCode promotion :
                 {EmptyField, TypeQueen, TypeRook, TypeBishop, TypeKnight}) {
                const TMove move{from, to, promotion, 0};
                if (board.m_fields[from] != EmptyField && IsAccepted(board, move)) {
                    texts.push_back(MoveToDisplayText(move, board));
                }
            }
        }
    }
    std::ranges::sort(texts);
    return texts;
}

bool CannotMate(const TChessboard& board) {
    return std::ranges::none_of(board.m_fields, [](TFigureCode code) {
        return code == WhiteQueen || code == WhiteRook || code == WhitePawn;
    });
}

TEST(CheckedMove, AcceptsExactlyTheLegalMovesOfRandomGames) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int i = 0; i < 50; ++i) {
        const std::string start = positions.Next();
        SCOPED_TRACE(positions.Story());
        TRootOfLine root(start);
        TChessboard* board = &root.board;
        for (const auto& step : slow::RandomGame(static_cast<std::uint64_t>(i), start, 10)) {
            ASSERT_EQ(AcceptedMoves(*board), slow::LegalMoveTexts(step.before)) << step.text;
            try {
                board = MakeMoveFromText(*board, step.text);
            } catch (const ChessException&) {
                ASSERT_TRUE(CannotMate(*board)) << step.text;
                break;
            }
            ASSERT_EQ(WriteFen(*board, true), slow::PlacementText(step.after)) << step.text;
        }
    }
}

constexpr const char* ManyMen = "r3k2r/P6p/8/1Pp5/8/8/3P3P/RN2K2R";

struct TMessageCase {
    const char* name;
    const char* fen;
    std::string text;
    const char* message;
};

class RefusedCheckedMove : public ::testing::TestWithParam<TMessageCase> {};

TEST_P(RefusedCheckedMove, TellsWhatIsWrong) {
    const TChessboard board = BoardOf(GetParam().fen);
    TMove move{A1, H8, 0, 0};
    EXPECT_THAT([&] { ParseCheckedMove(board, move, GetParam().text); },
                ThrowsMessage<ChessException>(GetParam().message));
    EXPECT_TRUE(move.SameAs({A1, H8, 0, 0}));
}

constexpr const char* Short = "Short notation not supported.";
constexpr const char* Improper = "Improper move description";
constexpr const char* Illegal = "Illegal move";

INSTANTIATE_TEST_SUITE_P(
    Texts, RefusedCheckedMove,
    ::testing::Values(
        TMessageCase{"Empty", ManyMen, "", "Empty string"},
        TMessageCase{"PawnToField", ManyMen, "d4", Short},
        TMessageCase{"FigureToField", ManyMen, "Nc3", Short},
        TMessageCase{"FigureTakes", ManyMen, "Rxa7", Short},
        TMessageCase{"PawnTakes", ManyMen, "axb8=Q", Short},
        TMessageCase{"SignAtStart", ManyMen, ":a1-a8", Short},
        TMessageCase{"Pass", ManyMen, "-", Short},
        TMessageCase{"CastlingOfThreeSteps", ManyMen, "0-0-0-0", "Improper string length"},
        TMessageCase{"LetterMissing", ManyMen, "b1-c3", Improper},
        TMessageCase{"OtherLetter", ManyMen, "Bb1-c3", Improper},
        TMessageCase{"EmptyField", ManyMen, "e4-e5", Improper},
        TMessageCase{"EnemyMan", ManyMen, "h7-h6", Improper},
        TMessageCase{"OwnManOnTarget", ManyMen, "Ra1-b1", Illegal},
        TMessageCase{"SameField", ManyMen, "d2-d2", Illegal},
        TMessageCase{"NotItsWay", ManyMen, "Nb1-b3", Illegal},
        TMessageCase{"PawnTakesNothing", ManyMen, "d2:e3", Illegal},
        TMessageCase{"EnPassantAtTheRoot", ManyMen, "b5:c6", Illegal},
        TMessageCase{"NoPromotion", "7k/P7/8/8/8/8/8/K7", "a7-a8", Illegal},
        TMessageCase{"PromotionTooEarly", "7k/8/P7/8/8/8/8/K7", "a6-a7Q", Illegal},
        TMessageCase{"FigurePromotes", "7k/R7/8/8/8/8/8/K7", "Ra7-a8Q", Illegal},
        TMessageCase{"CastlingOverMan", ManyMen, "0-0-0", Illegal},
        TMessageCase{"CastlingThroughAttack", "4kr2/8/8/8/8/8/8/4K2R", "0-0", Illegal},
        TMessageCase{"CastlingAwayFromHome", "4k3/8/8/8/8/8/4K3/7R", "0-0", Illegal},
        TMessageCase{"Pinned", "4k3/4r3/8/8/8/8/4N3/4K3", "Ne2-c3", Illegal},
        TMessageCase{"StaysInCheck", "4k3/4r3/8/8/8/8/8/N3K3", "Na1-b3", Illegal},
        TMessageCase{"IntoCheck", "4k3/3r4/8/8/8/8/8/4K3", "Ke1-d1", Illegal},
        TMessageCase{"TakesTheKing", "4k3/8/8/8/8/8/8/K3R3", "Re1:e8", Illegal},
        TMessageCase{"Huge", ManyMen, std::string(1'000'000, '-'), "Improper string length"}),
    CaseName);

TEST(CheckedMove, TakesTheSideFromThePlies) {
    TMove move;
    ParseCheckedMove(BoardOf(ManyMen, 2), move, "0-0-0");
    EXPECT_TRUE(move.SameAs({E8, C8, 0, 0}));
    ParseCheckedMove(BoardOf(ManyMen, 2), move, "h7-h5");
    EXPECT_TRUE(move.SameAs({String2Field("h7"), String2Field("h5"), 0, 0}));
}

TEST(MakeMoveFromText, PlaysEnPassantAfterADoubleStepOnly) {
    TRootOfLine root("4k3/2p5/8/1P1p4/8/8/8/4K2R");
    TChessboard* board = MakeMoveFromText(root.board, "Rh1-h2");
    board = MakeMoveFromText(*board, "c7-c5");
    board = MakeMoveFromText(*board, "b5:c6");
    EXPECT_EQ(WriteFen(*board, true), "4k3/8/2P5/3p4/8/8/7R/4K3");
}

TEST(MakeMoveFromText, QuotesAnyTextThatItCannotPlay) {
    TRootOfLine root("4k3/8/8/8/8/8/8/4K2R");
    for (const char* text : {"", "e2-e4", "Rh1-h9", "Rh1-g2", "nonsense"}) {
        EXPECT_THAT(
            [&] { MakeMoveFromText(root.board, text); },
            ThrowsMessage<ChessException>(std::string("Invalid move in MakeMove() : ") + text));
    }
    root.board.m_shPlies = 0;
    EXPECT_THAT([&] { MakeMoveFromText(root.board, "Ke8-e7"); },
                ThrowsMessage<ChessException>("Invalid move in MakeMove() : Ke8-e7"));
}

// A lone bishop mates nobody, so the solver never takes Black's last man with it; a user may.
TEST(MakeMoveFromText, RefusesALegalMoveThatGivesUpTheMate) {
    TRootOfLine root("4k3/8/8/8/8/8/6p1/4KB2");
    TMove move;
    EXPECT_NO_THROW(ParseCheckedMove(root.board, move, "Bf1:g2"));
    EXPECT_THROW(MakeMoveFromText(root.board, "Bf1:g2"), ChessException);
}

}  // namespace
}  // namespace tarnwick
