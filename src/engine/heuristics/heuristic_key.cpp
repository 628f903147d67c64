#include "engine/heuristics/heuristic_key.h"

#include <bit>
#include <cassert>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/search/thread_context.h"

// The word is a number to which every parameter in use appends a few digits in base two: w * 4 + mode
// makes room for two bits and puts them there. Long sets push their first digits out at the top; two sets
// then share a key only if all that is left agrees, which costs speed at worst, never a wrong mate.
// Unsigned arithmetic wraps, and shift counts are taken modulo 32, on purpose.

namespace tarnwick {
namespace {

constexpr std::uint32_t ShiftedUp(std::uint32_t value, std::uint32_t count) {
    return value << (count & 31);
}

/// A negative number counts as its two's complement.
constexpr std::uint32_t Signed(int value) {
    return static_cast<std::uint32_t>(value);
}

/// The board on which the followed men are numbered. It must be the same for the whole search: in an
/// analysis that starts with a black move the thread's root is a later board for each reply, so there
/// the first board of the line is taken.
const TChessboard& ReferenceBoard(const TChessboard& board) noexcept {
    if ((board.m_shRootPlies & 1) == 0) {
        const TChessboard* first = &board;
        while (first->m_pPrevious != nullptr) {
            first = first->m_pPrevious;
        }
        return *first;
    }
    const bool bHasRoot = board.m_pThread != nullptr && board.m_pThread->m_pRootBoard != nullptr;
    return bHasRoot ? *board.m_pThread->m_pRootBoard : board;
}

/// The men of which followed ones are told by their ordinal: one bit each, in order of fields.
TFieldSet NumberedMen(const TChessboard& reference, const TSpecialHeuristics& parameters) noexcept {
    return parameters.bUnblockWithPawns ? reference.m_blackMen
                                        : reference.m_blackMen & ~reference.m_pawns;
}

/// The bit of the man on that field; 0 if none of the men stands there, as after its capture.
std::uint32_t BitOfMan(TFieldSet men, std::uint8_t field) noexcept {
    if (field >= FieldCount || (men & FieldBit(field)) == 0) {
        return 0;
    }
    const TFieldSet before = men & (FieldBit(field) - 1);
    return ShiftedUp(1, static_cast<std::uint32_t>(std::popcount(before)));
}

std::uint32_t CounterOfMen(const TChessboard& reference, const TSpecialHeuristics& parameters) {
    const int pawns = parameters.bUnblockWithPawns ? reference.m_blackPawns : 0;
    return static_cast<std::uint8_t>(BlackFigureCount(reference) + pawns + 1);
}

/// The followed men. If they are told by the fields on which they stood at first, those that have moved
/// since add the fields where they stand now.
std::uint32_t WordOfTrackedMen(const TChessboard& board, const TSpecialHeuristics& parameters) {
    const TChessboard& reference = ReferenceBoard(board);
    const TFieldSet men = NumberedMen(reference, parameters);
    std::uint32_t word =
        ShiftedUp(parameters.bUnblockFromFields ? 1 : 0, CounterOfMen(reference, parameters));
    std::uint32_t movedBits = 0;
    std::uint32_t movedFields = 0;
    for (std::size_t i = 0; static_cast<int>(i) < parameters.UnblockFieldCount && i < MaxTrackedMen;
         ++i) {
        const std::uint8_t now = parameters.UnblockFields[i];
        const std::uint8_t first = parameters.UnblockInitialFields[i];
        word |= BitOfMan(men, parameters.bUnblockFromFields ? now : first);
        if (!parameters.bUnblockFromFields && now != first) {
            movedBits += 6;
            movedFields = movedFields * 64 + now;
        }
    }
    word += parameters.bUnblockEffective;
    if (parameters.bUnblockFromFields) {
        return word;
    }
    return movedBits != 0 ? ShiftedUp(word, movedBits + 1) + movedFields : word * 2 + 1;
}

std::uint32_t FoldEdge(std::uint32_t w, const TChessboard& board, const TSpecialHeuristics& p) {
    const bool bStrict = p.bKingStrict && !board.m_stateBits.Has(TStateBit::StrictnessOff);
    w = w * 2 + bStrict;
    w = w * 2 + p.bKingAlmostStrict;
    w = w * 2 + board.m_stateBits.Has(TStateBit::RelaxedByPawn);
    return w * 2 + p.bIncludeInnerCorners;
}

std::uint32_t FoldExtEdge(std::uint32_t w, const TChessboard& board, const TSpecialHeuristics& p) {
    return w * 16 + (p.RelaxFiguresCaptured > 0 ? 8U : 0U) + (p.bIncludeInnerCorners ? 4U : 0U) +
           (p.bExtEdgeStrict ? 2U : 0U) + board.m_stateBits.Has(TStateBit::RelaxedByPawn);
}

std::uint32_t FoldSave(std::uint32_t w, const TChessboard& board, const TSpecialHeuristics& p) {
    return w * 4 + (p.bSaveIncludesRook ? 2U : 0U) + board.m_stateBits.Has(TStateBit::QueenSaved);
}

std::uint32_t FoldCorner(std::uint32_t w, const TSpecialHeuristics& p) {
    return w * 8 + Signed(p.CornerDistance + (p.CornerDistance < 0 ? 2 : 1));
}

/// Appends what the heuristic of that bit has; most have nothing.
std::uint32_t FoldBit(std::uint32_t bit, std::uint32_t w, const TChessboard& board,
                      const TSpecialHeuristics& p) noexcept {
    switch (bit) {
        case SH_KEEPKINGONTHEEDGE:
            return FoldEdge(w, board, p);
        case SH_ONECOLORPLAYPOSSIBLE:
            return w * 4 + (board.m_captureState & OneColourMask);
        case SH_ZUGZWANGTRIANGLES:
            return (w * 64 + Signed(p.TriangleField1)) * 64 + Signed(p.TriangleField2);
        case SH_KEEPKINGWITHINEXTEDGE:
            return FoldExtEdge(w, board, p);
        case SH_SAVEQUEENROOK:
            return FoldSave(w, board, p);
        case SH_DONTLOSEANYFIGURES:
            return w * 4 + p.LoseFiguresPawnMode;
        case SH_ASSERTBLACKKINGSURROUNDED:
            return w * 2 + p.bSurroundedStrict;
        case SH_CAPTUREKNIGHT:
            return w * 2 + p.bCaptureKnightVariant;
        case SH_SKIPWORSTWHITEMOVES:
            return w * 2 + 1;
        case SH_KEEPKINGNEARCORNER:
            return FoldCorner(w, p);
        default:
            return w;
    }
}

/// The subtracted constants keep the words of a few heuristics small.
std::uint32_t FoldForcedMate(std::uint32_t w, const TSpecialHeuristics& p) noexcept {
    const std::uint32_t level = static_cast<std::uint32_t>(p.ForcedLevel) + 2;
    w = (level + w * 8) * 8;
    w = p.bForcedCustom ? w * 2 - 18
                        : (w + static_cast<std::uint32_t>(p.ForcedWithOthers)) * 2 - 28;
    return w + p.bForcedInitialPass;
}

}  // namespace

std::uint32_t HeurParamsOf(const TChessboard& board, const TSpecialHeuristics& p) noexcept {
    const std::uint32_t mask = board.m_heuristicFlags.Raw();
    if (mask == 0) {
        return 0;
    }
    std::uint32_t w = (mask & SH_DONTLETFIGUREUNBLOCK) != 0 ? WordOfTrackedMen(board, p) : 0;
    w = w * 2 + p.bUnblockDynamic;
    if ((mask & SH_KEYWHITEFIGURE) != 0) {
        w = w * 64 + p.KeyWhiteFigureField;
    }
    for (std::uint32_t rest = mask; rest != 0; rest &= rest - 1) {
        w = FoldBit(rest & (~rest + 1), w, board, p);
    }
    if ((mask & SH_FINDFORCEDMATE) != 0) {
        w = FoldForcedMate(w, p);
    }
    if ((mask & SH_SINGLEQUEENMATE) != 0) {
        w = w * 4 + p.SingleQueenTable;
    }
    return w;
}

void SetHeuristics(TChessboard& board, std::uint32_t mask) noexcept {
    board.m_heuristicFlags.SetRaw(mask);
    UpdateHeurParams(board);
}

void UpdateHeurParams(TChessboard& board) noexcept {
    assert(board.m_pThread != nullptr);
    board.m_heuristicKey = HeurParamsOf(board, Thread(board).m_heuristics);
}

}  // namespace tarnwick
