#include "engine/heuristics/heuristic_parameters.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_messages.h"
#include "engine/heuristics/heuristic_words.h"

namespace tarnwick {
namespace {

/// Takes words, numbers and fields from the front of a text. What is not there is not taken.
class CWords {
  public:
    explicit CWords(std::string_view text) : m_rest(text) {}

    bool AtEnd() const { return m_rest.empty(); }

    bool Take(std::string_view word) {
        const std::string_view front = m_rest.substr(0, word.size());
        if (!std::ranges::equal(front, word, {}, ToUpper, ToUpper)) {
            return false;
        }
        m_rest.remove_prefix(word.size());
        return true;
    }

    /// A number from 0 to most.
    template <typename TNumber>
    bool TakeNumber(TNumber& number, unsigned most) {
        unsigned value = 0;
        const char* const pBegin = m_rest.data();
        const auto [pEnd, error] = std::from_chars(pBegin, pBegin + m_rest.size(), value);
        if (error != std::errc() || value > most) {
            return false;
        }
        m_rest.remove_prefix(static_cast<std::size_t>(pEnd - pBegin));
        number = static_cast<TNumber>(value);
        return true;
    }

    bool TakeFile(std::uint8_t& file) {
        if (m_rest.empty() || ToUpper(m_rest[0]) < 'A' || ToUpper(m_rest[0]) > 'H') {
            return false;
        }
        file = static_cast<std::uint8_t>(ToUpper(m_rest[0]) - 'A');
        m_rest.remove_prefix(1);
        return true;
    }

    bool TakeField(std::uint8_t& field) {
        const bool bHasRank = m_rest.size() >= 2 && m_rest[1] >= '1' && m_rest[1] <= '8';
        std::uint8_t file = 0;
        if (!bHasRank || !TakeFile(file)) {
            return false;
        }
        field = FieldAt(file, m_rest[0] - '1');
        m_rest.remove_prefix(1);
        return true;
    }

    /// A field, or nothing and the marker of no field.
    void TakeFieldOrNone(std::uint8_t& field) {
        if (!TakeField(field)) {
            field = NoHeuristicField;
        }
    }

