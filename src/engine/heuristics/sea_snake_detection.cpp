// How a sea snake is recognised. Black's side: while White passes, Black's only moves, but for pawns that
// will be stopped, are one man's to and fro between two fields. White's side: no man but the king can
// make a waiting move, that is one after which Black still has nothing but the pendulum. And the king has
// both a way towards the pendulum and a triangle on which to lose a move.

#include <algorithm>
#include <array>
#include <optional>

#include "chess/attacks.h"
#include "engine/heuristics/king_area_checks.h"
#include "engine/heuristics/scratch_moves.h"
#include "engine/heuristics/sea_snake.h"

namespace tarnwick {
namespace {

constexpr int Unreachable = 99;
/// A king that stands beside the pendulum's fields already has no way to walk.
constexpr int LeastWay = 2;

using TDistances = std::array<int, FieldCount>;

/// Black's one legal move, pawns that will be stopped aside; nothing if there is none, another one too,
/// or if it is a capture.
std::optional<TMove> OnlyFigureMove(const TChessboard& blackToMove) {
    std::optional<TMove> found;
    bool bMore = false;
    for (TFieldSet men = blackToMove.m_blackMen; men != 0 && !bMore;) {
        const int man = PopLowest(men);
        bMore = AnyBlackMove(blackToMove, man, [&](const TChessboard&, TMove move) {
            const bool bQuiet = blackToMove.m_fields[move.to] == EmptyField;
            if (TypeOf(blackToMove.m_fields[man]) == TypePawn) {
                return !bQuiet || FileOf(move.from) != FileOf(move.to) ||
                       !IsPawnStoppedAhead(blackToMove, man);
            }
            const bool bOther = found.has_value() || !bQuiet;
            found = move;
            return bOther;
        });
    }
    return bMore ? std::nullopt : found;
}

/// The position twice: as it is, and with the pendulum swung over. Black to move in both.
struct TPendulum {
    TMove swing{};
    TChessboard here, there;
};

std::optional<TPendulum> FindPendulum(const TChessboard& board) {
    TPendulum pendulum{.here = ScratchOf(board), .there = {}};
    if (!PassWhite(pendulum.here)) {
        return std::nullopt;
    }
    const auto swing = OnlyFigureMove(pendulum.here);
    if (!swing) {
        return std::nullopt;
    }
    pendulum.swing = *swing;
    pendulum.there = pendulum.here;
    MakeBlackMove(pendulum.there, *swing, false);
    if (!PassWhite(pendulum.there)) {
        return std::nullopt;
    }
    const auto back = OnlyFigureMove(pendulum.there);
    if (!back || back->from != swing->to || back->to != swing->from) {
        return std::nullopt;
    }
    return pendulum;
}

/// A quiet move of another man than the king that leaves Black nothing but the pendulum: then White
/// needs no triangle.
bool HasWaitingMove(const TChessboard& board, TMove swing) {
    TFieldSet men = board.m_whiteMen & ~FieldBit(WhiteKingField(board));
    while (men != 0) {
        const bool bWaits =
            AnyWhiteMove(board, PopLowest(men), [&](const TChessboard& after, TMove move) {
                if (after.m_blackChecker != NoChecker || board.m_fields[move.to] != EmptyField) {
                    return false;
                }
                const auto reply = OnlyFigureMove(after);
                return reply && reply->SameAs(swing);
            });
        if (bWaits) {
            return true;
        }
    }
    return false;
}

/// Empty fields that Black does not attack, the white king lifted off.
TFieldSet OpenToWhiteKing(const TChessboard& board) {
    const TFieldSet occupied = OccupiedFields(board) & ~FieldBit(WhiteKingField(board));
    TFieldSet open = 0;
    for (TFieldSet fields = ~occupied; fields != 0;) {
        const int field = PopLowest(fields);
        open |= IsAttackedByBlackOver(board, field, occupied) ? 0 : FieldBit(field);
    }
    return open;
}

/// King's steps from a field over a set of fields.
TDistances DistancesFrom(int start, TFieldSet fields) {
    TDistances distances;
    distances.fill(Unreachable);
    distances[static_cast<std::size_t>(start)] = 0;
    TFieldSet front = FieldBit(start);
    for (int d = 1; front != 0; ++d) {
        TFieldSet next = 0;
        while (front != 0) {
            next |= KingFields[static_cast<std::size_t>(PopLowest(front))];
        }
        next &= fields;
        for (TFieldSet reached = next; reached != 0;) {
            const int field = PopLowest(reached);
            int& distance = distances[static_cast<std::size_t>(field)];
            if (distance == Unreachable) {
                distance = d;
                front |= FieldBit(field);
            }
        }
    }
    return distances;
}

/// Where the king attacks the field that the pendulum has left, at the end of its way.
struct TApproach {
    int field = NoField;
    int pendulumField = NoField;
    int otherField = NoField;
    int way = Unreachable;
};

void ImproveApproach(TApproach& best, const TChessboard& pendulumAway, int target, int other,
                     const TDistances& distances) {
    TFieldSet beside = KingFields[static_cast<std::size_t>(target)] & OpenToWhiteKing(pendulumAway);
    while (beside != 0) {
        const int field = PopLowest(beside);
        int way = distances[static_cast<std::size_t>(field)];
        for (TFieldSet near = KingFields[static_cast<std::size_t>(field)]; near != 0;) {
            way = std::min(way, distances[static_cast<std::size_t>(PopLowest(near))] + 1);
        }
        if (way < best.way) {
            best = {field, target, other, way};
        }
    }
}

/// The triangle's far corner, of the triangle that is nearest to the goal; NoField if there is none.
int FindTurnBackField(TFieldSet fields, const TDistances& toGoal) {
    int best = NoField;
    int bestWay = Unreachable;
    for (TFieldSet as = fields; as != 0;) {
        const int a = PopLowest(as);
        for (TFieldSet bs = KingFields[static_cast<std::size_t>(a)] & as; bs != 0;) {
            const int b = PopLowest(bs);
            const TFieldSet thirds = KingFields[static_cast<std::size_t>(a)] &
                                     KingFields[static_cast<std::size_t>(b)] & bs;
            for (TFieldSet cs = thirds; cs != 0;) {
                const int c = PopLowest(cs);
                const int far = std::max({a, b, c}, [&](int x, int y) {
                    return toGoal[static_cast<std::size_t>(x)] <
                           toGoal[static_cast<std::size_t>(y)];
                });
                if (toGoal[static_cast<std::size_t>(far)] < bestWay) {
                    bestWay = toGoal[static_cast<std::size_t>(far)];
                    best = far;
                }
            }
        }
    }
    return best;
}

}  // namespace

bool DetectSeaSnake(const TChessboard& board, TSpecialHeuristics& parameters) noexcept {
    if (!IsWhiteToMove(board) || board.m_whiteChecker != NoChecker) {
        return false;
    }
    const auto pendulum = FindPendulum(board);
    if (!pendulum || HasWaitingMove(board, pendulum->swing)) {
        return false;
    }
    const TFieldSet open = OpenToWhiteKing(pendulum->here) & OpenToWhiteKing(pendulum->there);
    const TDistances distances = DistancesFrom(WhiteKingField(board), open);
    TApproach approach;
    const TMove swing = pendulum->swing;
    ImproveApproach(approach, pendulum->there, swing.from, swing.to, distances);
    ImproveApproach(approach, pendulum->here, swing.to, swing.from, distances);
    if (approach.way >= Unreachable || approach.way < LeastWay) {
        return false;
    }
    TFieldSet walk = FieldBit(WhiteKingField(board));
    for (TFieldSet fields = open; fields != 0;) {
        const int field = PopLowest(fields);
        walk |= distances[static_cast<std::size_t>(field)] < Unreachable ? FieldBit(field) : 0;
    }
    const int turnBack = FindTurnBackField(walk, DistancesFrom(approach.field, walk));
    if (turnBack == NoField) {
        return false;
    }
    parameters.bSeaSnakeOn = true;
    parameters.SeaSnakeApproachField = static_cast<std::uint8_t>(approach.field);
    parameters.SeaSnakeTurnBackField = static_cast<std::uint8_t>(turnBack);
    parameters.SeaSnakePendulumField1 = static_cast<std::uint8_t>(approach.pendulumField);
    parameters.SeaSnakePendulumField2 = static_cast<std::uint8_t>(approach.otherField);
    return true;
}

void CompleteSeaSnake(const TChessboard& root, TSpecialHeuristics& parameters) noexcept {
    TSpecialHeuristics found;
    if (!DetectSeaSnake(root, found)) {
        return;
    }
    constexpr std::uint8_t TSpecialHeuristics::*FieldsOfPlan[] = {
        &TSpecialHeuristics::SeaSnakeApproachField, &TSpecialHeuristics::SeaSnakeTurnBackField,
        &TSpecialHeuristics::SeaSnakePendulumField1, &TSpecialHeuristics::SeaSnakePendulumField2};
    for (const auto field : FieldsOfPlan) {
        if (parameters.*field == NoHeuristicField) {
            parameters.*field = found.*field;
        }
    }
}

}  // namespace tarnwick
