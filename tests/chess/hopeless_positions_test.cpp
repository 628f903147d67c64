#include "chess/hopeless_positions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "chess/lines.h"
#include "chess/mate_in_one.h"
#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_attackers.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

bool IsHopeless(CBoardLine& line, std::uint16_t shPlies) {
    TChessboard board = line.Board();
    board.m_shPlies = shPlies;
    UpdateWrongBishopMark(board);
    return IsHopelessForWhite(board);
}

struct TCase {
    const char* name;
    const char* fen;
    int plies;
    bool isHopeless;
};

const TCase Cases[] = {
    {"KingAlone", "qrbnk3/pppp4/8/8/8/8/8/7K", 99, true},
    {"LoneBishopAgainstBareKing", "k7/8/K7/8/8/8/8/6B1", 99, true},
    {"LoneKnightMayMateASmotheredKing", "kn6/p7/K7/8/8/8/8/6N1", 99, false},
    {"TwoKnightsAgainstBareKing", "7k/8/5NK1/8/8/8/8/6N1", 99, true},
    {"TwoKnightsAgainstAPawn", "7k/8/5NK1/8/8/8/p7/6N1", 99, false},
    {"BishopAndKnight", "7k/8/5NK1/8/8/8/8/6B1", 99, false},
    {"BishopsOfOneColour", "7k/8/6K1/8/8/8/8/4B1B1", 99, true},
    {"BishopsOfBothColours", "7k/8/6K1/8/8/8/8/4BB2", 99, false},
    {"RookPawnBlockedByTheKing", "8/k7/8/P7/K7/8/8/8", 99, true},
    {"KnightPawn", "8/1k6/8/1P6/1K6/8/8/8", 99, false},
    {"PawnTooFarFromQueening", "8/8/4k3/8/8/8/1P6/K7", 7, true},
    {"PawnWithTimeToQueen", "8/8/4k3/8/8/8/1P6/K7", 11, false},
    {"RightBishopKingInTheCorner", "k7/8/8/P7/K7/8/8/3B4", 99, false},
    {"WrongBishopKingInTheCorner", "k7/8/8/P7/K7/8/8/4B3", 99, true},
    {"WrongBishopKingAway", "8/8/4k3/P7/K7/8/8/4B3", 99, false},
};

class Hopeless : public ::testing::TestWithParam<TCase> {};

TEST_P(Hopeless, OrNot) {
    CBoardLine line(GetParam().fen);
    EXPECT_EQ(IsHopeless(line, static_cast<std::uint16_t>(GetParam().plies)),
              GetParam().isHopeless);
}

INSTANTIATE_TEST_SUITE_P(Positions, Hopeless, ::testing::ValuesIn(Cases), CaseName);

TEST(HopelessPositions, HaveNoShortMate) {
    slow::CRandomPositions positions(slow::TestSeed(), {.minMen = 3, .maxMen = 6});
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    int hopeless = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::string fen = positions.Next(slow::TSetting::NearlyBare);
        line.Restart(slow::FromFen(fen));
        for (const int moves : {2, 3}) {
            if (IsHopeless(line, static_cast<std::uint16_t>(2 * moves - 1))) {
                ++hopeless;
                EXPECT_FALSE(slow::MateIn(line.Slow(), moves)) << positions.Story() << ": " << fen;
            }
        }
    }
    EXPECT_GT(hopeless, 1000);
}

TEST(HopelessPositions, BlackMoveSaysSoOnlyWithThreePliesLeft) {
    CBoardLine early("7k/8/8/8/8/8/r7/N3K3", false, 4);
    const TMove capture = {static_cast<TField>(FieldOf("a2")), A1, 0, 0};
    EXPECT_EQ(early.Try(capture), MoveMadeHopeless);
    CBoardLine late("7k/8/8/8/8/8/r7/N3K3", false, 2);
    EXPECT_EQ(late.Try(capture), MoveMade);
}

TEST(HopelessPositions, LastBlackManFallsOnlyToForceThatCanMate) {
    const TMove capture = {static_cast<TField>(FieldOf("g2")), static_cast<TField>(FieldOf("d5")),
                           0, 0};
    CBoardLine bishop("7k/8/8/3p4/8/8/6B1/K7");
    EXPECT_EQ(bishop.Try(capture), MoveRefused);
    CBoardLine pair("7k/8/8/3p4/8/8/6B1/K4B2");
    EXPECT_EQ(pair.Try(capture), MoveRefused) << "both on light fields";
    CBoardLine both("7k/8/8/3p4/8/8/6B1/K3B3");
    EXPECT_EQ(both.Try(capture), MoveMade);
    EXPECT_TRUE(both.Tried().m_searchFlags.Has(TSearchFlag::BareBlackKing));
}

