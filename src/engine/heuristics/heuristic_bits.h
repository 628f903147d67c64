#pragma once
// The special heuristics, one bit each. A set of them is a word that travels in every board as
// m_heuristicFlags; heuristic_catalogue.h says what each is for.

#include <cstdint>

namespace tarnwick {

inline constexpr std::uint32_t SH_AREKINGSNEAR = 0x00000001;
inline constexpr std::uint32_t SH_SWEEPINGWHITEROOK = 0x00000002;
inline constexpr std::uint32_t SH_KEEPKINGONTHEEDGE = 0x00000004;
inline constexpr std::uint32_t SH_ONECOLORPLAYPOSSIBLE = 0x00000008;
inline constexpr std::uint32_t SH_ZUGZWANGTRIANGLES = 0x00000010;
inline constexpr std::uint32_t SH_DONTLEAVEMAINDIAGONAL = 0x00000020;
inline constexpr std::uint32_t SH_KEEPKINGWITHINEXTEDGE = 0x00000040;
inline constexpr std::uint32_t SH_DONTLETFIGUREUNBLOCK = 0x00000080;
inline constexpr std::uint32_t SH_FINDFORCEDMATE = 0x00000200;
inline constexpr std::uint32_t SH_DONTRECEDEBLACKKING = 0x00000400;
inline constexpr std::uint32_t SH_DONTLETPROMOTEDQUEENMOVE = 0x00000800;
inline constexpr std::uint32_t SH_KEYLINE = 0x00001000;
inline constexpr std::uint32_t SH_KEYDIAGONAL = 0x00002000;
inline constexpr std::uint32_t SH_SAVEQUEENROOK = 0x00004000;  ///< Shown as SH_SAVEQUEEN/ROOK.
inline constexpr std::uint32_t SH_DONTLOSEANYFIGURES = 0x00008000;
inline constexpr std::uint32_t SH_DONTLETBLACKQUEENCHECKTWICE = 0x00010000;
inline constexpr std::uint32_t SH_USEBLOCKBLACKPAWNSLEVEL = 0x00020000;
inline constexpr std::uint32_t SH_KEYFIELD = 0x00040000;
inline constexpr std::uint32_t SH_ASSERTBLACKKINGSURROUNDED = 0x00080000;
inline constexpr std::uint32_t SH_SINGLEQUEENMATE = 0x00100000;
inline constexpr std::uint32_t SH_3MOVESTOMATE = 0x00200000;
inline constexpr std::uint32_t SH_KEYWHITEFIGURE = 0x00400000;
inline constexpr std::uint32_t SH_CAPTUREKNIGHT = 0x00800000;
inline constexpr std::uint32_t SH_SKIPWORSTWHITEMOVES = 0x01000000;
inline constexpr std::uint32_t SH_DONTLETPROMOTEDFIGUREMOVE = 0x02000000;
inline constexpr std::uint32_t SH_KEEPKINGNEARCORNER = 0x04000000;
inline constexpr std::uint32_t SH_SEASNAKE = 0x08000000;
inline constexpr std::uint32_t SH_REDUCTIONTOGLOBREGPOS = 0x40000000;
inline constexpr std::uint32_t SH_ZUGZWANG = 0x80000000;

/// The heuristics that hold the black king in a part of the board.
inline constexpr std::uint32_t EdgeHeuristics = SH_KEEPKINGONTHEEDGE | SH_KEEPKINGWITHINEXTEDGE;

/// The heuristics that keep black figures from play that came from promotions.
inline constexpr std::uint32_t PromotedHeuristics =
    SH_DONTLETPROMOTEDQUEENMOVE | SH_DONTLETPROMOTEDFIGUREMOVE;

/// The heuristics whose screens reject moves of the white node.
inline constexpr std::uint32_t HeuristicsWithScreens = 0x020808A6;

}  // namespace tarnwick
