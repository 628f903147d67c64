#pragma once
// Lists of the men that attack a field: who can take there, whether it is covered, with what. The field
// may hold anything; the man on it attacks nothing there.
//
// An entry is the attacker's field plus the marks below. Order: pawns, knights, diagonal rays, straight
// rays (each from the field outward, in the generators' order of rays), and last the king, who takes
// only where no enemy man covers. Pawns and knights come in ascending order of their fields.
//
// A man that would move along the line between itself and its king is not pinned for that field.

#include "chess/chessboard.h"

namespace tarnwick {

/// Low six bits of an entry: the attacker's field.
inline constexpr std::uint8_t AttackerFieldMask = 0x3F;
/// The attacker is pinned to its king, and going to the field would expose the king.
inline constexpr std::uint8_t AttackerPinned = 64;
/// A slider behind another attacker of its colour on the same ray, be it a slider, pawn or king: it
/// counts once the front man has moved.
inline constexpr std::uint8_t AttackerBehind = 128;

/// Room for the attackers of a field: 8 rays of up to seven men, 8 knights.
inline constexpr int MaxAttackers = 64;

/// All white attackers, the king and sliders behind others included; pinned men are marked. Count.
int ListWhiteAttackers(const TChessboard& board, int file, int rank, std::uint8_t* pList) noexcept;
/// The same without the sliders behind others.
int ListWhiteAttackersFirstOnRay(const TChessboard& board, int file, int rank,
                                 std::uint8_t* pList) noexcept;
/// Unpinned men that attack the field at once, without the king. Count.
int ListWhiteFreeAttackers(const TChessboard& board, int file, int rank,
                           std::uint8_t* pList) noexcept;
/// Whether there is one; the first is written to *pFound unless that is null.
bool FindWhiteFreeAttacker(const TChessboard& board, int file, int rank,
                           std::uint8_t* pFound) noexcept;

/// As for White.
int ListBlackAttackers(const TChessboard& board, int file, int rank, std::uint8_t* pList) noexcept;
/// Unpinned men, the king and sliders behind unpinned men included: a pinned front man keeps its ray
/// closed. Count.
int ListBlackFreeAttackers(const TChessboard& board, int file, int rank,
                           std::uint8_t* pList) noexcept;
/// The first unpinned man but the king, as for White.
bool FindBlackFreeAttacker(const TChessboard& board, int file, int rank,
                           std::uint8_t* pFound) noexcept;
/// The first man but the king, pinned ones marked: 0 or 1 entries.
int FindFirstBlackAttacker(const TChessboard& board, int file, int rank,
                           std::uint8_t* pFound) noexcept;

}  // namespace tarnwick
