#include "engine/ordering/order_hints.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "support/board_line.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

constexpr TFigureCode Promotions[] = {0, TypeQueen, TypeRook, TypeBishop, TypeKnight};

/// Pseudo-legal moves a hint may be: all but castling and en passant.
std::set<std::tuple<int, int, int>> HintableMoves(const CBoardLine& line, const TMove* pMoves,
                                                  int count) {
    std::set<std::tuple<int, int, int>> hintable;
    for (int i = 0; i < count; ++i) {
        const slow::TSlowMove move = SlowMoveOf(pMoves[i]);
        if (!slow::IsCastling(line.Slow(), move) && !slow::IsEnPassant(line.Slow(), move)) {
            hintable.emplace(pMoves[i].from, pMoves[i].to, pMoves[i].PromotionType());
        }
    }
    return hintable;
}

/// Asks for every move that four bytes can name.
void CheckAllMoves(CBoardLine& line, bool isWhite) {
    TMove moves[MaxMovesOfSide];
    const TChessboard& board = line.Board();
    const int count =
        isWhite ? GenerateAllWhiteMoves(board, moves) : GenerateAllBlackMoves(board, moves);
    const auto hintable = HintableMoves(line, moves, count);
    for (int from = 0; from < FieldCount; ++from) {
        for (int to = 0; to < FieldCount; ++to) {
            for (const TFigureCode promotion : Promotions) {
                const TMove move{static_cast<TField>(from), static_cast<TField>(to), promotion, 0};
                const bool isPossible =
                    isWhite ? IsPossibleWhiteHint(board, move) : IsPossibleBlackHint(board, move);
                ASSERT_EQ(isPossible, hintable.contains({from, to, promotion}))
                    << slow::PlacementText(line.Slow()) << " " << slow::FieldText(from)
                    << slow::FieldText(to) << " " << int{promotion};
            }
        }
    }
}

TEST(OrderHints, ArePossibleExactlyWhenPseudoLegal) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int game = 0; game < 80; ++game) {
        const std::string fen = positions.Next();
        CBoardLine line(fen);
        // Through random play come double steps, lost castlings and promoted men.
        for (const slow::TGameStep& step :
             slow::RandomGame(slow::TestSeed() + static_cast<std::uint64_t>(game), fen, 6)) {
            ASSERT_NO_FATAL_FAILURE(CheckAllMoves(line, IsWhiteToMove(line.Board())))
                << positions.Story();
            if (line.Try(MoveOf(step.move)) == MoveRefused) {
                break;  // White gave away the force to mate.
            }
            line.Play(MoveOf(step.move));
        }
    }
}

TEST(OrderHints, TheLastDecisiveMoveAndTheAnswerToTheSameMoveComeBack) {
    TOrderHints hints;
    CBoardLine line("k7/8/8/8/8/8/8/K6R", true, 21);
    EXPECT_TRUE(hints.For(line.Board())[0].IsPass());
    line.Play({"Rh1-h2", "Ka8-b8"});
    const TMove afterB8{H1, H8, 0, 0};
    const TMove afterB7{H1, G1, 0, 0};
    const TChessboard toB8 = line.Board();
    hints.Note(toB8, afterB8);

    line.Restart(slow::FromFen("k7/8/8/8/8/8/8/K6R"), 21);
    line.Play({"Rh1-h2", "Ka8-b7"});
    hints.Note(line.Board(), afterB7);
    EXPECT_TRUE(hints.For(line.Board())[0].SameAs(afterB7));
    EXPECT_TRUE(hints.For(toB8)[0].SameAs(afterB8)) << "the answer to the king's other move";
    EXPECT_TRUE(hints.For(toB8)[1].SameAs(afterB7)) << "the last of this ply";
}

TEST(OrderHints, SidesAndPliesDoNotMix) {
    TOrderHints hints;
    // The deepest and the shallowest ply of both sides: the table must hold them apart or together,
    // never beyond its end.
    CBoardLine line("k7/8/8/8/8/8/8/K6R");
    for (const std::uint16_t plies : {std::uint16_t{599}, std::uint16_t{598}}) {
        line.Restart(slow::FromFen("k7/8/8/8/8/8/8/K6R", plies % 2 != 0), plies);
        hints.Note(line.Board(), plies % 2 != 0 ? TMove{H1, H8, 0, 0} : TMove{A8, B8, 0, 0});
    }
    line.Restart(slow::FromFen("k7/8/8/8/8/8/8/K6R"), 599);
    EXPECT_TRUE(hints.For(line.Board())[1].SameAs(TMove{H1, H8, 0, 0}));
    line.Restart(slow::FromFen("k7/8/8/8/8/8/8/K6R"), 3);
    EXPECT_TRUE(hints.For(line.Board())[1].IsPass()) << "nothing is known three plies from the end";
}

}  // namespace
}  // namespace tarnwick
