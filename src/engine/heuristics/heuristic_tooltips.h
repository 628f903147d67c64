#pragma once
// The long texts of the heuristics and their settings, as the dialog shows them over its controls.
// heuristic_catalogue.h says which belongs to what. The numbers in them are problems of the file
// sample_problems.cp.

#include "base/language.h"

namespace tarnwick {

// What the heuristics about the black king are for.
extern const TUserText KingMustNotMoveTooltip;
extern const TUserText AllowExceptionsTooltip;
extern const TUserText EdgeTooltip;
extern const TUserText ExtEdgeTooltip;
extern const TUserText ExtEdgeStrictTooltip;
extern const TUserText NearCornerTooltip;
extern const TUserText SurroundedTooltip;
extern const TUserText DynamicRelaxationTooltip;
extern const TUserText KingsNearTooltip;
extern const TUserText DontRecedeTooltip;

// What the heuristics about single men are for.
extern const TUserText SaveQueenRookTooltip;
extern const TUserText LoseNoFiguresTooltip;
extern const TUserText MainDiagonalTooltip;
extern const TUserText PromotedTooltip;
extern const TUserText QueenChecksTwiceTooltip;
extern const TUserText UnblockTooltip;
extern const TUserText UnblockDynamicTooltip;
extern const TUserText KeyWhiteFigureTooltip;
extern const TUserText KeyLineTooltip;
extern const TUserText CaptureKnightTooltip;

// What the heuristics for special types of positions are for.
extern const TUserText SweepingRookTooltip;
extern const TUserText OneColourTooltip;
extern const TUserText SingleQueenTooltip;
extern const TUserText ZugzwangTooltip;
extern const TUserText SeaSnakeTooltip;
extern const TUserText ReductionTooltip;
extern const TUserText ThreeMovesTooltip;
extern const TUserText SkipWorstTooltip;

// What the settings of the passes are for.
extern const TUserText ForcedMateTooltip;
extern const TUserText RelaxForcedTooltip;
extern const TUserText SchedulerNoteTooltip;
extern const TUserText LetRelaxTooltip;
extern const TUserText FallbackTooltip;
extern const TUserText QuickModeTooltip;

}  // namespace tarnwick
