#include "tables/generation/conversions.h"

#include <algorithm>
#include <bit>

namespace tarnwick {
namespace {

int LosingThrough(const TTypeLink& link, const TMen& after) {
    if (link.pNode == nullptr) {
        return NotLost;
    }
    return MovesToLose(*link.pNode, MenAt(link.pNode->Index(), PlaceThrough(link, after.place)));
}

unsigned ValueThrough(const TTypeLink& link, const TMen& after) {
    return link.pNode == nullptr ? 0 : link.pNode->ValueAt(PlaceThrough(link, after.place));
}

/// A capture en passant by the pawn of the letter.
template <bool ByWhite>
TMen AfterEnPassant(const TMen& men, int pawn, int steppedPawn) {
    const int stepped = men.place.men[static_cast<std::size_t>(steppedPawn)];
    const int from = men.place.men[static_cast<std::size_t>(pawn)];
    return AfterMove<ByWhite>(men, {pawn, from, stepped + (ByWhite ? 8 : -8), steppedPawn, false});
}

bool IsPawn(const CTypeNode& node, int man) {
    return man != KingMan && TypeOf(node.Index().ManOf(static_cast<std::size_t>(man))) == TypePawn;
}

}  // namespace

unsigned EnPassantValue(const CTypeNode& node, const TMen& men, int steppedPawn) {
    const int stepped = men.place.men[static_cast<std::size_t>(steppedPawn)];
    unsigned best = 0;
    for (unsigned pawns = PawnsBeside(node.Index(), men, stepped, true); pawns != 0;
         pawns &= pawns - 1) {
        const TMen after = AfterEnPassant<true>(men, std::countr_zero(pawns), steppedPawn);
        if (IsKingAttacked<true>(node.Index(), after)) {
            continue;
        }
        const int moves = LosingThrough(node.After(steppedPawn, NoMan, 0), after);
        if (moves != NotLost && (best == 0 || static_cast<unsigned>(moves) + 1 < best)) {
            best = static_cast<unsigned>(moves) + 1;
        }
    }
    return best;
}

TReplyValues EnPassantReplies(const CTypeNode& node, const TMen& men, int steppedPawn) {
    const int stepped = men.place.men[static_cast<std::size_t>(steppedPawn)];
    TReplyValues replies;
    for (unsigned pawns = PawnsBeside(node.Index(), men, stepped, false); pawns != 0;
         pawns &= pawns - 1) {
        const TMen after = AfterEnPassant<false>(men, std::countr_zero(pawns), steppedPawn);
        if (!IsKingAttacked<false>(node.Index(), after)) {
            replies.Add(ValueThrough(node.After(steppedPawn, NoMan, 0), after));
        }
    }
    return replies;
}

unsigned ValueAfterReply(const CTypeNode& node, const TMenMove& move, const TMen& after) {
    if (move.bPromotes) {
        TReplyValues replies;
        for (std::size_t figure = 0; figure < 4 && !replies.bSaved; ++figure) {
            replies.Add(ValueThrough(node.After(move.captured, move.man, figure), after));
        }
        return replies.bSaved ? 0 : replies.longest;
    }
    if (move.captured != NoMan) {
        return ValueThrough(node.After(move.captured, NoMan, 0), after);
    }
    unsigned value = node.ValueAt(after.place);
    if (IsDoubleStep(IsPawn(node, move.man), move.from, move.to)) {
        const unsigned enPassant = EnPassantValue(node, after, move.man);
        value = enPassant != 0 && (value == 0 || enPassant < value) ? enPassant : value;
    }
    return value;
}

int MovesToLose(const CTypeNode& node, const TMen& men, int steppedPawn) {
    TReplyValues replies;
    if (steppedPawn != NoMan) {
        replies = EnPassantReplies(node, men, steppedPawn);
    }
    if (!replies.bSaved) {
        ForEachMove<false>(node.Index(), men, [&](const TMenMove& move, const TMen& after) {
            replies.Add(ValueAfterReply(node, move, after));
            return !replies.bSaved;
        });
    }
    if (!replies.bAny) {
        return IsKingAttacked<false>(node.Index(), men) ? 0 : NotLost;
    }
    return replies.bSaved ? NotLost : static_cast<int>(replies.longest);
}

unsigned ValueOfConversion(const CTypeNode& node, const TMenMove& move, const TMen& after,
                           std::size_t figure) {
    const TTypeLink& link = move.bPromotes ? node.After(move.captured, move.man, figure)
                                           : node.After(move.captured, NoMan, 0);
    const int moves = LosingThrough(link, after);
    return moves == NotLost ? 0 : static_cast<unsigned>(moves) + 1;
}

}  // namespace tarnwick
