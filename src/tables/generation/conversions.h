#pragma once
// What moves out of a type are worth: captures, promotions and captures en passant, with all that may
// follow from Black's replies.
//
// The fields of a table tell nothing of en passant. A double step beside an enemy's pawn therefore gives
// a position whose value is not the one that the table has for its fields: White may have one move more
// to mate, Black one reply more to escape.

#include "tables/generation/type_graph.h"

namespace tarnwick {

/// In place of a number of moves: Black to move is not lost.
inline constexpr int NotLost = -1;

/// What replies of one kind lead to. Black is lost by them only if each one is answered by a mate.
struct TReplyValues {
    bool bAny = false;
    bool bSaved = false;   ///< One of them is not answered by a mate.
    unsigned longest = 0;  ///< Moves to the longest mate.

    void Add(unsigned value) {
        bAny = true;
        bSaved = bSaved || value == 0;
        longest = value > longest ? value : longest;
    }
};

/// In how many further moves White mates Black, who is to move: 0 is mate on the board, NotLost none. The
/// letter is a white pawn that has just made its double step, or NoMan.
int MovesToLose(const CTypeNode& node, const TMen& men, int steppedPawn = NoMan);

/// Moves to mate after a black move that may capture or promote, a quiet one included; 0 for none.
unsigned ValueAfterReply(const CTypeNode& node, const TMenMove& move, const TMen& after);

/// Moves to mate if White begins by taking the black pawn, which has just made its double step, en passant;
/// 0 for none.
unsigned EnPassantValue(const CTypeNode& node, const TMen& men, int steppedPawn);

/// Black's captures en passant of the white pawn that has just made its double step.
TReplyValues EnPassantReplies(const CTypeNode& node, const TMen& men, int steppedPawn);

/// Moves to mate after a capture or promotion of White, 0 for none. `figure` is what a pawn becomes, as its
/// place in PromotionTypes, and counts for a promotion alone.
unsigned ValueOfConversion(const CTypeNode& node, const TMenMove& move, const TMen& after,
                           std::size_t figure = 0);

}  // namespace tarnwick
