#pragma once
// Where the fields of the board lie: from a field to its square of pixels and from a mouse position
// back to the field. All fields have the same whole number of pixels, so that no line between them is
// blurred; the rest of the room stays empty right of the board and below it.
//
// Both directions use the same squares: the field that a click finds is the field whose pixels were
// clicked, at every size and on both sides of the board.

#include "app/view/rectangle.h"
#include "chess/fields.h"

namespace tarnwick {

/// What no field has: -1, as in the state of a move by mouse.
inline constexpr int NoFieldUnderMouse = -1;

enum class TBoardDirection {
    Left,
    Right,
    Up,
    Down
};

struct TBoardGeometry {
    int m_x = 0;  ///< Top left corner of the board.
    int m_y = 0;
    int m_fieldSize = 50;     ///< Pixels of a field's side, at least 1.
    bool m_bRotated = false;  ///< Shown from Black's side: h1 is at the top left.

    TRectangle Board() const { return {m_x, m_y, 8 * m_fieldSize, 8 * m_fieldSize}; }

    /// The square of the field, 0 to 63.
    TRectangle FieldSquare(int field) const;

    /// The field under the point, NoFieldUnderMouse outside the board.
    int FieldUnder(int x, int y) const;

    /// The next field as the user sees the board, the same field at the edge.
    int Neighbour(int field, TBoardDirection direction) const;
};

/// The largest board that fits into the area, at its top left corner.
TBoardGeometry FitBoard(const TRectangle& area, bool bRotated);

}  // namespace tarnwick
