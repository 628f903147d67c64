#pragma once

// The positions of a table in the words of the separate solver of small endings.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/small_endings.h"
#include "tables/open_values.h"

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

/// Compares the table of three men with a judge at every legal index. judge(position) tells the plies to mate by
/// White, to move; 0 for none.
template <typename TJudge>
void ExpectSameEverywhere(const CTableFolders& folders, const std::string& type,
                          const TJudge& judge) {
    const CTableIndex index(type);
    const auto pValues = OpenValues(folders, index, 1 << 20, true).pValues;
    ASSERT_NE(pValues, nullptr) << type;
    int compared = 0;
    TEndingPosition position;
    for (std::uint64_t number = 1; number < index.GetIndexCount(); ++number) {
        if (!IsLegalIndex(index, number, position)) {
            continue;
        }
        ++compared;
        const auto moves = static_cast<int>(pValues->ValueAt(number));
        ASSERT_EQ(judge(position), moves == 0 ? 0 : 2 * moves - 1) << type << " " << position.Fen();
    }
    EXPECT_GT(compared, 20'000) << type;
}

}  // namespace tarnwick
