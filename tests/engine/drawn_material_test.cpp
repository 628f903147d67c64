// The engine gives up positions in which White's force cannot mate. Each such verdict is counted out here
// over all placings of the men, and whole solves are compared with solved endings.

#include <gtest/gtest.h>

#include <cstdlib>

#include "chess/hopeless_positions.h"
#include "chess/prepare_position.h"
#include "solve_support.h"
#include "support/random_positions.h"
#include "support/small_endings.h"

namespace tarnwick {
namespace {

CSmallEndings& Endings() {
    static CSmallEndings endings;
    return endings;
}

/// A board with a stack behind it, set up anew for each position.
class CVerdicts {
  public:
    CVerdicts() { m_board.m_pThread = &m_stack; }

    /// White to move after a black move, with that many white moves left.
    bool IsHopeless(const TEndingPosition& position, int moves) {
        std::fill(std::begin(m_board.m_fields), std::end(m_board.m_fields), EmptyField);
        m_board.m_fields[position.whiteKing] = WhiteKing;
        m_board.m_fields[position.blackKing] = BlackKing;
        for (std::size_t i = 0; i < static_cast<std::size_t>(position.count); ++i) {
            m_board.m_fields[position.fields[i]] =
                FigureCodeFromLetter(position.letters[i]) |
                (position.letters[i] < 'a' ? WhiteFlag : BlackFlag);
        }
        m_board.m_shPlies = static_cast<std::uint16_t>(2 * moves - 1);
        PreparePosition(m_board, true);
        return IsHopelessForWhite(m_board);
    }

  private:
    TBoardStack m_stack;
    TChessboard m_board = EmptyChessboard();
};

/// Every verdict against the solved ending; returns how many there were.
int CheckVerdicts(const std::string& men, std::initializer_list<int> moves) {
    CVerdicts verdicts;
    int hopeless = 0;
    int wrong = 0;
    ForEachEnding(men, [&](const TEndingPosition& position) {
        if (!IsLegalEnding(position, true)) {
            return;
        }
        const int best = Endings().MovesToMate(position);
        for (const int n : moves) {
            if (!verdicts.IsHopeless(position, n)) {
                continue;
            }
            ++hopeless;
            if (best != 0 && best <= n && wrong++ == 0) {
                ADD_FAILURE() << position.Fen() << " #" << n << " is a mate in " << best;
            }
        }
    });
    return hopeless;
}

TEST(SolvedEndings, HaveTheLengthsThatAreKnown) {
    const std::map<std::string, int> longest = {
        {"N", 0}, {"B", 0}, {"R", 16}, {"Q", 10}, {"P", 28}};
    for (const auto& [men, length] : longest) {
        int found = 0;
        ForEachEnding(men, [&, n = &found](const TEndingPosition& position) {
            if (IsLegalEnding(position, true)) {
                *n = std::max(*n, Endings().MovesToMate(position));
            }
        });
        EXPECT_EQ(found, length) << men;
    }
}

TEST(DrawnMaterial, ALoneMinorPieceNeverMates) {
    EXPECT_GT(CheckVerdicts("B", {2, 50}), 50000);
    EXPECT_GT(CheckVerdicts("N", {2, 50}), 50000);
}

TEST(DrawnMaterial, ALonePawnThatComesTooLateOrIsBlockedNeverMates) {
    EXPECT_GT(CheckVerdicts("P", {2, 3, 4, 5, 6, 7, 8, 10, 12, 20, 50}), 100000);
}

TEST(DrawnMaterial, TwoKnightsMateAtOnceOrNever) {
    EXPECT_GT(CheckVerdicts("NN", {3}), 1500000);
}

TEST(DrawnMaterial, BishopsOfOneColourNeverMate) {
    CVerdicts verdicts;
    int hopeless = 0;
    ForEachEnding("BB", [&](const TEndingPosition& position) {
        if (!IsLegalEnding(position, false)) {
            return;
        }
        const int first = position.fields[0];
        const int second = position.fields[1];
        const bool isOneColour = (first / 8 + first % 8 + second / 8 + second % 8) % 2 == 0;
        const bool isMate = IsInCheck(position, false) &&
                            !AnySuccessor(position, false, [](const auto&) { return true; });
        if (isMate && isOneColour) {
            ADD_FAILURE() << position.Fen();
        }
        if (IsLegalEnding(position, true)) {
            const bool isHopeless = verdicts.IsHopeless(position, 30);
            hopeless += isHopeless;
            EXPECT_TRUE(isOneColour || !isHopeless) << position.Fen();
        }
    });
    EXPECT_GT(hopeless, 500000);
}

TEndingPosition Mirrored(TEndingPosition position) {
    position.whiteKing ^= 7;
    position.blackKing ^= 7;
    for (int& field : position.fields) {
        field ^= 7;
    }
    return position;
}

/// King, bishop and a pawn on the a-file whose corner a8 the bishop cannot cover, against a king on the
/// corner or beside it. The largest set of such positions from which Black never has to go.
class CCornerFortress {
  public:
    CCornerFortress() {
        for (bool isChanged = true; isChanged;) {
            isChanged = false;
            for (std::size_t i = 0; i < m_holds.size(); ++i) {
                if (m_holds[i] && !Holds(PositionAt(i))) {
                    m_holds[i] = false;
                    isChanged = true;
                }
            }
        }
    }