  private:
    std::string_view m_rest;
};

// ---- Readers. False when what comes first is none of the words; what is left over is wrong, too.

bool ReadNothing(CWords&, THeuristicSet&) {
    return true;
}

void ResetRelaxation(TSpecialHeuristics& p) {
    p.RelaxFiguresCaptured = 0;
    p.bRelaxOnAdvancedPawn = false;
    p.DeferMoves = 0;
    p.DeferSecond = 255;
    p.bIncludeInnerCorners = false;
    p.bRelaxExtEdgeOnly = false;
}

/// One word of the relaxation of the edge heuristics.
bool ReadRelaxation(CWords& in, TSpecialHeuristics& p) {
    if (in.Take(InnerCornersWord)) {
        return p.bIncludeInnerCorners = true;
    }
    if (in.Take("A")) {
        return p.bRelaxOnAdvancedPawn = true;
    }
    if (in.Take("C")) {
        return in.TakeNumber(p.RelaxFiguresCaptured, 255);
    }
    if (in.Take("D")) {
        return in.TakeNumber(p.DeferMoves, 65535);
    }
    return in.Take("M") && in.TakeNumber(p.DeferSecond, 65535);
}

bool ReadEdge(CWords& in, THeuristicSet& set) {
    TSpecialHeuristics& p = set.parameters;
    p.bKingStrict = false;
    p.bKingAlmostStrict = true;
    bool bRelaxes = false;
    while (!in.AtEnd()) {
        if (in.Take(KingAlmostStrictWord)) {
            p.bKingStrict = true;
        } else if (in.Take(KingStrictWord)) {
            p.bKingStrict = true;
            p.bKingAlmostStrict = false;
        } else if (!in.Take(",")) {
            if (!ReadRelaxation(in, p)) {
                return false;
            }
            bRelaxes = true;
        }
    }
    // Both edge heuristics share one relaxation; if only the other one shows it, it is for that alone.
    p.bRelaxExtEdgeOnly = !bRelaxes && (set.mask & SH_KEEPKINGWITHINEXTEDGE) != 0;
    return true;
}

bool ReadExtEdge(CWords& in, THeuristicSet& set) {
    set.parameters.bExtEdgeStrict = false;
    while (!in.AtEnd()) {
        if (in.Take(StrictWord)) {
            set.parameters.bExtEdgeStrict = true;
        } else if (!in.Take(",") && !ReadRelaxation(in, set.parameters)) {
            return false;
        }
    }
    return true;
}

bool ReadOneColour(CWords& in, THeuristicSet& set) {
    set.oneColourMode = 0;
    for (std::size_t i = 0; i < std::size(OneColourWords); ++i) {
        if (in.Take(OneColourWords[i])) {
            set.oneColourMode = static_cast<std::uint8_t>(i + 1);
        }
    }
    return true;
}

bool ReadMainDiagonal(CWords& in, THeuristicSet& set) {
    in.TakeFieldOrNone(set.parameters.MainDiagonalBlackField);
    return true;
}

bool ReadUnblock(CWords& in, THeuristicSet& set) {
    TSpecialHeuristics& p = set.parameters;
    p.bUnblockEffective = in.Take(EffectiveWord);
    TFieldSet seen = 0;
    std::size_t count = 0;
    while (in.Take(",") || !in.AtEnd()) {
        std::uint8_t field = 0;
        if (count == MaxTrackedMen || !in.TakeField(field) || (seen & FieldBit(field)) != 0) {
            return false;
        }
        seen |= FieldBit(field);
        p.UnblockFields[count] = p.UnblockInitialFields[count] = field;
        ++count;
    }
    p.UnblockFieldCount = static_cast<std::int8_t>(count);
    p.bUnblockFixedByUser = count > 0;
    return true;
}

bool ReadForcedMate(CWords& in, THeuristicSet& set) {
    TSpecialHeuristics& p = set.parameters;
    p.ForcedLevel = p.ForcedStartLevel = TForcedLevel::CheckOnly;
    // From the end, since "#1+" begins as "#1".
    for (std::size_t i = std::size(ForcedLevelWords); i-- > 0;) {
        if (in.Take(ForcedLevelWords[i])) {
            p.ForcedLevel = p.ForcedStartLevel = static_cast<TForcedLevel>(i);
            break;
        }
    }
    p.bForcedInitialPass = in.Take(PreliminaryWord);
    if (p.bForcedInitialPass) {
        p.ForcedInitialSet = set.mask;
        p.ForcedWithOthers = TForcedWithOthers::PartiallyWithEdgePass;
    }
    p.bForcedCustom = in.Take(CustomWord);
    return true;
}

bool ReadPromoted(CWords& in, THeuristicSet& set) {
    // One flag for both heuristics.
    set.parameters.bPromotedStrict |= in.Take(StrictWord);
    return true;
}

bool ReadSurrounded(CWords& in, THeuristicSet& set) {
    set.parameters.bSurroundedStrict = in.Take(StrictWord);
    return true;
}

bool ReadKeyLine(CWords& in, THeuristicSet& set) {
    set.parameters.KeyLine = NoHeuristicField;
    return in.AtEnd() || in.TakeFile(set.parameters.KeyLine);
}

/// Two fields, each of which may be missing, with "-" between; or nothing at all.
bool ReadTwoFields(CWords& in, std::uint8_t& first, std::uint8_t& second) {
    const bool bNothing = in.AtEnd();
    in.TakeFieldOrNone(first);
    const bool bTwo = in.Take("-");
    in.TakeFieldOrNone(second);
    return bTwo || bNothing;
}

bool ReadKeyDiagonal(CWords& in, THeuristicSet& set) {
    return ReadTwoFields(in, set.parameters.KeyDiagonalField1, set.parameters.KeyDiagonalField2);
}

bool ReadKeyField(CWords& in, THeuristicSet& set) {
    in.TakeFieldOrNone(set.parameters.KeyField);
    return true;
}

bool ReadKeyWhiteFigure(CWords& in, THeuristicSet& set) {
    in.TakeFieldOrNone(set.parameters.KeyWhiteFigureField);
    return true;
}

bool ReadLoseFigures(CWords& in, THeuristicSet& set) {
    const bool bPromotable = in.Take(PromotablePawnsWord);
    const bool bPawns = !bPromotable && in.Take(PawnsWord);
    set.parameters.LoseFiguresPawnMode = bPromotable ? 2 : bPawns ? 1 : 0;
    return true;
}

bool ReadCorner(CWords& in, THeuristicSet& set) {
    int distance = 0;
    if (!in.TakeNumber(distance, 127)) {
        return false;
    }
    const bool bMoves = in.Take("M");
    set.parameters.CornerDistance = static_cast<std::int8_t>(bMoves ? -distance : distance);
    return bMoves || in.Take("S");
}

bool ReadSeaSnake(CWords& in, THeuristicSet& set) {
    TSpecialHeuristics& p = set.parameters;
    p.bSeaSnakeOn = true;
    p.SeaSnakeAfterMove = 0;
    return ReadTwoFields(in, p.SeaSnakeApproachField, p.SeaSnakeTurnBackField) &&
           (!in.Take("-") || in.TakeNumber(p.SeaSnakeAfterMove, 65535));
}

bool ReadZugzwang(CWords& in, THeuristicSet& set) {
    set.parameters.ZugzwangReturnMoves = 0;
    return in.AtEnd() || in.TakeNumber(set.parameters.ZugzwangReturnMoves, 65535);
}

// ---- The table

struct TParameterKind {
    std::uint32_t bits;
    bool (*pRead)(CWords& in, THeuristicSet& set);
    const char* pAllowed;  ///< In signs that need no translation.
};

constexpr TParameterKind Kinds[] = {
    {SH_KEEPKINGONTHEEDGE, ReadEdge,
     "[STRICT | ALMOST_STRICT][,C0-255][A][,D0-65535][,M0-65535][incl.corner]"},
    {SH_KEEPKINGWITHINEXTEDGE, ReadExtEdge,
     "[C0-255][A][,D0-65535][,M0-65535][incl.corner][strict]"},
    {SH_ONECOLORPLAYPOSSIBLE, ReadOneColour,
     "[WhiteFieldsOnly | BlackFieldsOnly | SeparatedBlackBishop]"},
    {SH_DONTLEAVEMAINDIAGONAL, ReadMainDiagonal, "[A1-H8]"},
    {SH_DONTLETFIGUREUNBLOCK, ReadUnblock, "[EFF][,A1-H8][,A1-H8]... (8)"},
    {SH_FINDFORCEDMATE, ReadForcedMate,
     "[CheckOnly | #1 | #1+ | #2 | #2+ | #3 | #4 | #5][-Preliminary][-Custom]"},
    {PromotedHeuristics, ReadPromoted, "[strict]"},
    {SH_KEYLINE, ReadKeyLine, "[A-H]"},
    {SH_KEYDIAGONAL, ReadKeyDiagonal, "[A1-H8]-[A1-H8]"},
    {SH_DONTLOSEANYFIGURES, ReadLoseFigures, "[incl.pawns | incl.pawnsBeforePromo]"},
    {SH_KEYFIELD, ReadKeyField, "[A1-H8]"},
    {SH_ASSERTBLACKKINGSURROUNDED, ReadSurrounded, "[strict]"},
    {SH_KEYWHITEFIGURE, ReadKeyWhiteFigure, "[A1-H8]"},
    {SH_KEEPKINGNEARCORNER, ReadCorner, "0-127S | 0-127M"},
    {SH_SEASNAKE, ReadSeaSnake, "[A1-H8]-[A1-H8][-0-65535]"},
    {SH_ZUGZWANG, ReadZugzwang, "[0-65535]"},
};

constexpr TParameterKind NoParameters = {0, ReadNothing, nullptr};

const TParameterKind& KindOf(std::uint32_t bit) {
    for (const TParameterKind& kind : Kinds) {
        if ((kind.bits & bit) != 0) {
            return kind;
        }
    }
    return NoParameters;
}

}  // namespace

void ResetSharedParameters(std::uint32_t bits, TSpecialHeuristics& parameters) {
    if ((bits & EdgeHeuristics) != 0) {
        ResetRelaxation(parameters);
    }
    if ((bits & PromotedHeuristics) != 0) {
        parameters.bPromotedStrict = false;
    }
}

bool ReadHeuristicParameters(std::uint32_t bit, std::string_view text, THeuristicSet& set) {
    CWords in(text);
    return KindOf(bit).pRead(in, set) && in.AtEnd();
}

std::string AllowedParameters(std::uint32_t bit) {
    const char* const pAllowed = KindOf(bit).pAllowed;
    return pAllowed != nullptr ? pAllowed : UserText(NoParametersText);
}

}  // namespace tarnwick
