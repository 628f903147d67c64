#include "app/view/board_geometry.h"

#include <algorithm>

namespace tarnwick {
namespace {

/// Columns count from the left and rows from the top; turning the board round swaps both.
struct TPlace {
    int column;
    int row;
};

TPlace PlaceOf(int field, bool bRotated) {
    const int file = FileOf(field);
    const int rank = RankOf(field);
    return bRotated ? TPlace{7 - file, rank} : TPlace{file, 7 - rank};
}

int FieldOf(TPlace place, bool bRotated) {
    return bRotated ? FieldAt(7 - place.column, place.row) : FieldAt(place.column, 7 - place.row);
}

}  // namespace

TRectangle TBoardGeometry::FieldSquare(int field) const {
    const TPlace place = PlaceOf(field, m_bRotated);
    return {m_x + place.column * m_fieldSize, m_y + place.row * m_fieldSize, m_fieldSize,
            m_fieldSize};
}

int TBoardGeometry::FieldUnder(int x, int y) const {
    if (!Board().Contains(x, y)) {
        return NoFieldUnderMouse;
    }
    return FieldOf({(x - m_x) / m_fieldSize, (y - m_y) / m_fieldSize}, m_bRotated);
}

int TBoardGeometry::Neighbour(int field, TBoardDirection direction) const {
    TPlace place = PlaceOf(field, m_bRotated);
    switch (direction) {
        case TBoardDirection::Left:
            place.column = std::max(place.column - 1, 0);
            break;
        case TBoardDirection::Right:
            place.column = std::min(place.column + 1, 7);
            break;
        case TBoardDirection::Up:
            place.row = std::max(place.row - 1, 0);
            break;
        case TBoardDirection::Down:
            place.row = std::min(place.row + 1, 7);
            break;
    }
    return FieldOf(place, m_bRotated);
}

TBoardGeometry FitBoard(const TRectangle& area, bool bRotated) {
    return {area.x, area.y, std::max(std::min(area.width, area.height) / 8, 1), bRotated};
}

}  // namespace tarnwick
