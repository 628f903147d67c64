#include <gtest/gtest.h>

#include <set>

#include "chess/interposers.h"
#include "chess/pins.h"
#include "support/board_line.h"
#include "support/random_positions.h"
#include "support/slow_attackers.h"

namespace tarnwick {
namespace {

TEST(Pins, AgreeWithTakingEachManAway) {
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 4000 && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story() + ": " + fen);
        line.Restart(slow::FromFen(fen));
        const TChessboard& board = line.Board();
        for (int field = 0; field < FieldCount; ++field) {
            const TFigureCode code = board.m_fields[field];
            if (code == EmptyField) {
                continue;
            }
            const bool pinned = slow::PinnerOf(line.Slow(), field) >= 0;
            EXPECT_EQ(IsWhite(code) ? IsWhiteFigurePinned(board, FileOf(field), RankOf(field))
                                    : IsBlackFigurePinned(board, FileOf(field), RankOf(field)),
                      pinned)
                << slow::FieldText(field);
            const TFieldSet all = IsWhite(code) ? PinnedWhiteMen(board) : PinnedBlackMen(board);
            EXPECT_EQ((all & FieldBit(field)) != 0, pinned) << slow::FieldText(field);
        }
    }
}

/// Men other than the king with a move to the field, en passant aside.
std::set<int> MenMovingTo(slow::TSlowPosition position, bool isWhite, int field) {
    position.isWhiteToMove = isWhite;
    std::set<int> men;
    for (const slow::TSlowMove& move : slow::PseudoLegalMoves(position)) {
        const char man = position.board[static_cast<std::size_t>(move.from)];
        if (move.to == field && man != 'K' && man != 'k') {
            men.insert(move.from);
        }
    }
    return men;
}

std::set<int> FieldsOf(const TFilePlace* pPlaces, int count) {
    std::set<int> fields;
    for (int i = 0; i < count; ++i) {
        fields.insert(FieldAt(pPlaces[i].file, pPlaces[i].rank));
    }
    return fields;
}

void ExpectInterposersAgree(CBoardLine& line, int field) {
    const TChessboard& board = line.Board();
    const int file = FileOf(field);
    const int rank = RankOf(field);
    TFilePlace places[MaxInterposers];
    int count = ListWhiteInterposers(board, file, rank, places);
    EXPECT_EQ(FieldsOf(places, count), MenMovingTo(line.Slow(), true, field));

    const std::set<int> black = MenMovingTo(line.Slow(), false, field);
    count = ListBlackInterposers(board, file, rank, places);
    EXPECT_EQ(FieldsOf(places, count), black);
    std::set<int> unpinned = black;
    std::erase_if(unpinned, [&](int man) { return slow::PinnerOf(line.Slow(), man) >= 0; });
    TFilePlace found;
    EXPECT_EQ(CanBlackInterpose(board, file, rank, &found), !unpinned.empty());
    EXPECT_EQ(
        unpinned.empty() ? found.file == 0xFF : unpinned.contains(FieldAt(found.file, found.rank)),
        true);
}

TEST(Interposers, AreTheMenThatCanMoveToAnEmptyField) {
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 1500 && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        line.Restart(slow::FromFen(fen));
        for (int field = 0; field < FieldCount; ++field) {
            if (line.Board().m_fields[field] == EmptyField) {
                SCOPED_TRACE(positions.Story() + ": " + fen + " " + slow::FieldText(field));
                ExpectInterposersAgree(line, field);
            }
        }
    }
}

TEST(Interposers, BlockedPawnAndMarkedPawnDoNotStep) {
    CBoardLine line("k7/4p3/4N3/8/8/8/3p4/K7");
    TChessboard& board = line.Board();
    EXPECT_FALSE(CanBlackInterpose(board, 4, 4, nullptr)) << "e7-e5 jumps over e6";
    EXPECT_TRUE(CanBlackInterpose(board, 3, 0, nullptr)) << "d2-d1";
    board.m_fields[FieldOf("d2")] = BlackPawn | MarkBit;
    EXPECT_FALSE(CanBlackInterpose(board, 3, 0, nullptr)) << "held by a heuristic";
}

}  // namespace
}  // namespace tarnwick
