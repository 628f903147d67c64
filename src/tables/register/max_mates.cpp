#include "tables/register/max_mates.h"

#include <algorithm>
#include <array>
#include <set>

#include "tables/register/register_texts.h"

namespace tarnwick {
namespace {

/// Orders of like men that may hide one behind another: so many more candidates are looked at.
constexpr std::size_t OrdersOfLikeMen = 8;

/// Keeps one index of each position.
std::vector<std::uint64_t> Distinct(const TGlobalRegister& subregister,
                                    const std::vector<std::uint64_t>& indexes, std::size_t limit) {
    std::set<std::array<TFigureCode, FieldCount>> seen;
    std::vector<std::uint64_t> kept;
    TChessboard board = EmptyChessboard();
    for (const std::uint64_t index : indexes) {
        if (kept.size() == limit) {
            break;
        }
        if (subregister.PositionOfIndex(index, board) &&
            seen.insert(std::to_array(board.m_fields)).second) {
            kept.push_back(index);
        }
    }
    return kept;
}

TMaxMates Search(const TGlobalRegister& subregister, std::size_t limit) {
    const TLargestValue largest =
        subregister.Store().FindLargest(subregister.GetIndexCount(), limit * OrdersOfLikeMen);
    if (largest.value == 0) {
        return {};
    }
    return {largest.value, Distinct(subregister, largest.indexes, limit)};
}

}  // namespace

TMaxMates FindMaxMate(const TGlobalRegister& subregister, const CTableFolders& folders,
                      std::size_t limit, bool bUseCache) {
    if (!bUseCache) {
        return Search(subregister, limit);
    }
    const std::filesystem::path path = folders.MaxMateFile(subregister.Name());
    if (auto known = ReadMaxMates(path, subregister.GetIndexCount(), limit)) {
        return std::move(*known);
    }
    TMaxMates mates = Search(subregister, std::max(limit, MostMaxMates));
    WriteMaxMates(path, mates);  // A cache that cannot be written costs the next walk, no more.
    mates.indexes.resize(std::min(mates.indexes.size(), limit));
    return mates;
}

CMaxMateWalk::CMaxMateWalk(const TGlobalRegister& subregister, const CTableFolders& folders)
    : m_register(subregister), m_mates(FindMaxMate(subregister, folders, MostMaxMates, true)) {}

std::string CMaxMateWalk::Text() const {
    if (m_place < 0) {
        return {};
    }
    return "#" + std::to_string(m_mates.moves) + " (" + std::to_string(m_place + 1) + "/" +
           std::to_string(m_mates.indexes.size()) + ")";
}

bool CMaxMateWalk::Step(int direction, TChessboard& board, TUserDialog& dialog) {
    const auto count = static_cast<std::ptrdiff_t>(m_mates.indexes.size());
    TChessboard shown = board;
    std::ptrdiff_t place = m_place < 0 && direction < 0 ? count : m_place;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
        place += direction;
        if (place < 0 || place == count) {
            if (!dialog.Ask(UserText(NoMorePositionsText))) {
                return false;
            }
            place = place < 0 ? count - 1 : 0;
        }
        const bool bPosition =
            m_register.PositionOfIndex(m_mates.indexes[static_cast<std::size_t>(place)], shown);
        if (bPosition && (!m_register.IsCustom() || m_register.CustomType().ArePawnsAtTop(shown))) {
            m_place = place;
            board = shown;
            return true;
        }
        ++m_skipped;
    }
    return false;
}

}  // namespace tarnwick
