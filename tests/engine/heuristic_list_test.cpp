#include "engine/heuristics/heuristic_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/chess_exception.h"

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_catalogue.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "support/case_name.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

std::string TextOf(const THeuristicSet& set) {
    return HeuristicListText(set.mask, set.parameters, set.oneColourMode);
}

std::string MessageFor(const std::string& list) {
    try {
        return "read: " + TextOf(ParseHeuristicList(list));
    } catch (const ChessException& refused) {
        return refused.what();
    }
}

struct TListCase {
    const char* name;
    std::uint32_t mask;
    void (*arrange)(THeuristicSet& set);
    const char* text;
};

class HeuristicListCase : public ::testing::TestWithParam<TListCase> {};

TEST_P(HeuristicListCase, IsShownSo) {
    THeuristicSet set;
    set.mask = GetParam().mask;
    GetParam().arrange(set);
    EXPECT_EQ(TextOf(set), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, HeuristicListCase,
    ::testing::Values(
        TListCase{"Empty", 0, [](THeuristicSet& set) { set.parameters.CornerDistance = 3; }, ""},
        TListCase{"OrderOfBitsAndUnusedOnes", SH_ZUGZWANG | SH_AREKINGSNEAR | 0x100,
                  [](THeuristicSet&) {}, "SH_AREKINGSNEAR, ..., SH_ZUGZWANG"},
        TListCase{"StrictEdgeThatRelaxes", SH_KEEPKINGONTHEEDGE,
                  [](THeuristicSet& set) {
                      set.parameters.bKingStrict = set.parameters.bRelaxOnAdvancedPawn = true;
                      set.parameters.RelaxFiguresCaptured = 2;
                  },
                  "SH_KEEPKINGONTHEEDGE(ALMOST_STRICT,C2A)"},
        TListCase{"RelaxationOfTheExtendedEdgeOnly",
                  SH_KEEPKINGONTHEEDGE | SH_KEEPKINGWITHINEXTEDGE,
                  [](THeuristicSet& set) {
                      TSpecialHeuristics& p = set.parameters;
                      p.bRelaxOnAdvancedPawn = p.bRelaxExtEdgeOnly = true;
                      p.DeferMoves = 4;
                      p.DeferSecond = 6;
                  },
                  "SH_KEEPKINGONTHEEDGE, SH_KEEPKINGWITHINEXTEDGE(A,D4,M6strict)"},
        TListCase{"OneColour", SH_ONECOLORPLAYPOSSIBLE,
                  [](THeuristicSet& set) { set.oneColourMode = SeparatedBlackBishop; },
                  "SH_ONECOLORPLAYPOSSIBLE(SeparatedBlackBishop)"},
        TListCase{"FollowedMenButTheCapturedOne", SH_DONTLETFIGUREUNBLOCK,
                  [](THeuristicSet& set) {
                      set.parameters.bUnblockEffective = true;
                      set.parameters.bCannotApplyDynamically = true;
                      set.parameters.UnblockFieldCount = 3;
                      set.parameters.UnblockFields = {A1, NoField, H8};
                  },
                  "SH_DONTLETFIGUREUNBLOCK(EFF,A1,H8)"},
        TListCase{"NotDynamically", SH_3MOVESTOMATE,
                  [](THeuristicSet& set) { set.parameters.bCannotApplyDynamically = true; },
                  "SH_3MOVESTOMATE (CannotApplyDLFUDynamically)"},
        TListCase{"KeyDiagonalOfWhichOneFieldIsSet", SH_KEYDIAGONAL | SH_KEYLINE | SH_KEYFIELD,
                  [](THeuristicSet& set) {
                      set.parameters.KeyLine = 2;
                      set.parameters.KeyDiagonalField1 = 9;
                  },
                  "SH_KEYLINE(C), SH_KEYDIAGONAL(B2-), SH_KEYFIELD"},
        TListCase{"SeaSnake", SH_SEASNAKE | SH_DONTLOSEANYFIGURES,
                  [](THeuristicSet& set) {
                      set.parameters.SeaSnakeApproachField = 18;
                      set.parameters.SeaSnakeTurnBackField = H8;
                      set.parameters.SeaSnakeAfterMove = 12;
                      set.parameters.LoseFiguresPawnMode = 2;
                  },
                  "SH_DONTLOSEANYFIGURES(incl.pawnsBeforePromo), SH_SEASNAKE(C3-H8-12)"}),
    CaseName);

/// Draws sets with parameters that a list can show.
class CRandomSets {
  public:
    explicit CRandomSets(std::uint64_t seed) : m_random(seed) {}

    THeuristicSet Next() {
        THeuristicSet set;
        for (const THeuristicEntry& entry : HeuristicCatalogue()) {
            set.mask |= Below(3) == 0 ? entry.bit : 0;
        }
        if ((set.mask & SH_FINDFORCEDMATE) != 0) {
            set.mask &= ~SH_SEASNAKE;
        }
        set.oneColourMode = Small(4);
        DrawKing(set.parameters);
        DrawMen(set.parameters);
        return set;
    }

    int Below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

  private:
    bool Coin() { return Below(2) == 0; }
    std::uint8_t Small(int bound) { return static_cast<std::uint8_t>(Below(bound)); }
    std::uint8_t FieldOrNone() { return Coin() ? Small(64) : NoHeuristicField; }

    void DrawKing(TSpecialHeuristics& p) {
        p.bKingStrict = Coin();
        p.bKingAlmostStrict = Coin();
        p.bExtEdgeStrict = Coin();
        p.bIncludeInnerCorners = Coin();
        p.bSurroundedStrict = Coin();
        p.RelaxFiguresCaptured = Coin() ? Small(256) : std::uint8_t{0};
        p.bRelaxExtEdgeOnly = Coin();
        p.bRelaxOnAdvancedPawn = Coin();
        p.DeferMoves = static_cast<std::uint16_t>(Coin() ? Below(65536) : 0);
        p.DeferSecond = static_cast<std::uint16_t>(Below(65536));
        p.CornerDistance = static_cast<std::int8_t>(Below(255) - 127);
    }

    void DrawMen(TSpecialHeuristics& p) {
        p.LoseFiguresPawnMode = Small(3);
        p.MainDiagonalBlackField = FieldOrNone();
        p.bPromotedStrict = Coin();
        p.UnblockFieldCount = static_cast<std::int8_t>(Below(MaxTrackedMen + 1));
        for (std::size_t i = 0; i < MaxTrackedMen; ++i) {
            p.UnblockFields[i] = static_cast<std::uint8_t>(i * 8 + Small(8));
        }
        p.bUnblockEffective = Coin();
        p.bCannotApplyDynamically = Coin();
        p.KeyField = FieldOrNone();
        p.KeyWhiteFigureField = FieldOrNone();
        p.KeyLine = Coin() ? Small(8) : NoHeuristicField;
        p.KeyDiagonalField1 = FieldOrNone();
        p.KeyDiagonalField2 = FieldOrNone();
        p.SeaSnakeApproachField = FieldOrNone();
        p.SeaSnakeTurnBackField = FieldOrNone();
        p.SeaSnakeAfterMove = static_cast<std::uint16_t>(Coin() ? Below(65536) : 0);
        p.ForcedLevel = static_cast<TForcedLevel>(Below(8));
        p.bForcedInitialPass = Coin();
        p.bForcedCustom = Coin();
    }

    std::mt19937_64 m_random;
};

/// Capitals, blanks around commas: a list as a hurried user types it.
std::string Careless(std::string text) {
    std::string typed = "  ";
    for (const char c : text) {
        typed += c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
        typed += c == ',' || c == ')' ? " \t" : "";
    }
    return typed;
}

TEST(HeuristicList, ReadsWhatItShows) {
    CRandomSets sets(slow::TestSeed());
    for (int i = 0; i < 3000; ++i) {
        const THeuristicSet set = sets.Next();
        const std::string text = TextOf(set);
        const THeuristicSet read = ParseHeuristicList(text);
        ASSERT_EQ(read.mask, set.mask) << text;
        ASSERT_EQ(TextOf(read), text) << "seed " << slow::TestSeed();
        ASSERT_EQ(TextOf(ParseHeuristicList(Careless(text))), text);
    }
}

TEST(HeuristicList, SetsTheParametersThatItNames) {
    const THeuristicSet set = ParseHeuristicList(
        "sh_dontletkingmove(excptns), SH_KEEPKINGWITHINEXTEDGE(C2,D4,M6,incl.corner),"
        "SH_DONTLETFIGUREUNBLOCK(b8,H1),SH_FINDFORCEDMATE(#2-Preliminary),SH_ZUGZWANG(7)");
    const TSpecialHeuristics& p = set.parameters;
    EXPECT_EQ(set.mask, SH_KEEPKINGONTHEEDGE | SH_KEEPKINGWITHINEXTEDGE | SH_DONTLETFIGUREUNBLOCK |
                            SH_FINDFORCEDMATE | SH_ZUGZWANG);
    EXPECT_TRUE(p.bKingStrict && p.bKingAlmostStrict && p.bRelaxExtEdgeOnly);
    EXPECT_FALSE(p.bExtEdgeStrict) << "on by default, but the list does not say so";
    EXPECT_TRUE(p.bIncludeInnerCorners);
    EXPECT_EQ(p.RelaxFiguresCaptured, 2);
    EXPECT_EQ(p.DeferMoves, 4);
    EXPECT_EQ(p.DeferSecond, 6);
    ASSERT_EQ(p.UnblockFieldCount, 2);
    EXPECT_EQ(p.UnblockFields[0], B8);
    EXPECT_EQ(p.UnblockInitialFields[1], H1);
    EXPECT_TRUE(p.bUnblockFixedByUser);
    EXPECT_EQ(p.ForcedLevel, TForcedLevel::Threat2);
    EXPECT_EQ(p.ForcedStartLevel, TForcedLevel::Threat2);
    EXPECT_EQ(p.ForcedInitialSet, set.mask) << "what the passes behind the initial one have";
    EXPECT_EQ(p.ZugzwangReturnMoves, 7);
}

TEST(HeuristicList, TellsWhatIsWrongAndWhatIsAllowed) {
    struct TRefused {
        const char* list;
        const char* culprit;
        const char* allowed;
    };
    const TRefused refused[] = {
        {"SH_AREKINGSNEAR, SH_NONSENSE", "SH_NONSENSE", "SH_KEEPKINGNEARCORNER"},
        {"SH_AREKINGSNEAR,", "Unknown heuristic: ", "SH_SEASNAKE"},
        {"...", "...", "SH_SEASNAKE"},
        {"SH_KEYLINE)", "SH_KEYLINE)", "SH_KEYLINE"},
        {"SH_KEYLINE(A)B", "SH_KEYLINE(A)B", "bracket"},
        {"SH_KEYLINE(A), sh_keyline", "sh_keyline", "twice"},
        {"SH_KEEPKINGONTHEEDGE,SH_DONTLETKINGMOVE", "SH_DONTLETKINGMOVE", "twice"},
        {"SH_KEYLINE(I)", "SH_KEYLINE(I)", "[A-H]"},
        {"SH_KEYFIELD(A9)", "SH_KEYFIELD(A9)", "[A1-H8]"},
        {"SH_KEYDIAGONAL(A1)", "SH_KEYDIAGONAL(A1)", "[A1-H8]-[A1-H8]"},
        {"SH_KEEPKINGNEARCORNER", "SH_KEEPKINGNEARCORNER()", "127M"},
        {"SH_KEEPKINGNEARCORNER(128S)", "(128S)", "127M"},
        {"SH_KEEPKINGNEARCORNER(99999999999999999999S)", "(99999999999999999999S)", "127M"},
        {"SH_KEEPKINGWITHINEXTEDGE(C256)", "(C256)", "C0-255"},
        {"SH_DONTLETFIGUREUNBLOCK(A1,B1,A1)", "(A1,B1,A1)", "(8)"},
        {"SH_DONTLETFIGUREUNBLOCK(A1,B1,C1,D1,E1,F1,G1,H1,A2)", "A2)", "(8)"},
        {"SH_AREKINGSNEAR(strict)", "SH_AREKINGSNEAR(strict)", "Allowed: none"},
        {"SH_FINDFORCEDMATE(#6)", "(#6)", "#2+"},
        {"SH_FINDFORCEDMATE, SH_SEASNAKE", "FindForcedMate", "SeaSnake"}};
    for (const TRefused& refusal : refused) {
        EXPECT_THAT(MessageFor(refusal.list),
                    AllOf(::testing::Not(::testing::StartsWith("read: ")),
                          HasSubstr(refusal.culprit), HasSubstr(refusal.allowed)));
    }
}

TEST(HeuristicList, HostileTextsAreRefusedOrRead) {
    EXPECT_EQ(ParseHeuristicList(" \t\n").mask, 0U);
    EXPECT_LT(MessageFor(std::string(1 << 20, 'S')).size(), 2000U);
    EXPECT_LT(MessageFor("SH_KEYLINE(" + std::string(1 << 20, '(')).size(), 2000U);
    EXPECT_THAT(MessageFor(std::string("SH_KEYLINE\0\xFF", 12)), HasSubstr("SH_KEYLINE"));

    CRandomSets sets(slow::TestSeed());
    const std::string signs = std::string("(),-#1AC/ \0\xFF", 12);
    for (int i = 0; i < 3000; ++i) {
        std::string text = TextOf(sets.Next());
        for (int change = sets.Below(3); change >= 0 && !text.empty(); --change) {
            const auto at = static_cast<std::size_t>(sets.Below(static_cast<int>(text.size())));
            const auto sign = static_cast<std::size_t>(sets.Below(static_cast<int>(signs.size())));
            text = sets.Below(2) == 0 ? text.erase(at, 1 + sign) : text.insert(at, 1, signs[sign]);
        }
        const std::string answer = MessageFor(text);
        if (answer.starts_with("read: ")) {
            ASSERT_EQ(MessageFor(answer.substr(6)), answer) << text;
        }
    }
}

THeuristicSet Applied(THeuristicSet set, const std::string& settings) {
    TProblemList list;
    ReadProblemText("1 #9 " + settings + " {White: Ke1 Black: Ke8}", "test.cp", list,
                    {.heuristicBitOfName = HeuristicBitOfName});
    ApplyHeuristicSettings(set, *list.Find(1));
    return set;
}

TEST(HeuristicSettings, OfAProblemGoOverWhatTheAnalysisChose) {
    const THeuristicSet chosen = ParseHeuristicList(
        "SH_KEEPKINGONTHEEDGE(C2), SH_DONTLETPROMOTEDQUEENMOVE(strict), SH_KEEPKINGNEARCORNER(3S)");
    struct TSetting {
        const char* settings;
        const char* list;
    };
    const TSetting settings[] = {
        {"",
         "SH_KEEPKINGONTHEEDGE(C2), SH_DONTLETPROMOTEDQUEENMOVE(strict), "
         "SH_KEEPKINGNEARCORNER(3S)"},
        {"SH_KEEPKINGONTHEEDGE off SH_KEEPKINGNEARCORNER(2M) SH_SAVEQUEEN/ROOK()",
         "SH_DONTLETPROMOTEDQUEENMOVE(strict), SH_SAVEQUEEN/ROOK, SH_KEEPKINGNEARCORNER(2M)"},
        {"SH_DONTLETPROMOTEDQUEENMOVE() SH_KEEPKINGONTHEEDGE(ALMOST_STRICT) "
         "SH_KEEPKINGNEARCORNER OFF",
         "SH_DONTLETKINGMOVE(excptns), SH_DONTLETPROMOTEDQUEENMOVE(strict)"},
        {"SH_KEEPKINGONTHEEDGE OFF SH_DONTLETPROMOTEDQUEENMOVE OFF "
         "SH_KEEPKINGNEARCORNER OFF SH_DONTLOSEANYFIGURES ( incl.pawnsBeforePromo ) "
         "SH_FINDFORCEDMATE(#1+ -Custom) SH_KEEPKINGWITHINEXTEDGE(A,D4,M6 incl.corner)",
         "SH_KEEPKINGWITHINEXTEDGE(A,D4,M6incl.corner), SH_FINDFORCEDMATE(#1+-Custom), "
         "SH_DONTLOSEANYFIGURES(incl.pawnsBeforePromo)"},
        {"SH_KEEPKINGNEARCORNER(1S) SH_KEEPKINGNEARCORNER OFF SH_DONTLETPROMOTEDQUEENMOVE OFF",
         "SH_KEEPKINGONTHEEDGE(C2)"},
        {"SH_KEEPKINGNEARCORNER OFF SH_KEEPKINGNEARCORNER(1S) SH_KEEPKINGONTHEEDGE OFF "
         "SH_DONTLETPROMOTEDQUEENMOVE OFF",
         "SH_KEEPKINGNEARCORNER(1S)"}};
    for (const TSetting& setting : settings) {
        EXPECT_EQ(TextOf(Applied(chosen, setting.settings)), setting.list) << setting.settings;
    }
}

TEST(HeuristicSettings, PutOutWhatTheyExclude) {
    const THeuristicSet snake = ParseHeuristicList("SH_SEASNAKE(C3-H8)");
    EXPECT_EQ(TextOf(Applied(snake, "SH_FINDFORCEDMATE(#2)")), "SH_FINDFORCEDMATE(#2)");
    const THeuristicSet forced = ParseHeuristicList("SH_FINDFORCEDMATE(#2)");
    EXPECT_EQ(TextOf(Applied(forced, "SH_SEASNAKE(C3-H8)")), "SH_SEASNAKE(C3-H8)");
    EXPECT_THROW(Applied({}, "SH_SEASNAKE(C3-H8) SH_FINDFORCEDMATE()"), ChessException);
}

TEST(HeuristicSettings, ThatAreWrongChangeNothing) {
    TProblemList list;
    ReadProblemText("1 #9 SH_KEYLINE(c) SH_KEEPKINGNEARCORNER(x) {White: Ke1 Black: Ke8}",
                    "test.cp", list, {.heuristicBitOfName = HeuristicBitOfName});
    THeuristicSet set = ParseHeuristicList("SH_AREKINGSNEAR");
    EXPECT_THROW(ApplyHeuristicSettings(set, *list.Find(1)), ChessException);
    EXPECT_EQ(TextOf(set), "SH_AREKINGSNEAR");
}

}  // namespace
}  // namespace tarnwick
