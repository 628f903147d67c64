#pragma once
// TChessboardRegisterItem: the key of every register, and its two hashes.
//
// The key is the men on the 64 fields and nothing else. The side to move is told by the parity of the
// plies stored with it; castling and en passant are kept out by the search, which stores and asks only
// positions that their men describe fully.

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

#include "chess/chessboard.h"

namespace tarnwick {

struct TChessboardRegisterItem {
    TFigureCode m_fields[FieldCount] = {};  ///< In field order, a1 first.

    /// Fields of one rank as a number, the a-file in its lowest byte.
    std::uint64_t Word(int rank) const noexcept {
        std::uint64_t word;
        std::memcpy(&word, m_fields + rank * 8, sizeof word);
        return word;
    }
};
static_assert(sizeof(TChessboardRegisterItem) == 64 &&
              std::is_trivially_copyable_v<TChessboardRegisterItem>);

inline bool operator==(const TChessboardRegisterItem& a,
                       const TChessboardRegisterItem& b) noexcept {
    std::uint64_t difference = 0;
    for (int rank = 0; rank < 8; ++rank) {
        difference |= a.Word(rank) ^ b.Word(rank);
    }
    return difference == 0;
}

/// The order of keys in files and trees: by the first rank that differs, where a is before b if the
/// difference a - b, with wrap-around, is negative as a signed number.
///
/// It is no strict weak order: it may go round in circles (a before b before c before a), and two words
/// that differ by exactly 2^63 are both before each other. So a search tree may fail to find a key that
/// it holds, which costs a repeated search and nothing else; std::sort must not be used with it.
struct TRegisterItemOrder {
    bool operator()(const TChessboardRegisterItem& a,
                    const TChessboardRegisterItem& b) const noexcept {
        for (int rank = 0; rank < 8; ++rank) {
            const std::uint64_t difference = a.Word(rank) - b.Word(rank);
            if (difference != 0) {
                return static_cast<std::int64_t>(difference) < 0;
            }
        }
        return false;
    }
};

inline TChessboardRegisterItem ItemOf(const TChessboard& board) noexcept {
    TChessboardRegisterItem item;
    std::memcpy(item.m_fields, board.m_fields, sizeof item.m_fields);
    return item;
}

/// A prepared board with these men and that many plies left, without history. False, and the board
/// unusable, if the men are no position.
bool BoardOf(const TChessboardRegisterItem& item, std::uint16_t plies, TChessboard& board);

/// The position as FEN; the placement alone if the men are no position.
std::string FenOf(const TChessboardRegisterItem& item, std::uint16_t plies);

/// Hash that chooses the bucket, and thereby the order in files: the sum over all fields i from 0 of
/// code * (i + 1)^2. It mixes badly, so nothing is looked up by it.
std::uint32_t BucketHash(const TChessboardRegisterItem& item) noexcept;

/// Hash by which positions are looked up; good in all its bits. The search computes it once a node and
/// passes it along.
struct TPositionHash {
    std::uint32_t m_value;
};

namespace detail {
/// Both halves of the product of 64-bit numbers, folded: every bit of the result depends on all bits.
inline std::uint64_t FoldedProduct(std::uint64_t a, std::uint64_t b) noexcept {
    __extension__ using TWide = unsigned __int128;
    const TWide product = static_cast<TWide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}
}  // namespace detail

inline TPositionHash HashOf(const TChessboardRegisterItem& item) noexcept {
    using detail::FoldedProduct;
    // Arbitrary odd constants keep a rank without men from wiping out its partner.
    const std::uint64_t a =
        FoldedProduct(item.Word(0) ^ 0x9E3779B97F4A7C15ULL, item.Word(1) ^ 0xC2B2AE3D27D4EB4FULL);
    const std::uint64_t b =
        FoldedProduct(item.Word(2) ^ 0x165667B19E3779F9ULL, item.Word(3) ^ 0xD6E8FEB86659FD93ULL);
    const std::uint64_t c =
        FoldedProduct(item.Word(4) ^ 0xA0761D6478BD642FULL, item.Word(5) ^ 0xE7037ED1A0B428DBULL);
    const std::uint64_t d =
        FoldedProduct(item.Word(6) ^ 0x8EBC6AF09C88C6E3ULL, item.Word(7) ^ 0x589965CC75374CC3ULL);
    const std::uint64_t mixed = FoldedProduct(a ^ (c << 1 | c >> 63), b ^ (d << 2 | d >> 62));
    return {static_cast<std::uint32_t>(mixed >> 32)};
}

}  // namespace tarnwick
