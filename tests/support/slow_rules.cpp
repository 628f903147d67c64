#include "support/slow_rules.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace tarnwick::slow {
namespace {

constexpr char Empty = '.';

struct TStep {
    int file;
    int rank;
};

constexpr std::array<TStep, 4> RookSteps{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
constexpr std::array<TStep, 4> BishopSteps{{{1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
constexpr std::array<TStep, 8> RoyalSteps{
    {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
constexpr std::array<TStep, 8> KnightSteps{
    {{1, 2}, {2, 1}, {2, -1}, {1, -2}, {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}}};

int FileOf(int field) {
    return field % 8;
}

int RankOf(int field) {
    return field / 8;
}

bool IsOnBoard(int file, int rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}

bool IsWhiteMan(char man) {
    return man >= 'A' && man <= 'Z';
}

bool IsBlackMan(char man) {
    return man >= 'a' && man <= 'z';
}

bool IsManOf(char man, bool isWhite) {
    return isWhite ? IsWhiteMan(man) : IsBlackMan(man);
}

char ManOf(char upperLetter, bool isWhite) {
    return isWhite ? upperLetter : static_cast<char>(upperLetter - 'A' + 'a');
}

char UpperLetter(char man) {
    return IsBlackMan(man) ? static_cast<char>(man - 'a' + 'A') : man;
}

int SignOf(int value) {
    return (value > 0) - (value < 0);
}

/// Both fields on one rank, file or diagonal, and nothing stands between them.
bool IsLineOpen(const TSlowBoard& board, int from, int to) {
    const int fileStep = SignOf(FileOf(to) - FileOf(from));
    const int rankStep = SignOf(RankOf(to) - RankOf(from));
    for (int field = from + fileStep + 8 * rankStep; field != to;
         field += fileStep + 8 * rankStep) {
        if (board[field] != Empty) {
            return false;
        }
    }
    return true;
}

/// Whether the man on `from` attacks `to` by the rules of its kind.
bool ManAttacks(const TSlowBoard& board, int from, int to) {
    const char man = board[from];
    const int files = std::abs(FileOf(to) - FileOf(from));
    const int ranks = std::abs(RankOf(to) - RankOf(from));
    const bool isStraight = (files == 0) != (ranks == 0);
    const bool isDiagonal = files == ranks && files != 0;
    switch (UpperLetter(man)) {
        case 'K':
            return std::max(files, ranks) == 1;
        case 'N':
            return files * ranks == 2;
        case 'P':
            return files == 1 && RankOf(to) - RankOf(from) == (IsWhiteMan(man) ? 1 : -1);
        case 'R':
            return isStraight && IsLineOpen(board, from, to);
        case 'B':
            return isDiagonal && IsLineOpen(board, from, to);
        case 'Q':
            return (isStraight || isDiagonal) && IsLineOpen(board, from, to);
        default:
            return false;
    }
}

bool IsKingAttacked(const TSlowPosition& position, bool isWhiteKing) {
    const auto king =
        std::find(position.board.begin(), position.board.end(), ManOf('K', isWhiteKing));
    if (king == position.board.end()) {
        return false;
    }
    return IsAttacked(position, static_cast<int>(king - position.board.begin()), !isWhiteKing);
}

template <std::size_t Count>
void AddSteps(const TSlowPosition& position, int from, const std::array<TStep, Count>& steps,
              std::vector<TSlowMove>& moves) {
    for (const TStep step : steps) {
        const int file = FileOf(from) + step.file;
        const int rank = RankOf(from) + step.rank;
        if (!IsOnBoard(file, rank)) {
            continue;
        }
        const int to = 8 * rank + file;
        if (!IsManOf(position.board[to], position.isWhiteToMove)) {
            moves.push_back({from, to, 0});
        }
    }
}

template <std::size_t Count>
void AddLines(const TSlowPosition& position, int from, const std::array<TStep, Count>& steps,
              std::vector<TSlowMove>& moves) {
    for (const TStep step : steps) {
        int file = FileOf(from) + step.file;
        int rank = RankOf(from) + step.rank;
        while (IsOnBoard(file, rank)) {
            const int to = 8 * rank + file;
            const char man = position.board[to];
            if (!IsManOf(man, position.isWhiteToMove)) {
                moves.push_back({from, to, 0});
            }
            if (man != Empty) {
                break;
            }
            file += step.file;
            rank += step.rank;
        }
    }
}

void AddPawnMove(int from, int to, std::vector<TSlowMove>& moves) {
    if (RankOf(to) != 0 && RankOf(to) != 7) {
        moves.push_back({from, to, 0});
        return;
    }
    for (const char promotion : {'Q', 'R', 'B', 'N'}) {
        moves.push_back({from, to, promotion});
    }
}

/// The last move was the double step of an enemy pawn over this field.
bool IsFieldJustCrossed(const TSlowPosition& position, int field) {
    if (!position.lastMove) {
        return false;
    }
    const TSlowMove& last = *position.lastMove;
    return UpperLetter(position.board[last.to]) == 'P' && std::abs(last.to - last.from) == 16 &&
           (last.from + last.to) / 2 == field;
}

void AddPawnMoves(const TSlowPosition& position, int from, std::vector<TSlowMove>& moves) {
    const int forward = position.isWhiteToMove ? 8 : -8;
    const int homeRank = position.isWhiteToMove ? 1 : 6;
    const int single = from + forward;
    if (single < 0 || single > 63) {
        return;
    }
    if (position.board[single] == Empty) {
        AddPawnMove(from, single, moves);
        const int doubled = single + forward;
        if (RankOf(from) == homeRank && position.board[doubled] == Empty) {
            moves.push_back({from, doubled, 0});
        }
    }
    for (const int side : {-1, 1}) {
        if (!IsOnBoard(FileOf(single) + side, RankOf(single))) {
            continue;
        }
        const int to = single + side;
        if (IsManOf(position.board[to], !position.isWhiteToMove) ||
            IsFieldJustCrossed(position, to)) {
            AddPawnMove(from, to, moves);
        }
    }
}

/// The man of the root still stands there, and no move of the line has ended there: it has neither come
/// back nor been replaced.
bool HasNeverMoved(const TSlowPosition& position, int field, char man) {
    return position.board[field] == man && position.rootBoard[field] == man &&
           !position.arrivals[field];
}

void AddCastling(const TSlowPosition& position, int king, int rook, std::vector<TSlowMove>& moves) {
    const bool isWhite = position.isWhiteToMove;
    if (!HasNeverMoved(position, king, ManOf('K', isWhite)) ||
        !HasNeverMoved(position, rook, ManOf('R', isWhite)) ||
        !IsLineOpen(position.board, king, rook)) {
        return;
    }
    const int step = SignOf(rook - king);
    for (const int field : {king, king + step, king + 2 * step}) {
        if (IsAttacked(position, field, !isWhite)) {
            return;
        }
    }
    moves.push_back({king, king + 2 * step, 0});
}

void AddKingMoves(const TSlowPosition& position, int from, std::vector<TSlowMove>& moves) {
    AddSteps(position, from, RoyalSteps, moves);
    const int home = position.isWhiteToMove ? 4 : 60;
    if (from == home) {
        AddCastling(position, home, home + 3, moves);
        AddCastling(position, home, home - 4, moves);
    }
}

void AddMovesOfMan(const TSlowPosition& position, int from, std::vector<TSlowMove>& moves) {
    switch (UpperLetter(position.board[from])) {
        case 'K':
            return AddKingMoves(position, from, moves);
        case 'Q':
            return AddLines(position, from, RoyalSteps, moves);
        case 'R':
            return AddLines(position, from, RookSteps, moves);
        case 'B':
            return AddLines(position, from, BishopSteps, moves);
        case 'N':
            return AddSteps(position, from, KnightSteps, moves);
        case 'P':
            return AddPawnMoves(position, from, moves);
        default:
            return;
    }
}

void ReadRow(const std::string& row, int rank, TSlowBoard& board) {
    int file = 0;
    for (const char sign : row) {
        const bool isMan = std::string("KQRBNPkqrbnp").find(sign) != std::string::npos;
        const bool isGap = sign >= '1' && sign <= '8';
        if ((!isMan && !isGap) || file + (isGap ? sign - '0' : 1) > 8) {
            throw std::invalid_argument("FEN row: " + row);
        }
        if (isMan) {
            board[8 * rank + file] = sign;
        }
        file += isGap ? sign - '0' : 1;
    }
    if (file != 8) {
        throw std::invalid_argument("FEN row: " + row);
    }
}

}  // namespace

TSlowPosition FromFen(const std::string& fen, bool isWhiteToMove) {
    TSlowPosition position;
    position.board.fill(Empty);
    std::string rest = fen.substr(0, fen.find(' ')) + "/";
    for (int rank = 7; rank >= 0; --rank) {
        const std::size_t end = rest.find('/');
        if (end == std::string::npos) {
            throw std::invalid_argument("FEN with too few rows: " + fen);
        }
        ReadRow(rest.substr(0, end), rank, position.board);
        rest.erase(0, end + 1);
    }
    if (!rest.empty()) {
        throw std::invalid_argument("FEN with too many rows: " + fen);
    }
    position.isWhiteToMove = isWhiteToMove;
    position.rootBoard = position.board;
    return position;
}

std::string PlacementText(const TSlowPosition& position) {
    std::string text;
    for (int rank = 7; rank >= 0; --rank) {
        int gap = 0;
        for (int file = 0; file < 8; ++file) {
            const char man = position.board[8 * rank + file];
            if (man == Empty) {
                ++gap;
                continue;
            }
            text += (gap > 0 ? std::to_string(gap) : "") + man;
            gap = 0;
        }
        text += (gap > 0 ? std::to_string(gap) : "") + (rank > 0 ? "/" : "");
    }
    return text;
}

std::string FieldText(int field) {
    return {static_cast<char>('a' + FileOf(field)), static_cast<char>('1' + RankOf(field))};
}

bool IsAttacked(const TSlowPosition& position, int field, bool byWhite) {
    for (int from = 0; from < 64; ++from) {
        if (IsManOf(position.board[from], byWhite) && ManAttacks(position.board, from, field)) {
            return true;
        }
    }
    return false;
}

int CountAttackers(const TSlowPosition& position, int field, bool byWhite) {
    int count = 0;
    for (int from = 0; from < 64; ++from) {
        if (IsManOf(position.board[from], byWhite) && ManAttacks(position.board, from, field)) {
            ++count;
        }
    }
    return count;
}

bool InCheck(const TSlowPosition& position) {
    return IsKingAttacked(position, position.isWhiteToMove);
}

std::vector<TSlowMove> PseudoLegalMoves(const TSlowPosition& position) {
    std::vector<TSlowMove> moves;
    moves.reserve(64);
    for (int from = 0; from < 64; ++from) {
        if (IsManOf(position.board[from], position.isWhiteToMove)) {
            AddMovesOfMan(position, from, moves);
        }
    }
    return moves;
}

bool IsLegal(const TSlowPosition& position, const TSlowMove& move) {
    return !IsKingAttacked(Play(position, move), position.isWhiteToMove);
}

std::vector<TSlowMove> LegalMoves(const TSlowPosition& position) {
    std::vector<TSlowMove> moves = PseudoLegalMoves(position);
    std::erase_if(moves, [&](const TSlowMove& move) { return !IsLegal(position, move); });
    return moves;
}

bool HasLegalMove(const TSlowPosition& position) {
    const std::vector<TSlowMove> moves = PseudoLegalMoves(position);
    return std::any_of(moves.begin(), moves.end(),
                       [&](const TSlowMove& move) { return IsLegal(position, move); });
}

bool IsMate(const TSlowPosition& position) {
    return InCheck(position) && !HasLegalMove(position);
}

TSlowPosition Play(const TSlowPosition& position, const TSlowMove& move) {
    TSlowPosition next = position;
    const int from = move.from;
    const int to = move.to;
    const char man = position.board[from];
    if (IsEnPassant(position, move)) {
        next.board[8 * RankOf(move.from) + FileOf(move.to)] = Empty;
    }
    if (IsCastling(position, move)) {
        const int rookFrom = move.to > move.from ? move.from + 3 : move.from - 4;
        const int rookTo = (move.from + move.to) / 2;
        std::swap(next.board[rookFrom], next.board[rookTo]);
    }
    next.board[from] = Empty;
    next.board[to] = move.promotion != 0 ? ManOf(move.promotion, position.isWhiteToMove) : man;
    next.arrivals.set(to);
    next.lastMove = move;
    next.isWhiteToMove = !position.isWhiteToMove;
    return next;
}

bool IsCastling(const TSlowPosition& position, const TSlowMove& move) {
    return UpperLetter(position.board[move.from]) == 'K' && std::abs(move.to - move.from) == 2;
}

bool IsEnPassant(const TSlowPosition& position, const TSlowMove& move) {
    return UpperLetter(position.board[move.from]) == 'P' && FileOf(move.from) != FileOf(move.to) &&
           position.board[move.to] == Empty;
}

std::string FullText(const TSlowPosition& position, const TSlowMove& move) {
    if (IsCastling(position, move)) {
        return move.to > move.from ? "0-0" : "0-0-0";
    }
    const char letter = UpperLetter(position.board[move.from]);
    const bool isCapture = position.board[move.to] != Empty || IsEnPassant(position, move);
    std::string text = letter == 'P' ? "" : std::string(1, letter);
    text += FieldText(move.from) + (isCapture ? ":" : "-") + FieldText(move.to);
    if (move.promotion != 0) {
        text += move.promotion;
    }
    return text;
}

std::vector<std::string> LegalMoveTexts(const TSlowPosition& position) {
    std::vector<std::string> texts;
    for (const TSlowMove& move : LegalMoves(position)) {
        texts.push_back(FullText(position, move));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

std::optional<TSlowMove> FindMove(const TSlowPosition& position, const std::string& text) {
    for (const TSlowMove& move : LegalMoves(position)) {
        if (FullText(position, move) == text) {
            return move;
        }
    }
    return std::nullopt;
}

TSlowPosition PlayLine(TSlowPosition position, const std::vector<std::string>& moves) {
    for (const std::string& text : moves) {
        const std::optional<TSlowMove> move = FindMove(position, text);
        if (!move) {
            throw std::invalid_argument("Illegal move " + text + " in " + PlacementText(position));
        }
        position = Play(position, *move);
    }
    return position;
}

std::uint64_t Perft(const TSlowPosition& position, int plies) {
    if (plies == 0) {
        return 1;
    }
    std::uint64_t count = 0;
    for (const TSlowMove& move : LegalMoves(position)) {
        count += Perft(Play(position, move), plies - 1);
    }
    return count;
}

}  // namespace tarnwick::slow