    /// The positions that started in the set, legal ones with White to move.
    void ForEach(const std::function<void(const TEndingPosition&)>& see) const {
        for (std::size_t i = 0; i < m_holds.size(); ++i) {
            if (IsLegalEnding(PositionAt(i), true)) {
                see(PositionAt(i));
            }
        }
    }

    /// Bishop and pawn anywhere: proved to hold, on this side of the board or on the other.
    bool IsProved(const TEndingPosition& position) const {
        return IsProvedHere(position) || IsProvedHere(Mirrored(position));
    }

  private:
    static constexpr std::array<int, 4> Home = {56, 57, 48, 49};  // a8 b8 a7 b7

    /// a8 is a white field, so the bishop goes on black ones.
    static TEndingPosition PositionAt(std::size_t index) {
        const auto i = static_cast<int>(index);
        const int rank = i / 4 % 8;
        const int bishop = 8 * rank + 2 * (i % 4) + (rank % 2);
        return {.whiteKing = i / 32 % 64,
                .blackKing = Home[index / 2048 % 4],
                .count = 2,
                .letters = {'B', 'P'},
                .fields = {bishop, 8 * (1 + i / 8192)}};
    }
    bool IsProvedHere(const TEndingPosition& position) const {
        const int bishop = position.fields[0];
        return (bishop / 8 + bishop % 8) % 2 == 0 && position.fields[1] % 8 == 0 &&
               std::find(Home.begin(), Home.end(), position.blackKing) != Home.end() &&
               m_holds[IndexOf(position)];
    }
    static std::size_t IndexOf(const TEndingPosition& position) {
        const auto home = std::find(Home.begin(), Home.end(), position.blackKing) - Home.begin();
        const int bishop = position.fields[0];
        return static_cast<std::size_t>(4 * (bishop / 8) + bishop % 8 / 2 +
                                        32 * position.whiteKing + 2048 * home +
                                        8192 * (position.fields[1] / 8 - 1));
    }

    /// White to move: Black has an answer to every move.
    bool Holds(const TEndingPosition& position) const {
        return !IsLegalEnding(position, true) ||
               !AnySuccessor(position, true, [&](const auto& next) { return !HasAnswer(next); });
    }
    bool HasAnswer(const TEndingPosition& position) const {
        bool canMove = false;
        const auto isDrawn = [&](const TEndingPosition& next) {
            canMove = true;
            return IsDrawn(next);
        };
        return AnySuccessor(position, false, isDrawn) || (!canMove && !IsInCheck(position, false));
    }
    /// White to move. A promoted figure that is still there counts as a win.
    bool IsDrawn(const TEndingPosition& position) const {
        if (position.count < 2) {
            return Endings().MovesToMate(position) == 0;
        }
        return position.letters[1] == 'P' &&
               std::find(Home.begin(), Home.end(), position.blackKing) != Home.end() &&
               m_holds[IndexOf(position)];
    }

