#include "engine/heuristics/heuristic_list.h"

#include <iterator>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_names.h"
#include "engine/heuristics/heuristic_words.h"

namespace tarnwick {
namespace {

/// "B2"; nothing for what is no field.
std::string FieldText(int field) {
    if (field < 0 || field >= FieldCount) {
        return {};
    }
    return {static_cast<char>('A' + FileOf(field)), static_cast<char>('1' + RankOf(field))};
}

std::string RelaxationText(const TSpecialHeuristics& p) {
    std::string text;
    if (p.RelaxFiguresCaptured > 0) {
        text += "C" + std::to_string(p.RelaxFiguresCaptured);
    }
    if (p.bRelaxOnAdvancedPawn) {
        text += "A";
    }
    if (p.DeferMoves > 0) {
        text += ",D" + std::to_string(p.DeferMoves);
        text += ",M" + std::to_string(p.DeferSecond);
    }
    return p.bIncludeInnerCorners ? text + InnerCornersWord : text;
}

std::string EdgeText(const TSpecialHeuristics& p) {
    std::string word;
    if (p.bKingStrict) {
        word = p.bKingAlmostStrict ? KingAlmostStrictWord : KingStrictWord;
    }
    const std::string relaxation = p.bRelaxExtEdgeOnly ? "" : RelaxationText(p);
    return word.empty() || relaxation.empty() ? word + relaxation : word + "," + relaxation;
}

std::string UnblockText(const TSpecialHeuristics& p) {
    std::string text = p.bUnblockEffective ? EffectiveWord : "";
    for (std::size_t i = 0; static_cast<int>(i) < p.UnblockFieldCount && i < MaxTrackedMen; ++i) {
        const std::string field = FieldText(p.UnblockFields[i]);
        text += (text.empty() || field.empty() ? "" : ",") + field;
    }
    return text;
}

std::string ForcedMateText(const TSpecialHeuristics& p) {
    const auto level = static_cast<std::size_t>(p.ForcedLevel);
    std::string text = level < std::size(ForcedLevelWords) ? ForcedLevelWords[level] : "";
    text += p.bForcedInitialPass ? PreliminaryWord : "";
    return text + (p.bForcedCustom ? CustomWord : "");
}

std::string CornerText(const TSpecialHeuristics& p) {
    const int distance = p.CornerDistance;
    return distance < 0 ? std::to_string(-distance) + "M" : std::to_string(distance) + "S";
}

std::string SeaSnakeText(const TSpecialHeuristics& p) {
    const std::string fields =
        FieldText(p.SeaSnakeApproachField) + "-" + FieldText(p.SeaSnakeTurnBackField);
    return p.SeaSnakeAfterMove > 0 ? fields + "-" + std::to_string(p.SeaSnakeAfterMove) : fields;
}

std::string PawnModeText(const TSpecialHeuristics& p) {
    return p.LoseFiguresPawnMode == 1   ? PawnsWord
           : p.LoseFiguresPawnMode == 2 ? PromotablePawnsWord
                                        : "";
}

std::string ParametersText(std::uint32_t bit, const TSpecialHeuristics& p, std::uint8_t mode) {
    switch (bit) {
        case SH_KEEPKINGONTHEEDGE:
            return EdgeText(p);
        case SH_KEEPKINGWITHINEXTEDGE:
            return RelaxationText(p) + (p.bExtEdgeStrict ? StrictWord : "");
        case SH_ONECOLORPLAYPOSSIBLE:
            return mode >= 1 && mode <= std::size(OneColourWords) ? OneColourWords[mode - 1] : "";
        case SH_DONTLEAVEMAINDIAGONAL:
            return FieldText(p.MainDiagonalBlackField);
        case SH_DONTLETFIGUREUNBLOCK:
            return UnblockText(p);
        case SH_FINDFORCEDMATE:
            return ForcedMateText(p);
        case SH_DONTLETPROMOTEDQUEENMOVE:
        case SH_DONTLETPROMOTEDFIGUREMOVE:
            return p.bPromotedStrict ? StrictWord : "";
        case SH_ASSERTBLACKKINGSURROUNDED:
            return p.bSurroundedStrict ? StrictWord : "";
        case SH_KEYLINE:
            return p.KeyLine < 8 ? std::string(1, static_cast<char>('A' + p.KeyLine)) : "";
        case SH_KEYDIAGONAL:
            return FieldText(p.KeyDiagonalField1) + "-" + FieldText(p.KeyDiagonalField2);
        case SH_KEYFIELD:
            return FieldText(p.KeyField);
        case SH_KEYWHITEFIGURE:
            return FieldText(p.KeyWhiteFigureField);
        case SH_DONTLOSEANYFIGURES:
            return PawnModeText(p);
        case SH_KEEPKINGNEARCORNER:
            return CornerText(p);
        case SH_SEASNAKE:
            return SeaSnakeText(p);
        default:
            return {};
    }
}

std::string ItemText(std::uint32_t bit, const TSpecialHeuristics& p, std::uint8_t mode) {
    const std::string parameters = ParametersText(bit, p, mode);
    if (bit == SH_KEEPKINGONTHEEDGE && parameters == KingStrictWord) {
        return KingMustNotMoveName;
    }
    if (bit == SH_KEEPKINGONTHEEDGE && parameters == KingAlmostStrictWord) {
        return std::string(KingMustNotMoveName) + "(" + ExceptionsWord + ")";
    }
    return HeuristicName(bit) + (parameters.empty() ? "" : "(" + parameters + ")");
}

}  // namespace

std::string HeuristicListText(std::uint32_t mask, const TSpecialHeuristics& parameters,
                              std::uint8_t oneColourMode) {
    std::string text;
    for (std::uint32_t rest = mask; rest != 0; rest &= rest - 1) {
        text += text.empty() ? "" : ", ";
        text += ItemText(rest & (~rest + 1), parameters, oneColourMode);
    }
    const bool bUnblockOn = (mask & SH_DONTLETFIGUREUNBLOCK) != 0;
    return parameters.bCannotApplyDynamically && !bUnblockOn ? text + CannotApplyWord : text;
}

}  // namespace tarnwick
