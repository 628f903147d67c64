#include "problems/variant.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"
#include "base/language.h"

#include "chess/fields.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

/// Sets the language for the time of a test.
class CLanguage {
  public:
    explicit CLanguage(LanguageId language) { g_language = language; }
    CLanguage(const CLanguage&) = delete;
    CLanguage& operator=(const CLanguage&) = delete;
    ~CLanguage() { g_language = LanguageId::English; }
};

TEST(Variant, ReadsNameMovesAndComments) {
    const TVariant variant =
        TVariant::FromText(L"{a {name} Qa1:a8[threat: b2-b4] Sh7-g5  e7-e8Q[to the end", false);
    EXPECT_EQ(variant.m_name, L"a {name");
    ASSERT_EQ(variant.m_entries.size(), 3U);
    EXPECT_EQ(variant.m_entries[0].m_text, "Qa1:a8");
    EXPECT_EQ(variant.m_entries[0].m_comment, L"threat: b2-b4");
    EXPECT_TRUE(variant.m_entries[2].m_move.SameAs({52, E8, TypeQueen, 0}));
    EXPECT_EQ(variant.ToText(), L"{a {name} Qa1:a8[threat: b2-b4] Sh7-g5 e7-e8Q[to the end]");
}

TEST(Variant, ColoursAlternateSoThatCastlingsAreTheMoversOwn) {
    const TVariant variant = TVariant::FromText(L"{} 0-0 0-0-0 0-0-0 0-0", false);
    ASSERT_EQ(variant.m_entries.size(), 4U);
    EXPECT_TRUE(variant.m_entries[0].m_move.SameAs({E1, G1, 0, 0}));
    EXPECT_TRUE(variant.m_entries[1].m_move.SameAs({E8, C8, 0, 0}));
    EXPECT_TRUE(variant.m_entries[2].m_move.SameAs({E1, C1, 0, 0}));
    EXPECT_TRUE(variant.m_entries[3].m_move.SameAs({E8, G8, 0, 0}));
}

TEST(Variant, WrittenTextIsReadAgainAsTheSame) {
    for (const wchar_t* text :
         {L"", L"{", L"}", L"{x", L"e2-e4", L"{} a2\u2013a4 [spaced comment]b7-b5[]",
          L"{n} ?! a2-a4\n b2-b4",
          L"{za\u017C\u00F3\u0142\u0107} a2-a4[za\u017C\u00F3\u0142\u0107 [[] \tKa1-a2"}) {
        const TVariant variant = TVariant::FromText(text, false);
        EXPECT_EQ(TVariant::FromText(variant.ToText(), false), variant);
        EXPECT_EQ(TVariant::FromText(variant.ToText(), false).ToText(), variant.ToText());
    }
}

TEST(Variant, MainVariantIsShownInTheUsersLanguageAndStoredInEnglish) {
    const CLanguage polish(LanguageId::Polish);
    for (const wchar_t* text : {L"{Main variant} a2-a4", L"{Wariant g\u0142\u00F3wny} a2-a4"}) {
        const TVariant variant = TVariant::FromText(text, true);
        EXPECT_EQ(variant.m_name, L"Wariant g\u0142\u00F3wny");
        EXPECT_EQ(variant.ToText(), L"{Main variant} a2-a4");
    }
    EXPECT_EQ(TVariant::FromText(L"{Main variant} a2-a4", false).m_name, L"Main variant");
    EXPECT_EQ(TVariant::FromText(L"{main variant}", true).ToText(), L"{main variant} ");
}

TEST(Variant, AWordThatIsNoMoveIsRefused) {
    EXPECT_THAT([] { TVariant::FromText(L"{x} a2-a4 1.b2-b4", false); },
                ThrowsMessage<ChessException>("Improper string length"));
    EXPECT_THAT([] { TVariant::FromText(L"{x} i2-a4", false); },
                ThrowsMessage<ChessException>("Improper full description of move"));
}

}  // namespace
}  // namespace tarnwick