    std::vector<bool> m_holds = std::vector<bool>(std::size_t{6} * 8192, true);
};

TEndingPosition RandomEnding(slow::CDice& dice, const std::string& men) {
    TEndingPosition position;
    do {
        position.whiteKing = dice.Below(64);
        position.blackKing = dice.Below(64);
        position.count = static_cast<int>(men.size());
        for (std::size_t i = 0; i < men.size(); ++i) {
            position.letters[i] = men[i];
            position.fields[i] = dice.Below(64);
        }
        // A king on e1 might castle, which the solved endings do not know.
    } while (!IsLegalEnding(position, true) || position.whiteKing == 4);
    return position;
}

TEST(DrawnMaterial, TheWrongBishopsCornerHolds) {
    const CCornerFortress fortress;
    CVerdicts verdicts;
    int hopeless = 0;
    int wrong = 0;
    const auto check = [&](const TEndingPosition& position) {
        const bool isHopeless = verdicts.IsHopeless(position, 50);
        hopeless += isHopeless;
        if (isHopeless && !fortress.IsProved(position) && wrong++ == 0) {
            ADD_FAILURE() << position.Fen();
        }
    };
    fortress.ForEach([&](const TEndingPosition& position) {
        check(position);
        check(Mirrored(position));
    });
    EXPECT_GT(hopeless, 50000);
    // No verdict anywhere else.
    slow::CDice dice(slow::TestSeed());
    for (int i = 0; i < 300000; ++i) {
        check(RandomEnding(dice, "BP"));
    }
}

// ---- Whole solves of solved endings

/// White's moves that keep the mate within n moves, as placements after them.
std::vector<std::string> KeysByTable(const TEndingPosition& position, int n) {
    std::vector<std::string> after;
    AnySuccessor(position, true, [&](const TEndingPosition& next) {
        const int lost = Endings().MovesToBeMated(next);
        if (lost >= 0 && lost < n) {
            after.push_back(next.Fen());
        }
        return false;
    });
    std::sort(after.begin(), after.end());
    return after;
}

std::vector<std::string> KeysByEngine(const TEndingPosition& position, int n) {
    std::vector<std::string> after;
    const std::string fen = position.Fen();
    for (const TMove key : Solve(fen, n, AllKeysWanted(8)).keys) {
        CSearchLine line(fen, 2 * n - 1);
        after.push_back(WriteFen(line.Play({MoveToDisplayText(key, line.Root())}).Board(), true));
    }
    std::sort(after.begin(), after.end());
    return after;
}

/// Solves endings at the length of their mate, one move below and one above.
void CheckSolves(const std::string& men, int longest, int count) {
    slow::CDice dice(slow::TestSeed());
    for (int checked = 0; checked < count;) {
        const TEndingPosition position = RandomEnding(dice, men);
        const int best = Endings().MovesToMate(position);
        // Long mates are the rare ones, and the ones that say most.
        if (best < 2 || best > longest || (best < longest - 1 && dice.Chance(70))) {
            continue;
        }
        ++checked;
        for (int n = best - 1; n <= std::min(best + 1, longest); ++n) {
            ASSERT_EQ(KeysByEngine(position, n), KeysByTable(position, n))
                << position.Fen() << " #" << n << ", mate in " << best;
        }
    }
}

TEST(SolvesOfSolvedEndings, QueenAgainstKing) {
    CheckSolves("Q", 5, 15);
}
TEST(SolvesOfSolvedEndings, RookAgainstKing) {
    CheckSolves("R", 5, 15);
}
TEST(SolvesOfSolvedEndings, PawnAgainstKing) {
    CheckSolves("P", 6, 15);
}

TEST(SlowSolvesOfSolvedEndings, QueenAgainstKing) {
    CheckSolves("Q", 7, 40);
}
TEST(SlowSolvesOfSolvedEndings, RookAgainstKing) {
    CheckSolves("R", 7, 40);
}
TEST(SlowSolvesOfSolvedEndings, PawnAgainstKing) {
    CheckSolves("P", 9, 40);
}
// A knight mates only a king that its own men hem in.
TEST(SlowSolvesOfSolvedEndings, KnightAgainstPawn) {
    CheckSolves("Np", 7, 150);
}

}  // namespace
}  // namespace tarnwick
