#pragma once

// The positions of a table in the words of the separate solver of small endings.

#include <cstdint>
#include <random>

#include "support/small_endings.h"
#include "tables/table_index.h"

namespace tarnwick {

inline TEndingPosition EndingOf(const CTableIndex& index, const TTablePlace& place) {
    TEndingPosition position;
    position.whiteKing = place.whiteKing;
    position.blackKing = place.blackKing;
    position.count = static_cast<int>(index.Letters());
    for (std::size_t letter = 0; letter < index.Letters(); ++letter) {
        position.letters[letter] = index.Type()[letter];
        position.fields[letter] = place.men[letter];
    }
    return position;
}

/// Whether the index names a legal position with White to move, and which.
inline bool IsLegalIndex(const CTableIndex& index, std::uint64_t number,
                         TEndingPosition& position) {
    TTablePlace place;
    if (number == 0 || !index.PlaceOfIndex(number, place)) {
        return false;
    }
    position = EndingOf(index, place);
    return IsLegalEnding(position, true);
}

}  // namespace tarnwick
