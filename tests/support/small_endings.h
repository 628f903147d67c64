#pragma once

// Endings of two kings and at most two more men, solved backwards from the mates: how many moves White
// needs from every position. A judge for what a search cannot reach: that a force never mates, or only in
// so many moves.
//
// Written apart from the program and from the slow rules: steps on a numbered board and whole tables.
// There is no castling.

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tarnwick {

/// Men as FEN letters on fields a1 = 0 to h8 = 63. The kings come first.
struct TEndingPosition {
    int whiteKing = 0;
    int blackKing = 0;
    int count = 0;  ///< Of the men beside the kings.
    std::array<char, 3> letters{};
    std::array<int, 3> fields{};
    int passed =
        -1;  ///< The field over which a pawn has just stepped, beside an enemy pawn; else -1.

    /// Placement part of a FEN.
    std::string Fen() const;
};

/// Kings apart, one man a field, no pawn on a first or last rank, the side that is not to move unchecked.
bool IsLegalEnding(const TEndingPosition& position, bool isWhiteToMove);
bool IsInCheck(const TEndingPosition& position, bool isWhiteKing);

/// Calls `see` with the position after every legal move, until it returns true. True if it did.
bool AnySuccessor(const TEndingPosition& position, bool isWhiteToMove,
                  const std::function<bool(const TEndingPosition&)>& see);

/// Calls `see` for every placing of the kings and the men, legal or not, with the black king on every
/// field that symmetry does not bring into another one of these: with pawns the mirror image is left
/// out, without pawns seven of eight turns and reflections are.
void ForEachEnding(const std::string& men, const std::function<void(const TEndingPosition&)>& see);

/// The solved endings. An ending is solved when it is first asked for, with all into which captures and
/// promotions lead; in a release build one of two men without pawns takes some seconds, with a pawn, and all
/// into which it promotes, half a minute.
class CSmallEndings {
  public:
    // The position must be legal for the side to move, and nothing may be taken en passant.

    /// White, to move, mates in that many moves at best play; 0 if never.
    int MovesToMate(const TEndingPosition& position);
    /// Black, to move, is mated in that many further moves of White, 0 if he is mated; -1 if never.
    int MovesToBeMated(const TEndingPosition& position);

  private:
    struct TTable;
    TTable& TableOf(const TEndingPosition& position);
    void SolveTable(TTable& table);
    void Prepare(TTable& table, const TEndingPosition& position);
    bool ImproveWhite(TTable& table, int moves);
    bool ImproveBlack(TTable& table, int moves);
    int StoredLoss(const TTable& table, const TEndingPosition& next);
    int StoredWin(const TTable& table, const TEndingPosition& next);
    bool IsLost(const TTable& table, const TEndingPosition& position, int moves);
    bool IsWon(const TTable& table, const TEndingPosition& position, int moves);

    std::map<unsigned, std::shared_ptr<TTable>> m_tables;
};

}  // namespace tarnwick
