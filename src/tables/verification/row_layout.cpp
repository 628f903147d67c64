#include "tables/verification/row_layout.h"

#include <algorithm>

namespace tarnwick {

CRowLayout::CRowLayout(const CTableIndex& index) : m_index(index) {
    TTablePlace place;
    for (std::uint64_t cell = 0; cell < index.BlackKingStride(); ++cell) {
        index.PlaceOfIndex(cell, place);
        m_whiteKings.push_back(place.whiteKing);
    }
    for (std::size_t king = 0; king < FieldCount; ++king) {
        TFieldMap map{};
        for (std::size_t field = 0; field < FieldCount; ++field) {
            place.whiteKing = static_cast<std::uint8_t>(king);
            place.blackKing = static_cast<std::uint8_t>(field);
            index.Fold(place);
            map[field] = place.blackKing;
        }
        const auto known = std::ranges::find(m_maps, map);
        const auto cell = std::ranges::find(m_whiteKings, place.whiteKing);
        m_foldings[king] = {static_cast<std::uint8_t>(cell - m_whiteKings.begin()),
                            static_cast<std::uint8_t>(known - m_maps.begin()),
                            place.whiteKing == king};
        if (known == m_maps.end()) {
            m_maps.push_back(map);
        }
    }
}

TLetterFields CRowLayout::Mapped(const TLetterFields& fields, std::size_t map) const {
    TLetterFields mapped{};
    for (std::size_t i = 0; i < m_index.Letters(); ++i) {
        mapped[i] = m_maps[map][fields[i]];
    }
    return mapped;
}

std::uint64_t CRowLayout::Begin(const TLetterFields& fields) const {
    TTablePlace place{m_whiteKings[0], 0, fields};
    m_index.SortLikeMen(place);
    return m_index.IndexOfFolded(place);
}

bool CRowLayout::FieldsAt(std::uint64_t begin, TLetterFields& fields) const {
    TTablePlace place;
    m_index.PlaceOfIndex(begin, place);
    fields = place.men;
    TFieldSet taken = 0;
    for (std::size_t i = 0; i < m_index.Letters(); ++i) {
        if ((taken & FieldBit(fields[i])) != 0) {
            return false;
        }
        taken |= FieldBit(fields[i]);
    }
    return true;
}

bool CRowLayout::IsAscending(const TLetterFields& fields) const {
    for (std::size_t i = 1; i < m_index.Letters(); ++i) {
        if (m_index.IsLikeBefore(i) && fields[i] < fields[i - 1]) {
            return false;
        }
    }
    return true;
}

}  // namespace tarnwick
