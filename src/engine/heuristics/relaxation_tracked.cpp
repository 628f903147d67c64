// Steps that let go of followed men and of the key white figure.

#include <utility>

#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/relaxation_ladder.h"
#include "engine/heuristics/tracked_men.h"

namespace tarnwick {
namespace {

/// So many men that may be let go make it worth trying early.
constexpr int ManyRemovable = 3;

/// The man changes place with the last one, and the list gets shorter.
void RemoveTracked(TSpecialHeuristics& parameters, int index) {
    const auto i = static_cast<std::size_t>(index);
    const auto last = static_cast<std::size_t>(parameters.UnblockFieldCount - 1);
    std::swap(parameters.UnblockFields[i], parameters.UnblockFields[last]);
    std::swap(parameters.UnblockInitialFields[i], parameters.UnblockInitialFields[last]);
    --parameters.UnblockFieldCount;
}

/// Removes the men on fields for which the answer is yes; how many.
template <class TPredicate>
int RemoveTrackedIf(TSpecialHeuristics& parameters, TPredicate predicate) {
    int removed = 0;
    for (int i = parameters.UnblockFieldCount - 1; i >= 0; --i) {
        if (predicate(parameters.UnblockFields[static_cast<std::size_t>(i)])) {
            RemoveTracked(parameters, i);
            ++removed;
        }
    }
    return removed;
}

bool IsRemovable(const TSpecialHeuristics& parameters, TField field) {
    for (std::size_t i = 0; i < parameters.RemovableCount; ++i) {
        if (parameters.RemovableFields[i] == field) {
            return true;
        }
    }
    return false;
}

void StopFollowing(TLadder& ladder) {
    ladder.set &= ~SH_DONTLETFIGUREUNBLOCK;
    ladder.parameters.bUnblockDynamic = false;
    ladder.parameters.bCannotApplyDynamically = false;
}

/// The key figure goes; with a king that must not move it will take turns with the followed men.
TRung LetKeyFigureGo(TLadder& ladder) {
    if (ladder.Has(SH_KEEPKINGONTHEEDGE) && ladder.parameters.bKingStrict &&
        ladder.Has(SH_DONTLETFIGUREUNBLOCK)) {
        ladder.parameters.bKeyFigureAlternates = true;
    }
    return Drop(ladder, SH_KEYWHITEFIGURE);
}

}  // namespace

bool IsUnblockInUse(const TLadder& ladder) {
    return ladder.Has(SH_DONTLETFIGUREUNBLOCK) ||
           (ladder.parameters.bUnblockDynamic && !ladder.parameters.bCannotApplyDynamically);
}

TRung RestoreFollowedMen(TLadder& ladder) {
    if (ladder.parameters.bUnblockSuspended) {
        ladder.parameters.bUnblockSuspended = false;
        ladder.set |= SH_DONTLETFIGUREUNBLOCK;
        ladder.bUnblockRestored = true;
    }
    return TRung::GoOn;
}

TRung TakeTurnsWithKeyFigure(TLadder& ladder) {
    if (!ladder.parameters.bKeyFigureAlternates) {
        return TRung::GoOn;
    }
    if (ladder.Has(SH_DONTLETFIGUREUNBLOCK)) {
        return Replace(ladder, SH_DONTLETFIGUREUNBLOCK, SH_KEYWHITEFIGURE);
    }
    Replace(ladder, SH_KEYWHITEFIGURE, SH_DONTLETFIGUREUNBLOCK);
    ladder.parameters.bKeyFigureAlternates = false;
    return TRung::GoOn;
}

TRung ThinFollowedMenIfMany(TLadder& ladder) {
    return ladder.parameters.RemovableCount >= ManyRemovable ? ThinFollowedMen(ladder)
                                                             : TRung::GoOn;
}

TRung ThinFollowedMen(TLadder& ladder) {
    TSpecialHeuristics& p = ladder.parameters;
    if (p.RemovableCount == 0 || !IsUnblockInUse(ladder)) {
        return TRung::GoOn;
    }
    const int removed = RemoveTrackedIf(p, [&](TField field) { return IsRemovable(p, field); });
    p.RemovableCount = 0;
    if (removed == 0 || p.UnblockFieldCount == 0) {
        StopFollowing(ladder);
    }
    return TRung::Changed;
}

TRung ReduceFollowedMen(TLadder& ladder) {
    TSpecialHeuristics& p = ladder.parameters;
    const auto isMajor = [&](TField field) {
        const TFigureCode type =
            field < FieldCount ? TypeOf(ladder.board.m_fields[field]) : EmptyField;
        return type != TypeBishop && type != TypeKnight;
    };
    int majors = 0;
    for (int i = 0; i < p.UnblockFieldCount; ++i) {
        majors += isMajor(p.UnblockFields[static_cast<std::size_t>(i)]) ? 1 : 0;
    }
    const bool bFollowed = ladder.Has(SH_DONTLETFIGUREUNBLOCK) && p.UnblockFieldCount >= 2;
    if (bFollowed && majors > 0 && majors < p.UnblockFieldCount) {
        RemoveTrackedIf(p, isMajor);
    } else {
        StopFollowing(ladder);
    }
    return TRung::Changed;
}

TRung DropKeyFigureInCorner(TLadder& ladder) {
    const bool bApplies =
        ladder.Has(SH_KEYWHITEFIGURE) && WhiteFigureCount(ladder.board) >= 2 &&
        IsKingInCorner(ladder.board) &&
        IsKeyFigureNeededInCorner(ladder.board, ladder.parameters.KeyWhiteFigureField);
    return bApplies ? LetKeyFigureGo(ladder) : TRung::GoOn;
}

TRung DropKeyFigure(TLadder& ladder) {
    return ladder.Has(SH_KEYWHITEFIGURE) ? LetKeyFigureGo(ladder) : TRung::GoOn;
}

}  // namespace tarnwick
