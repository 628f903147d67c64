// Generators, make operations and mate tests against the slow rules, over random positions and games.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>

#include "chess/attacks.h"
#include "chess/escape_check.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/hopeless_positions.h"
#include "chess/mate_in_one.h"
#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_attackers.h"
#include "support/slow_solver.h"

namespace tarnwick {
namespace {

using TTexts = std::vector<std::string>;

TTexts Difference(const TTexts& all, const TTexts& some) {
    TTexts rest;
    std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::back_inserter(rest));
    return rest;
}

/// White moves after which White can mate no bare king: they may be refused.
bool LeavesWhiteWithoutForce(const slow::TSlowPosition& after) {
    std::string white;
    std::set<int> bishopColours;
    int blackMen = 0;
    for (int field = 0; field < 64; ++field) {
        const char man = after.board[static_cast<std::size_t>(field)];
        blackMen += slow::IsManOfColour(man, false) ? 1 : 0;
        if (slow::IsManOfColour(man, true) && man != 'K') {
            white += man;
            bishopColours.insert(man == 'B' ? (field / 8 + field) % 2 : 2);
        }
    }
    const bool onlyKnights = white.empty() || white == "N" || white == "NN";
    const bool oneColouredBishops = bishopColours.size() <= 1 && !bishopColours.contains(2);
    return blackMen == 1 && (onlyKnights || oneColouredBishops) && !slow::IsMate(after);
}

void ExpectMovesAgree(CBoardLine& line) {
    const slow::TSlowPosition& position = line.Slow();
    TMove moves[MaxMovesOfSide];
    const bool isWhite = position.isWhiteToMove;
    const int count = isWhite ? GenerateAllWhiteMoves(line.Board(), moves)
                              : GenerateAllBlackMoves(line.Board(), moves);
    TTexts pseudoLegal;
    for (const slow::TSlowMove& move : slow::PseudoLegalMoves(position)) {
        pseudoLegal.push_back(slow::FullText(position, move));
    }
    std::sort(pseudoLegal.begin(), pseudoLegal.end());
    EXPECT_EQ(line.Texts(moves, count), pseudoLegal);

    const TTexts legal = slow::LegalMoveTexts(position);
    const TTexts accepted = line.AcceptedMoves();
    EXPECT_EQ(Difference(accepted, legal), TTexts{}) << "accepted, but not legal";
    for (const std::string& text : Difference(legal, accepted)) {
        const slow::TSlowMove move = *slow::FindMove(position, text);
        EXPECT_TRUE(isWhite && LeavesWhiteWithoutForce(slow::Play(position, move)))
            << text << " was refused";
    }
}

void ExpectEvasionsAgree(CBoardLine& line) {
    if (!slow::InCheck(line.Slow())) {
        return;
    }
    TMove moves[MaxMovesOfSide];
    const int count = IsWhiteToMove(line.Board()) ? GenerateWhiteEvasions(line.Board(), moves)
                                                  : GenerateBlackEvasions(line.Board(), moves);
    TMove* end = std::remove_if(moves, moves + count,
                                [&](TMove move) { return line.Try(move) == MoveRefused; });
    EXPECT_EQ(line.Texts(moves, static_cast<int>(end - moves)), line.AcceptedMoves());
}

std::multiset<int> ListedFields(const TChessboard& board) {
    std::multiset<int> fields;
    if (board.m_bWhiteFiguresListed == 0) {
        return fields;
    }
    const auto add = [&](const TField* pList, int count, int kind) {
        for (int i = 0; i < count; ++i) {
            fields.insert(kind * 64 + pList[i]);
        }
    };
    add(board.m_whiteRookFields, board.m_whiteRooks, 0);
    add(board.m_whiteBishopFields, board.m_whiteBishops, 1);
    add(board.m_whiteKnightFields, board.m_whiteKnights, 2);
    add(&board.m_whiteQueenField, board.m_whiteQueens, 3);
    return fields;
}

/// What a make operation kept equals what its 64 fields say.
void ExpectKeptMembersAreRight(const TChessboard& kept) {
    TChessboard fresh = kept;
    PreparePosition(fresh, false);
    EXPECT_EQ(kept.m_whiteMen, fresh.m_whiteMen);
    EXPECT_EQ(kept.m_blackMen, fresh.m_blackMen);
    EXPECT_EQ(kept.m_pawns, fresh.m_pawns);
    EXPECT_EQ(kept.m_knights, fresh.m_knights);
    EXPECT_EQ(kept.m_diagonalSliders, fresh.m_diagonalSliders);
    EXPECT_EQ(kept.m_straightSliders, fresh.m_straightSliders);
    EXPECT_EQ(0, std::memcmp(&kept.m_whiteQueens, &fresh.m_whiteQueens, 10)) << "counters";
    EXPECT_EQ(kept.m_bWhiteFiguresListed, fresh.m_bWhiteFiguresListed);
    EXPECT_EQ(ListedFields(kept), ListedFields(fresh));
    EXPECT_EQ(WhiteKingField(kept), WhiteKingField(fresh));
    EXPECT_EQ(BlackKingField(kept), BlackKingField(fresh));
    EXPECT_EQ(BlackKingEdgeDistance(kept), BlackKingEdgeDistance(fresh));
    if (IsWhiteToMove(kept)) {
        EXPECT_EQ(kept.m_whiteChecker, fresh.m_whiteChecker);
    } else {
        EXPECT_EQ(kept.m_blackChecker, fresh.m_blackChecker);
    }
    UpdateWrongBishopMark(fresh);
    EXPECT_EQ(kept.m_stateBits.Has(TStateBit::WrongBishopRookPawn),
              fresh.m_stateBits.Has(TStateBit::WrongBishopRookPawn));
}

std::string Placement(const TChessboard& board) {
    slow::TSlowPosition position;
    for (std::size_t field = 0; field < FieldCount; ++field) {
        const TFigureCode code = board.m_fields[field];
        position.board[field] = code == EmptyField ? '.' : CodeToLetter[code];
    }
    return slow::PlacementText(position);
}

void ExpectMakesAreRight(CBoardLine& line) {
    const slow::TSlowPosition& position = line.Slow();
    for (const slow::TSlowMove& move : slow::LegalMoves(position)) {
        SCOPED_TRACE(slow::FullText(position, move));
        if (line.Try(MoveOf(move)) == MoveRefused) {
            continue;
        }
        const slow::TSlowPosition after = slow::Play(position, move);
        const TChessboard& made = line.Tried();
        EXPECT_EQ(Placement(made), slow::PlacementText(after));
        EXPECT_EQ(made.m_shPlies, line.Board().m_shPlies - 1);
        EXPECT_TRUE(made.m_lastMove.SameAs(MoveOf(move)));
        EXPECT_EQ(made.m_lastMove.IsEnPassant(), slow::IsEnPassant(position, move));
        ExpectKeptMembersAreRight(made);
        if (made.m_blackChecker != NoChecker && !after.isWhiteToMove) {
            EXPECT_EQ(CanBlackEscapeCheck(made), slow::HasLegalMove(after));
        }
    }
}

/// Legal king steps by the slow rules, castling aside.
int KingSteps(slow::TSlowPosition position, bool isWhite) {
    position.isWhiteToMove = isWhite;
    int count = 0;
    for (const slow::TSlowMove& move : slow::LegalMoves(position)) {
        const char man = position.board[static_cast<std::size_t>(move.from)];
        count += (man == (isWhite ? 'K' : 'k') && !slow::IsCastling(position, move)) ? 1 : 0;
    }
    return count;
}

void ExpectKingMobilityAgrees(CBoardLine& line) {
    EXPECT_EQ(CountBlackKingMoves(line.Board()), KingSteps(line.Slow(), false));
    int flights = 0;
    for (TFieldSet set = BlackKingFlights(line.Board()); set != 0; PopLowest(set)) {
        ++flights;
    }
    EXPECT_EQ(flights, KingSteps(line.Slow(), false));
    if (!slow::InCheck(line.Slow()) || !line.Slow().isWhiteToMove) {
        return;
    }
    EXPECT_GE(IsWhiteKingMovable(line.Board()), KingSteps(line.Slow(), true) > 0);
}

void ExpectMateInOneAgrees(CBoardLine& line) {
    if (!line.Slow().isWhiteToMove) {
        return;
    }
    const TTexts keys = slow::AllKeys(line.Slow(), 1);
    EXPECT_EQ(IsMateInOne(line.Board()), !keys.empty());
    TMove moves[MaxMovesOfSide];
    const int count = GenerateMatingMoves(line.Board(), moves);
    EXPECT_EQ(line.Texts(moves, count), keys);
}

void ExpectAllAgrees(CBoardLine& line) {
    ExpectMovesAgree(line);
    ExpectEvasionsAgree(line);
    ExpectMakesAreRight(line);
    ExpectKingMobilityAgrees(line);
    ExpectMateInOneAgrees(line);
}

void ExpectRandomPositionsAgree(std::uint64_t seed, int count) {
    slow::CRandomPositions positions(seed);
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < count && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story() + ": " + fen);
        line.Restart(slow::FromFen(fen));
        ExpectAllAgrees(line);
    }
}

