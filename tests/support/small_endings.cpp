// Each table holds, for every placing of its men, the moves to mate with White to move, and with Black to
// move the moves to be mated plus one. Round n finds White's mates in n from Black's losses below n, then
// Black's losses in n. A position is always judged by its moves; a round looks only at those from which a
// quiet move leads to what the last one found, or whose captures and promotions come due. std::function is
// dear, so the inner loops are templates.
//
// A position with a capture en passant is in no table: it is judged by its moves each time, and those
// before it are looked at in every round.

#include "support/small_endings.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <utility>

namespace tarnwick {
namespace {

struct TStep {
    int file, rank;
};
constexpr std::array<TStep, 4> StraightSteps{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
constexpr std::array<TStep, 4> DiagonalSteps{{{1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
constexpr std::array<TStep, 8> KnightSteps{
    {{1, 2}, {2, 1}, {2, -1}, {1, -2}, {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}}};

bool IsWhiteMan(char letter) {
    return letter >= 'A' && letter <= 'Z';
}
char KindOf(char letter) {
    return IsWhiteMan(letter) ? letter : static_cast<char>(letter - 32);
}
bool IsOnBoard(int file, int rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}

bool AreNeighbours(int a, int b) {
    return a != b && std::abs(a % 8 - b % 8) <= 1 && std::abs(a / 8 - b / 8) <= 1;
}

/// Index of the man on the field, -1 white king, -2 black king, -3 none.
int ManOn(const TEndingPosition& position, int field) {
    if (field == position.whiteKing) {
        return -1;
    }
    if (field == position.blackKing) {
        return -2;
    }
    for (int i = 0; i < position.count; ++i) {
        if (position.fields[static_cast<std::size_t>(i)] == field) {
            return i;
        }
    }
    return -3;
}

/// No man between two fields of one line.
bool IsRoadFree(const TEndingPosition& position, int from, int to, TStep step) {
    for (int at = from + step.file + 8 * step.rank; at != to; at += step.file + 8 * step.rank) {
        if (ManOn(position, at) != -3) {
            return false;
        }
    }
    return true;
}

/// Whether the man could capture on the field.
bool Attacks(const TEndingPosition& position, std::size_t man, int field) {
    const int from = position.fields[man];
    const int files = field % 8 - from % 8;
    const int ranks = field / 8 - from / 8;
    const char kind = KindOf(position.letters[man]);
    if (kind == 'N') {
        return std::abs(files * ranks) == 2;
    }
    if (kind == 'P') {
        return std::abs(files) == 1 && ranks == (IsWhiteMan(position.letters[man]) ? 1 : -1);
    }
    const bool isStraight = (files == 0) != (ranks == 0);
    const bool isDiagonal = files != 0 && std::abs(files) == std::abs(ranks);
    if (!(isStraight && kind != 'B') && !(isDiagonal && kind != 'R')) {
        return false;
    }
    return IsRoadFree(position, from, field,
                      {(files > 0) - (files < 0), (ranks > 0) - (ranks < 0)});
}

bool IsAttackedByMen(const TEndingPosition& position, int field, bool byWhite) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(position.count); ++i) {
        if (IsWhiteMan(position.letters[i]) == byWhite && Attacks(position, i, field)) {
            return true;
        }
    }
    return false;
}

void Remove(TEndingPosition& position, int man) {
    for (auto i = static_cast<std::size_t>(man); i + 1 < static_cast<std::size_t>(position.count);
         ++i) {
        position.letters[i] = position.letters[i + 1];
        position.fields[i] = position.fields[i + 1];
    }
    --position.count;
}

/// The position after a move of the king (man -1) or of a man to a field not held by its own side, if
/// the move leaves the own king safe. Promotion letter 0: none.
template <typename TSee>
bool SeeMove(const TEndingPosition& position, bool isWhite, int man, int to, char promotion,
             const TSee& see) {
    TEndingPosition next = position;
    next.passed = -1;
    const int taken = ManOn(position, to);
    if (man < 0) {
        (isWhite ? next.whiteKing : next.blackKing) = to;
    } else {
        next.fields[static_cast<std::size_t>(man)] = to;
        if (promotion != 0) {
            next.letters[static_cast<std::size_t>(man)] = promotion;
        }
    }
    if (taken >= 0) {
        Remove(next, taken);
    }
    const int king = isWhite ? next.whiteKing : next.blackKing;
    return !AreNeighbours(next.whiteKing, next.blackKing) &&
           !IsAttackedByMen(next, king, !isWhite) && see(next);
}

/// An enemy man other than the king, or nothing, stands on the field.
bool MayEnter(const TEndingPosition& position, bool isWhite, int field) {
    const int there = ManOn(position, field);
    return there == -3 ||
           (there >= 0 && IsWhiteMan(position.letters[static_cast<std::size_t>(there)]) != isWhite);
}

template <typename TSee>
bool SeePawnTo(const TEndingPosition& position, bool isWhite, int man, int to, const TSee& see) {
    if (to / 8 != 0 && to / 8 != 7) {
        return SeeMove(position, isWhite, man, to, 0, see);
    }
    for (const char letter : {'Q', 'R', 'B', 'N'}) {
        const auto promoted = static_cast<char>(isWhite ? letter : letter + 32);
        if (SeeMove(position, isWhite, man, to, promoted, see)) {
            return true;
        }
    }
    return false;
}

/// Whether a pawn of the other side stands beside the field.
bool IsBesideEnemyPawn(const TEndingPosition& position, bool isWhite, int field) {
    for (int i = 0; i < position.count; ++i) {
        const auto man = static_cast<std::size_t>(i);
        if (position.letters[man] == (isWhite ? 'p' : 'P') &&
            position.fields[man] / 8 == field / 8 && std::abs(position.fields[man] - field) == 1) {
            return true;
        }
    }
    return false;
}

template <typename TSee>
bool SeeDoubleStep(const TEndingPosition& position, bool isWhite, int man, const TSee& see) {
    const int from = position.fields[static_cast<std::size_t>(man)];
    const int step = isWhite ? 8 : -8;
    const int to = from + 2 * step;
    if (from / 8 != (isWhite ? 1 : 6) || ManOn(position, to) != -3) {
        return false;
    }
    const bool mayBeTaken = IsBesideEnemyPawn(position, isWhite, to);
    return SeeMove(position, isWhite, man, to, 0, [&](TEndingPosition next) {
        next.passed = mayBeTaken ? from + step : -1;
        return see(next);
    });
}

/// The pawn takes the one that has just stepped over the field.
template <typename TSee>
bool SeeEnPassant(const TEndingPosition& position, bool isWhite, int man, const TSee& see) {
    TEndingPosition stepped = position;
    const int enemy = ManOn(position, position.passed + (isWhite ? -8 : 8));
    stepped.fields[static_cast<std::size_t>(enemy)] = position.passed;
    return SeeMove(stepped, isWhite, man, position.passed, 0, see);
}

template <typename TSee>
bool SeePawn(const TEndingPosition& position, bool isWhite, int man, const TSee& see) {
    const int from = position.fields[static_cast<std::size_t>(man)];
    const int step = isWhite ? 8 : -8;
    if (ManOn(position, from + step) == -3 &&
        (SeePawnTo(position, isWhite, man, from + step, see) ||
         SeeDoubleStep(position, isWhite, man, see))) {
        return true;
    }
    for (const int side : {-1, 1}) {
        const int to = from + step + side;
        if (!IsOnBoard(from % 8 + side, from / 8)) {
            continue;
        }
        if (to == position.passed && SeeEnPassant(position, isWhite, man, see)) {
            return true;
        }
        if (ManOn(position, to) >= 0 && MayEnter(position, isWhite, to) &&
            SeePawnTo(position, isWhite, man, to, see)) {
            return true;
        }
    }
    return false;
}

template <typename TSteps, typename TSee>
bool SeeSteps(const TEndingPosition& position, bool isWhite, int man, int from, bool isSlider,
              const TSteps& steps, const TSee& see) {
    for (const TStep step : steps) {
        int file = from % 8 + step.file;
        int rank = from / 8 + step.rank;
        for (; IsOnBoard(file, rank); file += step.file, rank += step.rank) {
            const int to = file + 8 * rank;
            if (MayEnter(position, isWhite, to) && SeeMove(position, isWhite, man, to, 0, see)) {
                return true;
            }
            if (!isSlider || ManOn(position, to) != -3) {
                break;
            }
        }
    }
    return false;
}

template <typename TSee>
bool SeeMan(const TEndingPosition& position, bool isWhite, int man, const TSee& see) {
    const auto index = static_cast<std::size_t>(man);
    const int from = position.fields[index];
    const char kind = KindOf(position.letters[index]);
    if (kind == 'P') {
        return SeePawn(position, isWhite, man, see);
    }
    if (kind == 'N') {
        return SeeSteps(position, isWhite, man, from, false, KnightSteps, see);
    }
    return (kind != 'R' && SeeSteps(position, isWhite, man, from, true, DiagonalSteps, see)) ||
           (kind != 'B' && SeeSteps(position, isWhite, man, from, true, StraightSteps, see));
}

template <typename TSee>
bool SeeAll(const TEndingPosition& position, bool isWhite, const TSee& see) {
    const int king = isWhite ? position.whiteKing : position.blackKing;
    if (SeeSteps(position, isWhite, -1, king, false, StraightSteps, see) ||
        SeeSteps(position, isWhite, -1, king, false, DiagonalSteps, see)) {
        return true;
    }
    for (int man = 0; man < position.count; ++man) {
        if (IsWhiteMan(position.letters[static_cast<std::size_t>(man)]) == isWhite &&
            SeeMan(position, isWhite, man, see)) {
            return true;
        }
    }
    return false;
}

/// Turns and reflections: bit 0 mirrors the files, bit 1 the ranks, bit 2 swaps files and ranks.
int Turn(int field, int how) {
    int file = (how & 1) != 0 ? 7 - field % 8 : field % 8;
    int rank = (how & 2) != 0 ? 7 - field / 8 : field / 8;
    if ((how & 4) != 0) {
        std::swap(file, rank);
    }
    return file + 8 * rank;
}

bool HasPawn(const std::string& men) {
    return men.find_first_of("Pp") != std::string::npos;
}

/// The black king on a to d, and without pawns in the triangle a1-d1-d4.
bool IsChosenKingField(int field, bool hasPawn) {
    return field % 8 < 4 && (hasPawn || field / 8 <= field % 8);
}

/// Brings the black king onto a chosen field and like men into the order of their fields.
TEndingPosition Normal(const TEndingPosition& position, bool hasPawn) {
    int how = position.blackKing % 8 < 4 ? 0 : 1;
    if (!hasPawn) {
        how |= position.blackKing / 8 < 4 ? 0 : 2;
        const int king = Turn(position.blackKing, how);
        how |= king / 8 > king % 8 ? 4 : 0;
    }
    TEndingPosition turned = position;
    turned.whiteKing = Turn(position.whiteKing, how);
    turned.blackKing = Turn(position.blackKing, how);
    for (std::size_t i = 0; i < static_cast<std::size_t>(position.count); ++i) {
        turned.fields[i] = Turn(position.fields[i], how);
    }
    if (position.count == 2) {
        const bool isLike = turned.letters[0] == turned.letters[1];
        if (turned.letters[0] > turned.letters[1] ||
            (isLike && turned.fields[0] > turned.fields[1])) {
            std::swap(turned.letters[0], turned.letters[1]);
            std::swap(turned.fields[0], turned.fields[1]);
        }
    }
    return turned;
}

std::size_t IndexOf(const TEndingPosition& position) {
    auto index = static_cast<std::size_t>(position.whiteKing + 64 * position.blackKing);
    for (std::size_t i = 0; i < static_cast<std::size_t>(position.count); ++i) {
        index = 64 * index + static_cast<std::size_t>(position.fields[i]);
    }
    return index;
}

/// The place that IndexOf tells.
TEndingPosition PositionAt(std::size_t index, const std::string& men) {
    TEndingPosition position;
    position.count = static_cast<int>(men.size());
    for (std::size_t i = men.size(); i-- > 0; index /= 64) {
        position.letters[i] = men[i];
        position.fields[i] = static_cast<int>(index % 64);
    }
    position.whiteKing = static_cast<int>(index % 64);
    position.blackKing = static_cast<int>(index / 64);
    return position;
}

constexpr std::uint8_t Illegal = 255;

/// Neither a capture nor a promotion: the successor is of the same table.
bool HasSameMen(const TEndingPosition& a, const TEndingPosition& b) {
    return a.count == b.count && a.letters == b.letters;
}

/// The same for all positions with these men, in whatever order.
unsigned KeyOfMen(const TEndingPosition& position) {
    const auto first = static_cast<unsigned char>(position.count > 0 ? position.letters[0] : 0);
    const auto second = static_cast<unsigned char>(position.count > 1 ? position.letters[1] : 0);
    return std::min(first, second) + 256U * std::max(first, second);
}

}  // namespace

std::string TEndingPosition::Fen() const {
    std::string fen;
    for (int rank = 7; rank >= 0; --rank) {
        for (int file = 0; file < 8; ++file) {
            const int man = ManOn(*this, file + 8 * rank);
            if (man != -3) {
                fen += man == -1 ? 'K' : man == -2 ? 'k' : letters[static_cast<std::size_t>(man)];
            } else if (file > 0 && std::isdigit(static_cast<unsigned char>(fen.back())) != 0) {
                ++fen.back();
            } else {
                fen += '1';
            }
        }
        fen += rank > 0 ? "/" : "";
    }
    return fen;
}

bool IsInCheck(const TEndingPosition& position, bool isWhiteKing) {
    return IsAttackedByMen(position, isWhiteKing ? position.whiteKing : position.blackKing,
                           !isWhiteKing);
}

bool IsLegalEnding(const TEndingPosition& position, bool isWhiteToMove) {
    if (position.whiteKing == position.blackKing ||
        AreNeighbours(position.whiteKing, position.blackKing)) {
        return false;
    }
    for (int i = 0; i < position.count; ++i) {
        const auto man = static_cast<std::size_t>(i);
        const int rank = position.fields[man] / 8;
        if (ManOn(position, position.fields[man]) != i ||
            (KindOf(position.letters[man]) == 'P' && (rank == 0 || rank == 7))) {
            return false;
        }
    }
    return !IsInCheck(position, !isWhiteToMove);
}

bool AnySuccessor(const TEndingPosition& position, bool isWhiteToMove,
                  const std::function<bool(const TEndingPosition&)>& see) {
    return SeeAll(position, isWhiteToMove, see);
}

void ForEachEnding(const std::string& men, const std::function<void(const TEndingPosition&)>& see) {
    TEndingPosition position;
    position.count = static_cast<int>(men.size());
    std::copy(men.begin(), men.end(), position.letters.begin());
    std::sort(position.letters.begin(), position.letters.begin() + position.count);
    std::size_t placings = 1;
    for (int i = 0; i < position.count; ++i) {
        placings *= 64;
    }
    for (position.blackKing = 0; position.blackKing < 64; ++position.blackKing) {
        if (!IsChosenKingField(position.blackKing, HasPawn(men))) {
            continue;
        }
        for (position.whiteKing = 0; position.whiteKing < 64; ++position.whiteKing) {
            for (std::size_t placing = 0; placing < placings; ++placing) {
                std::size_t rest = placing;
                for (std::size_t i = 0; i < men.size(); ++i, rest /= 64) {
                    position.fields[i] = static_cast<int>(rest % 64);
                }
                see(position);
            }
        }
    }
}

namespace {

/// Calls `visit` with each field from which the man could have come by a quiet move.
template <typename TSteps, typename TVisit>
void ForEachStepBack(const TEndingPosition& position, int from, bool isSlider, const TSteps& steps,
                     const TVisit& visit) {
    for (const TStep step : steps) {
        int file = from % 8 + step.file;
        int rank = from / 8 + step.rank;
        for (; IsOnBoard(file, rank) && ManOn(position, file + 8 * rank) == -3;
             file += step.file, rank += step.rank) {
            visit(file + 8 * rank);
            if (!isSlider) {
                break;
            }
        }
    }
}

template <typename TVisit>
void ForEachFieldBefore(const TEndingPosition& position, std::size_t man, const TVisit& visit) {
    const int from = position.fields[man];
    const char kind = KindOf(position.letters[man]);
    if (kind == 'P') {
        const bool isWhite = IsWhiteMan(position.letters[man]);
        const int back = isWhite ? -8 : 8;
        if (from / 8 != (isWhite ? 1 : 6) && ManOn(position, from + back) == -3) {
            visit(from + back);
            if (from / 8 == (isWhite ? 3 : 4) && ManOn(position, from + 2 * back) == -3) {
                visit(from + 2 * back);
            }
        }
        return;
    }
    if (kind == 'N') {
        ForEachStepBack(position, from, false, KnightSteps, visit);
        return;
    }
    if (kind != 'R') {
        ForEachStepBack(position, from, true, DiagonalSteps, visit);
    }
    if (kind != 'B') {
        ForEachStepBack(position, from, true, StraightSteps, visit);
    }
}

/// Positions that wait to be looked at, each once.
class CWaiting {
  public:
    explicit CWaiting(std::size_t size) : m_isWaiting(size) {}

    void Add(std::size_t index) {
        if (!m_isWaiting[index]) {
            m_isWaiting[index] = true;
            m_indexes.push_back(index);
        }
    }
    std::vector<std::size_t> TakeAll() {
        for (const std::size_t index : m_indexes) {
            m_isWaiting[index] = false;
        }
        return std::exchange(m_indexes, {});
    }

  private:
    std::vector<bool> m_isWaiting;
    std::vector<std::size_t> m_indexes;
};

}  // namespace

struct CSmallEndings::TTable {
    std::string men;
    TEndingPosition example;  ///< Has the letters.
    bool hasPawn = false;
    std::vector<std::uint8_t> white;  ///< Moves to mate; 0 none, Illegal.
    std::vector<std::uint8_t> black;  ///< Moves to be mated + 1; 0 none, Illegal.
    int longest = 0;                  ///< Moves to mate, with all tables it leads to.

    /// One side's positions that the next round, or the round of a number, has to look at.
    struct TQueue {
        CWaiting next{std::size_t{1} << 24};
        std::array<std::vector<std::size_t>, Illegal> due;
        std::vector<std::size_t> always;  ///< Those before a capture en passant.
    };
    std::unique_ptr<TQueue> whiteQueue = std::make_unique<TQueue>();
    std::unique_ptr<TQueue> blackQueue = std::make_unique<TQueue>();

    /// What the side could have played its last quiet move from has to be looked at.
    void QueueBefore(const TEndingPosition& position, bool isWhite) {
        CWaiting& next = (isWhite ? whiteQueue : blackQueue)->next;
        const auto add = [&](TEndingPosition before) {
            next.Add(IndexOf(Normal(before, hasPawn)));
            if (!hasPawn) {  // A black king on the diagonal has two images.
                for (int* pField :
                     {&before.whiteKing, &before.blackKing, &before.fields[0], &before.fields[1]}) {
                    *pField = Turn(*pField, 4);
                }
                next.Add(IndexOf(Normal(before, hasPawn)));
            }
        };
        TEndingPosition before = position;
        int& king = isWhite ? before.whiteKing : before.blackKing;
        const auto kingFrom = [&](int field) {
            king = field;
            add(before);
        };
        const int kingField = king;
        ForEachStepBack(position, kingField, false, StraightSteps, kingFrom);
        ForEachStepBack(position, kingField, false, DiagonalSteps, kingFrom);
        king = kingField;
        for (std::size_t man = 0; man < static_cast<std::size_t>(position.count); ++man) {
            if (IsWhiteMan(position.letters[man]) == isWhite) {
                ForEachFieldBefore(position, man, [&](int field) {
                    before.fields[man] = field;
                    add(before);
                });
                before.fields[man] = position.fields[man];
            }
        }
    }

    std::vector<std::size_t> TakeQueue(bool isWhite, int moves) {
        TQueue& queue = *(isWhite ? whiteQueue : blackQueue);
        for (const std::size_t index : queue.due[static_cast<std::size_t>(moves)]) {
            queue.next.Add(index);
        }
        for (const std::size_t index : queue.always) {
            queue.next.Add(index);
        }
        return queue.next.TakeAll();
    }
};

CSmallEndings::TTable& CSmallEndings::TableOf(const TEndingPosition& position) {
    if (position.count > 2) {
        throw std::invalid_argument("this ending is not solved: " + position.Fen());
    }
    std::shared_ptr<TTable>& table = m_tables[KeyOfMen(position)];
    if (table == nullptr) {
        std::string men(position.letters.data(), static_cast<std::size_t>(position.count));
        std::sort(men.begin(), men.end());
        table = std::make_shared<TTable>();
        table->men = men;
        table->example = PositionAt(0, men);
        table->hasPawn = HasPawn(men);
        SolveTable(*table);
    }
    return *table;
}

int CSmallEndings::MovesToMate(const TEndingPosition& position) {
    TTable& table = TableOf(position);
    return table.white[IndexOf(Normal(position, table.hasPawn))];
}

int CSmallEndings::MovesToBeMated(const TEndingPosition& position) {
    TTable& table = TableOf(position);
    return table.black[IndexOf(Normal(position, table.hasPawn))] - 1;
}

void CSmallEndings::SolveTable(TTable& table) {
    std::size_t size = 64 * 64;
    for (std::size_t i = 0; i < table.men.size(); ++i) {
        size *= 64;
    }
    table.white.assign(size, Illegal);
    table.black.assign(size, Illegal);
    ForEachEnding(table.men, [&](const TEndingPosition& position) {
        if (IndexOf(Normal(position, table.hasPawn)) == IndexOf(position)) {
            Prepare(table, position);
        }  // Else it is the other order of two like men.
    });
    for (int moves = 1;; ++moves) {
        const bool isWhiteBetter = ImproveWhite(table, moves);
        const bool isBlackBetter = ImproveBlack(table, moves);
        if (!isWhiteBetter && !isBlackBetter && moves > table.longest) {
            break;
        }
        table.longest = std::max(table.longest, isWhiteBetter ? moves : 0);
    }
    table.whiteQueue.reset();
    table.blackQueue.reset();
}

/// Finds the mates, and when the captures and promotions of either side come due.
void CSmallEndings::Prepare(TTable& table, const TEndingPosition& position) {
    const std::size_t index = IndexOf(position);
    bool isBeforeEnPassant = false;
    const auto isOfTable = [&](const TEndingPosition& next) {
        isBeforeEnPassant = isBeforeEnPassant || next.passed >= 0;
        if (HasSameMen(next, position)) {
            return true;
        }
        table.longest = std::max(table.longest, TableOf(next).longest);
        return false;
    };
    if (IsLegalEnding(position, true)) {
        table.white[index] = 0;
        int soonest = Illegal;
        SeeAll(position, true, [&](const TEndingPosition& next) {
            const int loss = isOfTable(next) ? -1 : MovesToBeMated(next);
            soonest = loss < 0 ? soonest : std::min(soonest, loss + 1);
            return false;
        });
        if (soonest < Illegal) {
            table.whiteQueue->due[static_cast<std::size_t>(soonest)].push_back(index);
        }
        if (isBeforeEnPassant) {
            table.whiteQueue->always.push_back(index);
        }
    }
    isBeforeEnPassant = false;
    if (IsLegalEnding(position, false)) {
        table.black[index] = 0;
        bool canMove = false;
        int latest = 0;
        SeeAll(position, false, [&](const TEndingPosition& next) {
            canMove = true;
            latest = std::max(latest, isOfTable(next) ? 0 : MovesToMate(next));
            return false;
        });
        table.blackQueue->due[static_cast<std::size_t>(latest)].push_back(index);
        if (isBeforeEnPassant) {
            table.blackQueue->always.push_back(index);
        }
        if (!canMove && IsInCheck(position, false)) {
            table.black[index] = 1;
            table.QueueBefore(position, true);
        }
    }
}

/// Moves to be mated + 1, 0 if not known, after a move of White.
int CSmallEndings::StoredLoss(const TTable& table, const TEndingPosition& next) {
    return HasSameMen(next, table.example) ? table.black[IndexOf(Normal(next, table.hasPawn))]
                                           : MovesToBeMated(next) + 1;
}

int CSmallEndings::StoredWin(const TTable& table, const TEndingPosition& next) {
    return HasSameMen(next, table.example) ? table.white[IndexOf(Normal(next, table.hasPawn))]
                                           : MovesToMate(next);
}

/// White, to move, mates in so many moves or fewer.
bool CSmallEndings::IsWon(const TTable& table, const TEndingPosition& position, int moves) {
    return SeeAll(position, true, [&](const TEndingPosition& next) {
        if (next.passed >= 0) {
            return IsLost(table, next, moves - 1);
        }
        const int loss = StoredLoss(table, next);
        return loss != 0 && loss <= moves;
    });
}

/// Black, to move, is mated in so many further moves or fewer.
bool CSmallEndings::IsLost(const TTable& table, const TEndingPosition& position, int moves) {
    bool canMove = false;
    const bool holds = SeeAll(position, false, [&](const TEndingPosition& next) {
        canMove = true;
        if (next.passed >= 0) {
            return !IsWon(table, next, moves);
        }
        const int win = StoredWin(table, next);
        return win == 0 || win > moves;
    });
    return !holds && (canMove || IsInCheck(position, false));
}

bool CSmallEndings::ImproveWhite(TTable& table, int moves) {
    bool isBetter = false;
    for (const std::size_t index : table.TakeQueue(true, moves)) {
        const TEndingPosition position = PositionAt(index, table.men);
        if (table.white[index] == 0 && IsWon(table, position, moves)) {
            table.white[index] = static_cast<std::uint8_t>(moves);
            table.QueueBefore(position, false);
            isBetter = true;
        }
    }
    return isBetter;
}

bool CSmallEndings::ImproveBlack(TTable& table, int moves) {
    bool isBetter = false;
    for (const std::size_t index : table.TakeQueue(false, moves)) {
        const TEndingPosition position = PositionAt(index, table.men);
        if (table.black[index] == 0 && IsLost(table, position, moves)) {
            table.black[index] = static_cast<std::uint8_t>(moves + 1);
            table.QueueBefore(position, true);
            isBetter = true;
        }
    }
    return isBetter;
}

}  // namespace tarnwick
