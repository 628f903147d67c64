#include "tables/verification/expected_plies.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "chess/mate_in_one.h"
#include "tables/tables_texts.h"
#include "tables/verification/material_verdict.h"
#include "tables/verification/side_moves.h"

namespace tarnwick {
namespace {

/// Which moves of White count.
enum class TWhiteMoves : std::uint8_t {
    All,
    EnPassant
};

bool IsPawnOn(const TChessboard& board, int field) {
    return (board.m_pawns & FieldBit(field)) != 0;
}

bool ChangesMen(const TChessboard& before, TMove move) {
    return before.m_fields[move.to] != EmptyField || move.PromotionType() != 0 ||
           (IsPawnOn(before, move.from) && FileOf(move.from) != FileOf(move.to));
}

bool IsBlackCastling(const TChessboard& before, TMove move) {
    return TypeOf(before.m_fields[move.from]) == TypeKing && move.from == E8 &&
           (move.to == C8 || move.to == G8);
}

/// A double step onto a field beside a white pawn.
bool AllowsEnPassant(const TChessboard& after, TMove move) {
    if (!IsPawnOn(after, move.to) || move.from - move.to != 16) {
        return false;
    }
    for (const int side : {-1, 1}) {
        const int file = FileOf(move.to) + side;
        if (OnBoard(file, RankOf(move.to)) && after.m_fields[move.to + side] == WhitePawn) {
            return true;
        }
    }
    return false;
}

unsigned PliesIn(const TFoundTable& table, const TChessboard& board) {
    return PliesOfMoves(table.pValues->ValueAt(table.pIndex->IndexOfPosition(board)));
}

class CExpectation {
  public:
    CExpectation(const TTableLookup& lookup) : m_lookup(lookup) {}

    unsigned Best(TChessboard& board, const TFoundTable* pOwn, TWhiteMoves wanted) const {
        unsigned best = 0;
        ForEachWhiteMove(board, [&](TChessboard& after, TMove move) {
            const bool bEnPassant = IsPawnOn(board, move.from) &&
                                    FileOf(move.from) != FileOf(move.to) &&
                                    board.m_fields[move.to] == EmptyField;
            if (wanted == TWhiteMoves::EnPassant && !bEnPassant) {
                return true;
            }
            const TFoundTable* pTable = ChangesMen(board, move) ? m_lookup(after) : pOwn;
            const unsigned length = LengthOf(after, pTable, best);
            best = length != 0 ? length : best;
            return best != 1;
        });
        return best;
    }

  private:
    /// Of the white move that led here, in plies; 0 if it forces no mate shorter than the best known, which is
    /// 0 for none.
    unsigned LengthOf(TChessboard& board, const TFoundTable* pTable, unsigned best) const {
        unsigned length = 0;
        bool bAny = false;
        const bool bForced =
            ForEachBlackMove(board, [&](TChessboard& after, TMove move, bool bHopeless) {
                if (IsBlackCastling(board, move)) {
                    return true;
                }
                bAny = true;
                const TFoundTable* pOther = ChangesMen(board, move) ? m_lookup(after) : pTable;
                const unsigned plies = bHopeless ? 0 : ValueOf(after, move, pOther);
                length = std::max(length, plies + 2);
                return plies != 0 && (best == 0 || length < best);
            });
        if (!bAny) {
            return board.m_blackChecker != NoChecker ? 1 : 0;
        }
        return bForced ? length : 0;
    }

    /// Plies to mate behind a reply of Black.
    unsigned ValueOf(TChessboard& board, TMove reply, const TFoundTable* pTable) const {
        if (pTable == nullptr) {
            switch (MaterialVerdict(board)) {
                case TMaterialVerdict::NoMate:
                    return 0;
                case TMaterialVerdict::Mate:
                    return IsMateInOne(board) ? 1 : 3;
                default:
                    throw ChessException(FilledText(MissingTableText, {PositionTypeOf(board)}));
            }
        }
        unsigned plies = PliesIn(*pTable, board);
        plies = plies == PliesUnknown ? 0 : plies;
        if (AllowsEnPassant(board, reply)) {
            const unsigned enPassant = Best(board, pTable, TWhiteMoves::EnPassant);
            plies = enPassant != 0 && (plies == 0 || enPassant < plies) ? enPassant : plies;
        }
        return plies;
    }

    const TTableLookup& m_lookup;
};

}  // namespace

unsigned ExpectedPlies(TChessboard& board, const TFoundTable& own, const TTableLookup& lookup) {
    return CExpectation(lookup).Best(board, &own, TWhiteMoves::All);
}

}  // namespace tarnwick
