#pragma once
// Why a position cannot begin a problem: every fault at once, each with the men concerned, so that the
// user sees on the board what to change. The order and the first sentence of each fault are those of
// PreparePosition and CheckStartPosition, which have the last word.

#include <array>
#include <string>
#include <vector>

#include "chess/chessboard.h"

namespace tarnwick {

/// The 64 figure codes of a position that is being set up; any men anywhere.
using TSetupFields = std::array<TFigureCode, FieldCount>;

struct TPositionFault {
    std::string text;      ///< For the user: what is wrong and what to change.
    TFieldSet fields = 0;  ///< The men at fault; 0 where one is missing.
};

/// Nothing for a position that White, to move, may start from. What stands in check is told only once
/// there is one king of each colour and no pawn on the edge.
std::vector<TPositionFault> FaultsOfPosition(const TSetupFields& fields);

/// The texts of the faults, a line each, and all their fields.
TPositionFault AllFaults(const std::vector<TPositionFault>& faults);

/// "a1, b2".
std::string NamesOfFields(TFieldSet fields);

/// A board with these men, and White to move a mate in one; not prepared.
TChessboard BoardOfFields(const TSetupFields& fields);

}  // namespace tarnwick
