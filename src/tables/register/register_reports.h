#pragma once
// What the user is told about the registers and about a position's place in them.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "chess/chessboard.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {

/// How much memory is in use, what is being loaded, and a line for each type that was ever asked for.
std::string RegisterStatusText(const TGlobalRegisterSet& registers);

/// What the tables say of a board: "#5 (index of this position: 1234)", or why they say nothing. The side to
/// move is that of m_shPlies. May load a table.
std::string PositionInformation(TGlobalRegisterSet& registers, const TChessboard& board);

/// The same of an index of a register.
std::string PositionText(const TGlobalRegister& subregister, std::uint64_t index);

/// Why there is no next or previous position of the board's type; empty if there is a register for it, which
/// must be given back then.
struct TRegisterOfBoard {
    TGlobalRegister* pRegister = nullptr;
    std::string refusal;
};
TRegisterOfBoard RegisterToWalk(TGlobalRegisterSet& registers, const TChessboard& board);

/// The nearest index beyond `index` in the direction (1 or -1) that names a position; its men go into the
/// fields of the board. Nothing, and fields of any content, if there is none.
std::optional<std::uint64_t> NeighbourPosition(const TGlobalRegister& subregister,
                                               std::uint64_t index, int direction,
                                               TChessboard& board);

/// An index that the user typed or pasted. Throws ChessException if it is no whole number, or one that no index
/// can be.
std::uint64_t ParsePositionIndex(std::string_view text);

}  // namespace tarnwick
