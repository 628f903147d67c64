#pragma once
// The longest mates of a type, for those who want to see them: found by a walk over the whole table, which
// takes seconds to minutes, and kept in a small file for the next time.

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/user_dialog.h"

#include "chess/chessboard.h"
#include "tables/max_mate_cache.h"
#include "tables/register/global_register.h"

namespace tarnwick {

/// The longest mate of the table in moves, and up to `limit` of its positions, each once: indices that differ
/// in the order of like men alone are one position. A type without any mate has an empty list. With
/// bUseCache what was found before is taken, and what is found is kept (MostMaxMates of it). Throws
/// ChessException where a packed table is damaged.
TMaxMates FindMaxMate(const TGlobalRegister& subregister, const CTableFolders& folders,
                      std::size_t limit, bool bUseCache);

/// Goes through the longest mates, one position after the other.
class CMaxMateWalk {
  public:
    /// Looks for them, see FindMaxMate. The register must stay held.
    CMaxMateWalk(const TGlobalRegister& subregister, const CTableFolders& folders);

    /// The next position, or the previous one, into the fields of the board. At the list's end the user is asked
    /// whether to begin again; false, with the board unchanged, if he does not want to or there is none. Of a
    /// custom type only positions are shown in which no pawn has left the top of its road.
    bool Next(TChessboard& board, TUserDialog& dialog) { return Step(1, board, dialog); }
    bool Previous(TChessboard& board, TUserDialog& dialog) { return Step(-1, board, dialog); }

    /// The type has no mate at all.
    bool IsEmpty() const { return m_mates.indexes.empty(); }
    /// The length of the longest mates.
    int Moves() const { return static_cast<int>(m_mates.moves); }
    /// "#28 (3/17)" for the position shown; empty before the first step.
    std::string Text() const;
    /// Positions passed over because a pawn has moved.
    std::size_t Skipped() const { return m_skipped; }

  private:
    bool Step(int direction, TChessboard& board, TUserDialog& dialog);

    const TGlobalRegister& m_register;
    TMaxMates m_mates;
    std::ptrdiff_t m_place = -1;  ///< In the list; -1 before the first step.
    std::size_t m_skipped = 0;
};

}  // namespace tarnwick