void ExpectRandomGamesAgree(std::uint64_t seed, int count, int plies) {
    slow::CRandomPositions positions(seed);
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < count && !::testing::Test::HasFailure(); ++i) {
        std::string played = positions.Next();
        line.Restart(slow::FromFen(played));
        for (const slow::TGameStep& step :
             slow::RandomGame(seed + static_cast<std::uint64_t>(i), played, plies)) {
            SCOPED_TRACE(positions.Story() + ": " + played);
            ExpectAllAgrees(line);
            if (::testing::Test::HasFailure() || line.Try(MoveOf(step.move)) == MoveRefused) {
                break;
            }
            line.Play(MoveOf(step.move));
            played += " " + step.text;
        }
    }
}

TEST(MoveGeneration, RandomPositionsAgreeWithTheSlowRules) {
    ExpectRandomPositionsAgree(slow::TestSeed(), 6000);
}

TEST(MoveGeneration, RandomGamesAgreeWithTheSlowRules) {
    ExpectRandomGamesAgree(slow::TestSeed(), 400, 40);
}

TEST(SlowMoveGeneration, ManyRandomPositionsAndGamesAgree) {
    ExpectRandomPositionsAgree(slow::TestSeed() + 1, 100000);
    ExpectRandomGamesAgree(slow::TestSeed() + 1, 3000, 80);
}

