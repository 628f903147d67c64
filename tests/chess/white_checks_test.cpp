#include "chess/white_checks.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/board_line.h"
#include "support/case_name.h"
#include "support/random_positions.h"
#include "support/slow_attackers.h"

namespace tarnwick {
namespace {

using TTexts = std::vector<std::string>;

struct TCase {
    const char* name;
    const char* fen;
    TTexts line;    ///< Played before the question.
    TTexts checks;  ///< Sorted.
};

const TCase Cases[] = {
    {"ShortCastlingDownTheFile", "5k2/8/8/8/8/8/8/4K2R", {}, {"0-0", "Rh1-f1", "Rh1-h8"}},
    {"LongCastlingDownTheFile", "3k4/8/8/8/8/8/8/R3K3", {}, {"0-0-0", "Ra1-a8", "Ra1-d1"}},
    {"ShortCastlingAlongTheRank",
     "8/8/8/8/8/8/8/2k1K2R",
     {},
     {"0-0", "Ke1-d2", "Ke1-e2", "Ke1-f2"}},
    {"LongCastlingAlongTheRank",
     "8/8/8/8/8/8/8/R3K1k1",
     {},
     {"0-0-0", "Ke1-d2", "Ke1-e2", "Ke1-f2"}},
    {"NoCastlingThroughAttackedField", "5k2/8/8/8/2b5/8/8/4K2R", {}, {"Rh1-f1", "Rh1-h8"}},
    {"NoCastlingWithRookThatCameHome",
     "5k2/7p/8/8/8/8/8/4K2R",
     {"Rh1-g1", "h7-h6", "Rg1-h1", "h6-h5"},
     {"Rh1-f1"}},
    {"PromotedLineRunsThroughThePawnsField", "8/4P3/8/8/4k3/8/8/K7", {}, {"e7-e8Q", "e7-e8R"}},
    {"PromotionToKnight", "8/3k1P2/8/8/8/8/8/K7", {}, {"f7-f8N"}},
    {"PromotionThatUncoversCountsForAllKinds",
     "8/R4P1k/8/8/8/8/8/K7",
     {},
     {"f7-f8B", "f7-f8N", "f7-f8Q", "f7-f8R"}},
    {"EnPassantUncoversThroughTheCapturedPawn",
     "8/3p4/4k3/4P3/8/8/8/K2B4",
     {"Bd1-b3", "d7-d5"},
     {"Bb3:d5", "e5:d6"}},
    {"PinnedManIsListed", "4k3/8/4r3/8/4N3/8/8/4K3", {}, {"Ne4-d6", "Ne4-f6"}},
};

class WhiteChecks : public ::testing::TestWithParam<TCase> {};

TEST_P(WhiteChecks, AreTheNamedMoves) {
    CBoardLine line(GetParam().fen);
    line.Play(GetParam().line);
    TMove moves[MaxMovesOfSide];
    const int count = GenerateWhiteChecks(line.Board(), moves);
    EXPECT_EQ(line.Texts(moves, count), GetParam().checks);
}

INSTANTIATE_TEST_SUITE_P(Checks, WhiteChecks, ::testing::ValuesIn(Cases), CaseName);

/// The white men but the king that attack the field.
std::set<int> ManlyAttackers(const slow::TSlowPosition& position, int field) {
    std::set<int> attackers = slow::AttackersOf(position, field, true);
    attackers.erase(slow::FieldOfMan(position, 'K'));
    return attackers;
}

/// The move gives the field an attacker that it did not have.
bool AttacksAnew(const slow::TSlowPosition& position, const slow::TSlowMove& move, int field) {
    if (move.from == field || move.to == field) {
        return false;
    }
    const std::set<int> before = ManlyAttackers(position, field);
    const std::set<int> after = ManlyAttackers(slow::Play(position, move), field);
    return std::any_of(after.begin(), after.end(),
                       [&](int attacker) { return !before.contains(attacker); });
}

template <typename TPredicate>
TTexts PseudoLegalTexts(const slow::TSlowPosition& position, TPredicate belongs) {
    TTexts texts;
    for (const slow::TSlowMove& move : slow::PseudoLegalMoves(position)) {
        if (belongs(move)) {
            texts.push_back(slow::FullText(position, move));
        }
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

void ExpectMenInFieldOrder(const TMove* pMoves, int count) {
    EXPECT_TRUE(
        std::is_sorted(pMoves, pMoves + count, [](TMove a, TMove b) { return a.from < b.from; }));
}

/// Fields that castling empties or fills; the question has no one answer for them.
bool IsCastlingField(int field) {
    return field <= FieldOf("h1");
}

void ExpectChecksAgree(CBoardLine& line) {
    const slow::TSlowPosition& position = line.Slow();
    const TChessboard& board = line.Board();
    TMove moves[MaxMovesOfSide];
    int count = GenerateWhiteChecks(board, moves);
    ExpectMenInFieldOrder(moves, count);
    const int king = BlackKingField(board);
    EXPECT_EQ(line.Texts(moves, count), PseudoLegalTexts(position, [&](const auto& move) {
                  return AttacksAnew(position, move, king);
              }));
    for (int field = 0; field < FieldCount; ++field) {
        SCOPED_TRACE(slow::FieldText(field));
        count = GenerateWhiteMovesToField(board, moves, field);
        ExpectMenInFieldOrder(moves, count);
        EXPECT_EQ(line.Texts(moves, count),
                  PseudoLegalTexts(position, [&](const auto& move) { return move.to == field; }));
    }
}

void ExpectChecksOnFieldAgree(CBoardLine& line, int field) {
    const slow::TSlowPosition& position = line.Slow();
    TMove moves[MaxMovesOfSide];
    int count = GenerateWhiteChecksOnField(line.Board(), FileOf(field), RankOf(field), moves);
    ExpectMenInFieldOrder(moves, count);
    const auto belongs = [&](const slow::TSlowMove& move) {
        return !(slow::IsCastling(position, move) && IsCastlingField(field)) &&
               AttacksAnew(position, move, field);
    };
    count = static_cast<int>(std::remove_if(moves, moves + count,
                                            [&](TMove move) {
                                                return IsCastlingField(field) &&
                                                       slow::IsCastling(position, SlowMoveOf(move));
                                            }) -
                             moves);
    EXPECT_EQ(line.Texts(moves, count), PseudoLegalTexts(position, belongs))
        << "on " << slow::FieldText(field);
}

TEST(WhiteChecks, AgreeWithPlayingEveryMoveAndLooking) {
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 2500 && !::testing::Test::HasFailure(); ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story() + ": " + fen);
        line.Restart(slow::FromFen(fen));
        ExpectChecksAgree(line);
        ExpectChecksOnFieldAgree(line, (i * 29) % 64);
    }
}

TEST(WhiteChecks, AgreeAfterDoubleStepsAndMovedRooks) {
    slow::CRandomPositions positions(slow::TestSeed());
    CBoardLine line("8/8/8/8/8/8/8/K1k5");
    for (int i = 0; i < 200 && !::testing::Test::HasFailure(); ++i) {
        const auto setting = i % 2 == 0 ? slow::TSetting::EnPassant : slow::TSetting::Castling;
        const std::string fen = positions.Next(setting);
        line.Restart(slow::FromFen(fen));
        std::string played = fen;
        for (const slow::TGameStep& step : slow::RandomGame(slow::TestSeed() + i, fen, 12)) {
            SCOPED_TRACE(positions.Story() + ": " + played);
            if (step.before.isWhiteToMove) {
                ExpectChecksAgree(line);
                for (int field = i % 13; field < FieldCount; field += 13) {
                    ExpectChecksOnFieldAgree(line, field);
                }
            }
            if (line.Try(MoveOf(step.move)) == MoveRefused) {
                break;
            }
            line.Play(MoveOf(step.move));
            played += " " + step.text;
        }
    }
}

}  // namespace
}  // namespace tarnwick
