#include "app/document/variants.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"
#include "base/language.h"

#include "app/document/played_line.h"
#include "app/document/problem_state.h"
#include "chess/checked_move.h"
#include "document_support.h"
#include "problems/cp_file_reader.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;

class Variants : public ::testing::Test {
  protected:
    Variants() {
        ReadProblemText(ProblemOf(1, 5, PlacementA), "", m_list);
        m_line.Start(Problem());
    }
    ~Variants() override { g_language = LanguageId::English; }

    TChessProblem& Problem() { return *m_list.Find(1); }

    void Play(const std::vector<const char*>& texts) {
        for (const char* const text : texts) {
            TMove move;
            ParseCheckedMove(m_line.Board(), move, text);
            ASSERT_EQ(m_line.Play(move), TMoveRefusal::None);
        }
    }

    std::vector<std::wstring> Texts() {
        std::vector<std::wstring> texts;
        for (const auto& [key, variant] : Problem().m_variants) {
            EXPECT_EQ(key, variant.ToText()) << "the key is the text";
            texts.push_back(key);
        }
        return texts;
    }

    TProblemList m_list;
    CPlayedLine m_line;
};

TEST_F(Variants, SavingTakesTheLineUpToTheCursorAndKeepsComments) {
    Play({"Ra1-a2", "Kh8-h7", "Ra2-a3"});
    m_line.Back();
    SaveMainVariant(Problem(), m_line);
    SetMoveComment(Problem(), m_line.Moves(1), L" a\nquiet key ");
    m_line.Forward();
    SaveVariant(Problem(), L"Main variant", m_line);
    SaveVariant(Problem(), L"twin", m_line);
    EXPECT_THAT(Texts(), ElementsAre(L"{Main variant} Ra1-a2[a quiet key] Kh8-h7 Ra2-a3",
                                     L"{twin} Ra1-a2[a quiet key] Kh8-h7 Ra2-a3"));
    m_line.GoTo(0);
    EXPECT_THROW(SaveVariant(Problem(), L"empty", m_line), ChessException);
}

TEST_F(Variants, NamesAreCheckedAndTheMainVariantHasOneInEveryLanguage) {
    Play({"Ra1-a2"});
    SaveMainVariant(Problem(), m_line);
    g_language = LanguageId::Polish;
    TranslateMainVariant(Problem());
    EXPECT_EQ(Problem().m_variants.begin()->second.m_name, L"Wariant główny");
    Play({"Kh8-h7"});
    SaveVariant(Problem(), L"Main variant", m_line);
    EXPECT_THAT(Texts(), ElementsAre(L"{Main variant} Ra1-a2 Kh8-h7")) << "the old one is replaced";

    SaveVariant(Problem(), L"try", m_line);
    const std::wstring key = *FindVariant(Problem(), L"try");
    EXPECT_THROW(RenameVariant(Problem(), key, L"Головний варіант"), ChessException);
    for (const wchar_t* const bad : {L"", L" \n", L"a}b", L"{x"}) {
        EXPECT_THROW(RenameVariant(Problem(), key, bad), ChessException);
    }
    const std::wstring renamed = RenameVariant(Problem(), key, L" defence\n1 ");
    EXPECT_EQ(Problem().m_variants.at(renamed).m_name, L"defence 1");
    EXPECT_TRUE(RemoveVariant(Problem(), renamed));
    EXPECT_FALSE(RemoveVariant(Problem(), renamed));
}

TEST_F(Variants, CommentsNeedAVariantAndNoBracket) {
    Play({"Ra1-a2", "Kh8-h7"});
    EXPECT_THROW(SetMoveComment(Problem(), m_line.Moves(), L"nowhere to go"), ChessException);
    SaveVariant(Problem(), L"a", m_line);
    SaveVariant(Problem(), L"b", m_line);
    EXPECT_THROW(SetMoveComment(Problem(), m_line.Moves(), L"[see] there"), ChessException);
    SetMoveComment(Problem(), m_line.Moves(), L"one");
    SetMoveComment(Problem(), m_line.Moves(), L"two");
    EXPECT_THAT(Texts(), ElementsAre(L"{a} Ra1-a2 Kh8-h7[two]", L"{b} Ra1-a2 Kh8-h7"));
    SaveVariant(Problem(), L"c", m_line);
    SetMoveComment(Problem(), m_line.Moves(), L"");
    EXPECT_THAT(Texts(),
                ElementsAre(L"{a} Ra1-a2 Kh8-h7", L"{b} Ra1-a2 Kh8-h7", L"{c} Ra1-a2 Kh8-h7"));
}

TEST_F(Variants, ShowingAndAnimatingStopBeforeAnIllegalMove) {
    const TVariant variant = TVariant::FromText(L"{x} Ra1-a2[first] Kh8-h7 Ra2-b3 Kh7-h8", false);
    Play({"Kf6-f7"});
    EXPECT_THROW(ShowVariant(variant, m_line), ChessException);
    EXPECT_EQ(m_line.Length(), 2);
    const std::vector<TAnimationStep> steps = AnimationOf(variant, m_line, 700);
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[1].comment, L"first");
    EXPECT_EQ(steps[2].nAfterMs, 1400);
    EXPECT_TRUE(m_line.UndoCut()) << "the line of before comes back";
    EXPECT_EQ(m_line.MoveText(1), "Kf6-f7");
}

}  // namespace
}  // namespace tarnwick