struct TMateCase {
    const char* name;
    const char* fen;
    TTexts line;  ///< Played before the question.
    TTexts keys;  ///< All mates in one.
};

const TMateCase MateCases[] = {
    {"ShortCastling", "8/2p5/8/8/8/8/1P3R2/1nk1K2R", {}, {"0-0"}},
    {"LongCastling", "8/8/8/8/8/8/3Q4/R3K1k1", {}, {"0-0-0"}},
    {"NoCastlingWithARookThatCameHome",
     "8/2p5/8/8/8/8/1P3R2/1nk1K2R",
     {"Rh1-h2", "c7-c6", "Rh2-h1", "c6-c5"},
     {}},
    {"KingUncovers", "8/8/2p5/7R/8/7K/4N3/7k", {}, {"Kh3-g3"}},
    {"KnightPromotion", "7K/6Pp/6bk/6pp/8/8/8/8", {}, {"g7-g8N"}},
    {"EnPassant", "5B2/1Kpk4/8/1P4B1/8/8/8/4R3", {"Re1-e2", "c7-c5"}, {"b5:c6"}},
    {"WhiteInCheckMatesByCapture", "7k/5Krp/7P/7B/8/3p4/8/8", {}, {"h6:g7"}},
};

class MateInOne : public ::testing::TestWithParam<TMateCase> {};

TEST_P(MateInOne, IsFoundOrNot) {
    CBoardLine line(GetParam().fen);
    line.Play(GetParam().line);
    ASSERT_EQ(slow::AllKeys(line.Slow(), 1), GetParam().keys);
    ExpectMateInOneAgrees(line);
}

INSTANTIATE_TEST_SUITE_P(MoveGeneration, MateInOne, ::testing::ValuesIn(MateCases), CaseName);

TEST(MoveGeneration, ListsHaveRoomForTheWildestSetUps) {
    for (const char* fen : {"QQQQQQQQ/QRRRRRRQ/Q6Q/Q6Q/Q6Q/Q6Q/Q5RQ/k6K",
                            "Q2Q3Q/4Q3/1Q4Q1/3Q4/1Q4R1/3Q4/2P2Q2/K1BR2Nk",
                            "1q1q1q1q/P1P1P1P1/8/Q1Q1Q1Q1/8/1Q1Q1Q1Q/8/K6k"}) {
        CBoardLine line(fen);
        TMove moves[MaxMovesOfSide];
        const int count = GenerateAllWhiteMoves(line.Board(), moves);
        EXPECT_EQ(count, static_cast<int>(slow::PseudoLegalMoves(line.Slow()).size()));
    }
}

}  // namespace
}  // namespace tarnwick