TEST(HopelessPositions, TwoKnightsMayOnlyMateAtOnce) {
    CBoardLine line("7k/4N3/6K1/5N2/8/8/8/8", true);
    EXPECT_EQ(line.AcceptedMoves(), slow::AllKeys(line.Slow(), 1));
}

/// Rook's pawn and king against the bare king. A position with White to move holds for Black if every
/// move of White can be answered by stalemate, by taking the pawn or what it became, or by going to a
/// position that holds. Being generous to White, any promotion that is not taken at once counts as won.
class CRookPawnEnding {
  public:
    explicit CRookPawnEnding(int pawnFile) : m_pawnFile(pawnFile) {
        for (bool changed = true; changed;) {
            changed = false;
            for (int i = 0; i < static_cast<int>(m_holds.size()); ++i) {
                if (m_holds[static_cast<std::size_t>(i)] && SetUp(i) && !CanHold()) {
                    m_holds[static_cast<std::size_t>(i)] = false;
                    changed = true;
                }
            }
        }
    }

    /// Hopeless positions in which White could win after all.
    int CountWrongVerdicts() {
        int wrong = 0;
        for (int i = 0; i < static_cast<int>(m_holds.size()); ++i) {
            wrong += SetUp(i) && IsHopeless(m_line, 99) && !m_holds[static_cast<std::size_t>(i)];
        }
        return wrong;
    }
    /// White to move, the pawn on this file and nothing else beside the kings.
    bool Holds(const TChessboard& board) const {
        return m_holds[static_cast<std::size_t>(IndexOf(board))];
    }
    std::ptrdiff_t CountHolding() const { return std::count(m_holds.begin(), m_holds.end(), true); }

  private:
    int IndexOf(const TChessboard& board) const {
        return WhiteKingField(board) + 64 * BlackKingField(board) +
               4096 * (RankOf(LowestField(board.m_pawns)) - 1);
    }

    /// False if the numbers describe no position with White to move.
    bool SetUp(int index) {
        const int white = index % 64;
        const int black = index / 64 % 64;
        const int pawn = m_pawnFile + 8 * (index / 4096 + 1);
        if (white == black || white == pawn || black == pawn) {
            return false;
        }
        slow::TSlowPosition position;
        position.board.fill('.');
        position.board[static_cast<std::size_t>(white)] = 'K';
        position.board[static_cast<std::size_t>(black)] = 'k';
        position.board[static_cast<std::size_t>(pawn)] = 'P';
        if (slow::IsAttacked(position, black, true)) {
            return false;
        }
        m_line.Restart(position);
        return true;
    }

    bool CanHold() {
        TMove moves[MaxMovesOfSide];
        const int count = GenerateAllWhiteMoves(m_line.Board(), moves);
        return std::none_of(moves, moves + count, [&](TMove move) {
            TChessboard* after = CopyToNextSlot(m_line.Board());
            return MakeWhiteMove(*after, move) != MoveRefused && !HasAnswer(*after);
        });
    }

    bool HasAnswer(TChessboard& board) const {
        TMove moves[MaxMovesOfSide];
        const int count = GenerateAllBlackMoves(board, moves);
        bool mayMove = false;
        for (int i = 0; i < count; ++i) {
            TChessboard* after = CopyToNextSlot(board);
            if (MakeBlackMove(*after, moves[i], false) == MoveRefused) {
                continue;
            }
            mayMove = true;
            const bool isPawnGone = !HasMoreThanOne(after->m_whiteMen);
            if (isPawnGone || (after->m_pawns != 0 && Holds(*after))) {
                return true;
            }
        }
        return !mayMove && board.m_blackChecker == NoChecker;
    }

    int m_pawnFile;
    CBoardLine m_line{"8/8/8/8/8/8/8/K1k5"};
    std::vector<bool> m_holds = std::vector<bool>(6 * 4096, true);
};

TEST(HopelessPositions, BlockedRookPawnIsDrawnInEveryPosition) {
    CRookPawnEnding ending(0);
    EXPECT_EQ(ending.CountWrongVerdicts(), 0);
    EXPECT_LT(ending.CountHolding(), 6 * 4096 - 5000) << "White wins many of the others";
}

