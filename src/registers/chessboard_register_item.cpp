#include "registers/chessboard_register_item.h"

#include <array>

#include "chess/fen.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

// 16-bit weights and codes: compilers then multiply eight pairs in one instruction.
constexpr std::array<std::int16_t, FieldCount> SquareWeights = [] {
    std::array<std::int16_t, FieldCount> weights{};
    for (int i = 0; i < FieldCount; ++i) {
        weights[static_cast<std::size_t>(i)] = static_cast<std::int16_t>((i + 1) * (i + 1));
    }
    return weights;
}();

}  // namespace

bool BoardOf(const TChessboardRegisterItem& item, std::uint16_t plies, TChessboard& board) {
    board = EmptyChessboard();
    std::memcpy(board.m_fields, item.m_fields, sizeof item.m_fields);
    board.m_shPlies = board.m_shRootPlies = plies;
    return PreparePositionNoThrow(board, true);
}

std::string FenOf(const TChessboardRegisterItem& item, std::uint16_t plies) {
    TChessboard board;
    const bool bPosition = BoardOf(item, plies, board);
    return WriteFen(board, !bPosition);
}

std::uint32_t BucketHash(const TChessboardRegisterItem& item) noexcept {
    std::int32_t sum = 0;  // at most 255 * 89440
    for (std::size_t i = 0; i < FieldCount; ++i) {
        sum += static_cast<std::int16_t>(item.m_fields[i]) * SquareWeights[i];
    }
    return static_cast<std::uint32_t>(sum);
}

}  // namespace tarnwick
