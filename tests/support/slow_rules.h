#pragma once

// The rules of chess once more, written as plainly as possible, for tests alone.
//
// Every test of the fast move generators, attack tests and makes compares with this file, so it shares
// no code, no table and no numbering trick with the program: a position is a row of FEN letters, a
// legal move is a pseudo-legal move after which no enemy man reaches the king. It is slow and
// allocates freely. Comparison goes through texts: placements as FEN, moves as FullText.
//
// Two rules are those of problem solving, not of the tournament hall: the root has every castling that
// kings and rooks on their home fields allow, and no en passant is possible in its first move. There is
// no repetition, no fifty-move rule and no drawn material.

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick::slow {

/// Fields are numbered a1 = 0, b1 = 1, ... h8 = 63. A man is its FEN letter, an empty field is '.'.
using TSlowBoard = std::array<char, 64>;

struct TSlowMove {
    int from = 0;        ///< Of the king when castling.
    int to = 0;          ///< g1, c1, g8 or c8 when castling.
    char promotion = 0;  ///< 'Q', 'R', 'B', 'N' for both colours, 0 for none.

    bool operator==(const TSlowMove&) const = default;
};

/// A position with what its future moves need of the line that led to it.
struct TSlowPosition {
    TSlowBoard board{};
    bool isWhiteToMove = true;
    TSlowBoard rootBoard{};             ///< Where the line began: castling is judged against it.
    std::bitset<64> arrivals;           ///< Fields on which a move of the line has ended.
    std::optional<TSlowMove> lastMove;  ///< None at the root, which rules out en passant there.
};

/// A root position from the placement part of a FEN; whatever follows a blank is ignored.
/// Any men may stand anywhere, kings may be missing. Throws std::invalid_argument unless the text
/// has eight rows of eight fields.
TSlowPosition FromFen(const std::string& fen, bool isWhiteToMove = true);

/// The placement part of the position's FEN.
std::string PlacementText(const TSlowPosition& position);

/// "a1" to "h8".
std::string FieldText(int field);

/// True if a man of that colour attacks the field, pinned or not. En passant is no attack.
bool IsAttacked(const TSlowPosition& position, int field, bool byWhite);

/// The number of men of that colour that attack the field.
int CountAttackers(const TSlowPosition& position, int field, bool byWhite);

/// True if the king of the side to move is attacked; false if that side has no king.
bool InCheck(const TSlowPosition& position);

/// All moves by the rules of the men, the own king's safety aside (but castling out of, through and
/// into check is left out). In order of the from fields.
std::vector<TSlowMove> PseudoLegalMoves(const TSlowPosition& position);

/// The mover's king is safe after this move of PseudoLegalMoves.
bool IsLegal(const TSlowPosition& position, const TSlowMove& move);

/// All legal moves of the side to move; empty means mate or stalemate.
std::vector<TSlowMove> LegalMoves(const TSlowPosition& position);

/// Same as !LegalMoves(position).empty(), but stops at the first.
bool HasLegalMove(const TSlowPosition& position);

/// The side to move is in check and has no legal move.
bool IsMate(const TSlowPosition& position);

/// The position after a move of PseudoLegalMoves; nothing is tested.
TSlowPosition Play(const TSlowPosition& position, const TSlowMove& move);

/// Castling, en passant and double step are told by the position before the move.
bool IsCastling(const TSlowPosition& position, const TSlowMove& move);
bool IsEnPassant(const TSlowPosition& position, const TSlowMove& move);

/// Full notation, the position being the one before the move: figure letter K, Q, R, B, N (none for a
/// pawn), from, '-' or ':' for a capture, to, promotion letter: "Ra1:a8", "a7-a8Q", "e5:d6", "0-0-0".
std::string FullText(const TSlowPosition& position, const TSlowMove& move);

/// FullText of all legal moves, sorted.
std::vector<std::string> LegalMoveTexts(const TSlowPosition& position);

/// The legal move with this FullText, or none.
std::optional<TSlowMove> FindMove(const TSlowPosition& position, const std::string& text);

/// Plays moves given as FullText one after the other. Throws std::invalid_argument at an illegal one.
TSlowPosition PlayLine(TSlowPosition position, const std::vector<std::string>& moves);

/// The number of move sequences of that many plies; 1 for none.
std::uint64_t Perft(const TSlowPosition& position, int plies);

}  // namespace tarnwick::slow