/// Black has an answer to every white move: a position that is hopeless again, a capture of the bishop
/// that leaves a drawn pawn ending, or stalemate.
bool StaysHopeless(CBoardLine& line, const CRookPawnEnding& pawnEnding) {
    const auto isAnswer = [&](TChessboard& board, TMove reply) {
        TChessboard* after = CopyToNextSlot(board);
        const int result = MakeBlackMove(*after, reply, false);
        const bool isBishopGone = after->m_whiteBishops == 0 && after->m_pawns != 0;
        return result == MoveMadeHopeless ||
               (result == MoveMade && isBishopGone && pawnEnding.Holds(*after));
    };
    const auto isStalemate = [&](TChessboard& board, const TMove* pReplies, int count) {
        return board.m_blackChecker == NoChecker &&
               std::none_of(pReplies, pReplies + count, [&](TMove reply) {
                   return MakeBlackMove(*CopyToNextSlot(board), reply, false) != MoveRefused;
               });
    };
    TMove moves[MaxMovesOfSide];
    const int count = GenerateAllWhiteMoves(line.Board(), moves);
    return std::all_of(moves, moves + count, [&](TMove move) {
        TChessboard* after = CopyToNextSlot(line.Board());
        if (MakeWhiteMove(*after, move) == MoveRefused) {
            return true;
        }
        TMove replies[MaxMovesOfSide];
        const int replyCount = GenerateAllBlackMoves(*after, replies);
        return std::any_of(replies, replies + replyCount,
                           [&](TMove reply) { return isAnswer(*after, reply); }) ||
               isStalemate(*after, replies, replyCount);
    });
}

/// King, bishop and rook's pawn anywhere, the black king within a step of the pawn's corner.
slow::TSlowPosition RandomBishopEnding(slow::CDice& dice, int pawnFile) {
    slow::TSlowPosition position;
    position.board.fill('.');
    const auto put = [&](char man, int field) {
        position.board[static_cast<std::size_t>(field)] = man;
    };
    put('B', dice.Below(64));
    put('P', pawnFile + 8 + 8 * dice.Below(6));
    put('K', dice.Below(64));
    put('k', std::abs(pawnFile - dice.Below(2)) + 48 + 8 * dice.Below(2));
    return position;
}

TEST(HopelessPositions, WrongBishopAndRookPawnStayHopeless) {
    slow::CDice dice(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    int hopeless = 0;
    for (const int pawnFile : {0, 7}) {
        const CRookPawnEnding pawnEnding(pawnFile);
        for (int i = 0; i < 50000; ++i) {
            const slow::TSlowPosition position = RandomBishopEnding(dice, pawnFile);
            const auto men = 64 - std::count(position.board.begin(), position.board.end(), '.');
            if (men != 4 || slow::IsAttacked(position, slow::FieldOfMan(position, 'k'), true)) {
                continue;
            }
            line.Restart(position);
            // The make operations keep the mark that the root has been given.
            UpdateWrongBishopMark(line.Board());
            if (IsHopeless(line, 99)) {
                ++hopeless;
                ASSERT_TRUE(StaysHopeless(line, pawnEnding)) << slow::PlacementText(position);
            }
        }
    }
    EXPECT_GT(hopeless, 10000);
}

/// Black to move, two white knights against the bare king: every reply allows a mate at once.
bool MustBlackAllowMate(CBoardLine& line) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateAllBlackMoves(line.Board(), moves);
    bool mayMove = false;
    for (int i = 0; i < count; ++i) {
        TChessboard* after = CopyToNextSlot(line.Board());
        if (MakeBlackMove(*after, moves[i], false) == MoveRefused) {
            continue;
        }
        mayMove = true;
        if (!HasMoreThanOne(after->m_knights) || !IsMateInOne(*after)) {
            return false;
        }
    }
    return mayMove;
}

TEST(SlowHopelessPositions, TwoKnightsNeverForceMateInTwo) {
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    // Symmetry brings the black king into one eighth of the board.
    for (const int black : {0, 1, 2, 3, 9, 10, 11, 18, 19, 27}) {
        for (int white = 0; white < 64; ++white) {
            for (int first = 0; first < 64; ++first) {
                for (int second = first + 1; second < 64; ++second) {
                    slow::TSlowPosition position;
                    position.board.fill('.');
                    position.board[static_cast<std::size_t>(first)] = 'N';
                    position.board[static_cast<std::size_t>(second)] = 'N';
                    position.board[static_cast<std::size_t>(white)] = 'K';
                    position.board[static_cast<std::size_t>(black)] = 'k';
                    position.isWhiteToMove = false;
                    const int men = static_cast<int>(
                        64 - std::count(position.board.begin(), position.board.end(), '.'));
                    if (men != 4 || slow::IsAttacked(position, white, false)) {
                        continue;
                    }
                    line.Restart(position);
                    ASSERT_FALSE(MustBlackAllowMate(line)) << slow::PlacementText(position);
                }
            }
        }
    }
}

}  // namespace
}  // namespace tarnwick
