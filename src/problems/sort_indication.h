#pragma once
// Hints of the problem's author about the order in which White's moves should be tried, one line of the
// problem file: "3.Qa1-a8; ~Kb2; Rh1:h7+". The engine tries a named move first, a move named with "~"
// last.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "chess/fields.h"
#include "chess/figure_codes.h"

namespace tarnwick {

enum class TCaptureKind : std::uint8_t {
    NoCapture = 0,  ///< ">"
    Capture = 1,    ///< ":"
    Either = 255    ///< "-" or no sign
};

enum class TCheckKind : std::uint8_t {
    Any = 0,
    Single = 1,  ///< "+"
    Double = 2   ///< "++"
};

/// The moves that one item names. It says which moves are meant, and nothing is checked against the
/// position.
struct TSortIndication {
    TFigureCode m_figure = EmptyField;  ///< White code of the mover; EmptyField: any man.
    TField m_from = NoField;            ///< NoField: any field.
    TField m_to = 0;
    TCaptureKind m_capture = TCaptureKind::Either;
    TCheckKind m_check = TCheckKind::Any;  ///< The move must give at least this check.
    TFigureCode m_promotion = 0;           ///< Type of the new figure; 0: any or none.
    bool m_bNegated = false;               ///< "~": try these moves last.
    int m_moveNumber = 0;                  ///< Of White's move, from 1; 0: any move.

    bool operator==(const TSortIndication&) const = default;
};

/// By move number; a list keeps the order of the text, in which the first match decides.
using TSortIndications = std::map<int, std::vector<TSortIndication>>;

/// Reads one item: [~][number.][figure][from][: > -]to[promotion][+ ++], or a castling "0-0", "0-0-0".
/// Figure letters may be English or Polish.
///
/// Throws ChessException "Invalid description of SortIndication", with the item behind ": " if it has
/// any text, "Unknown figure letter: " or "Error in String2Field() ".
TSortIndication ParseSortIndication(std::string_view text);

/// Reads all items of a line, separated by "," or, where there is no comma, by ";". An empty text gives
/// no items. Throws what ParseSortIndication throws.
TSortIndications ParseSortIndications(std::string_view text);

/// The items joined by "; ": a text that is read again as the same items. Empty for no items.
std::string SortIndicationsToText(const TSortIndications& indications);

}  // namespace tarnwick
