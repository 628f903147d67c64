#include "app/setup/position_setup.h"

#include <gtest/gtest.h>

#include "app/document/document.h"
#include "app/document/played_line.h"
#include "app/document/variants.h"
#include "app/setup/setup_hand.h"
#include "app/setup/setup_result.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

TSetupFields Fields(std::initializer_list<std::pair<int, TFigureCode>> men) {
    TSetupFields fields{};
    for (const auto& [field, man] : men) {
        fields[static_cast<std::size_t>(field)] = man;
    }
    return fields;
}

constexpr int D5 = 35;
constexpr int D7 = 51;
constexpr int E4 = 28;

TPositionFault FaultOf(std::initializer_list<std::pair<int, TFigureCode>> men) {
    return AllFaults(FaultsOfPosition(Fields(men)));
}

TEST(PositionFaults, NameEveryManToChange) {
    EXPECT_EQ(FaultOf({{E1, WhiteKing}, {E8, BlackKing}}).text, "");
    const TPositionFault empty = FaultOf({});
    EXPECT_TRUE(empty.text.starts_with("Illegal number of kings. The white king is missing"));
    EXPECT_NE(empty.text.find("The black king is missing"), std::string::npos);
    EXPECT_EQ(empty.fields, 0U);

    const TPositionFault three = FaultOf(
        {{E1, WhiteKing}, {A1, WhiteKing}, {E8, BlackKing}, {A8, WhitePawn}, {B1, BlackPawn}});
    EXPECT_NE(three.text.find("White kings stand on a1, e1"), std::string::npos) << three.text;
    EXPECT_NE(three.text.find("Move or remove: b1, a8"), std::string::npos) << three.text;
    EXPECT_EQ(three.fields, FieldBit(A1) | FieldBit(E1) | FieldBit(B1) | FieldBit(A8));
}

TEST(PositionFaults, NameTheMenThatGiveCheck) {
    // The bishop on d7 alone attacks: the rook behind the pawn on e4 does not.
    const TPositionFault check = FaultOf(
        {{A1, WhiteKing}, {E8, BlackKing}, {D7, WhiteBishop}, {E4, WhitePawn}, {E1, WhiteRook}});
    EXPECT_TRUE(check.text.starts_with(
        "Invalid position: Black king cannot be checked in starting position."));
    EXPECT_NE(check.text.find("e8 is attacked from d7."), std::string::npos) << check.text;
    EXPECT_EQ(check.fields, FieldBit(E8) | FieldBit(D7));

    const TPositionFault neighbours = FaultOf({{D7, WhiteKing}, {E8, BlackKing}});
    EXPECT_TRUE(neighbours.text.starts_with("Both kings attacked.")) << neighbours.text;
    EXPECT_EQ(neighbours.fields, FieldBit(D7) | FieldBit(E8));

    EXPECT_EQ(FaultOf({{A1, WhiteKing}, {E8, BlackKing}, {A8, BlackRook}}).text, "")
        << "White may stand in check";
}

TEST(PositionSetup, UndoesEveryStepAndSettlesDoubts) {
    TChessProblem problem;
    SetPlies(problem, PliesOfStipulation(TProblemType::DirectMate, 2));
    problem.m_pBoard->m_fields[E1] = WhiteKing;
    problem.m_pBoard->m_fields[E4] = WhitePawn | MarkBit;
    CPositionSetup setup;
    setup.Start(problem);
    EXPECT_EQ(setup.ManOn(E4), WhitePawn);
    EXPECT_FALSE(setup.IsChanged());
    const TSetupFields first = setup.Fields();

    EXPECT_TRUE(setup.PutAll(Fields({{A1, WhiteKing}, {A8, BlackKing}, {D5, WhiteRook}}),
                             FieldBit(D5) | FieldBit(E4)));
    EXPECT_TRUE(setup.Confirm(E4));
    EXPECT_FALSE(setup.Confirm(E4));
    EXPECT_TRUE(setup.Move(D5, D7));
    EXPECT_EQ(setup.Doubtful(), 0U);
    EXPECT_TRUE(setup.ChangeMoves(-10));
    EXPECT_EQ(setup.Moves(), 1);
    EXPECT_FALSE(setup.ChangeMoves(-1));
    EXPECT_TRUE(setup.ChangeMoves(1000));
    EXPECT_EQ(setup.Moves(), CPositionSetup::MaxMoves);
    int nSteps = 0;
    while (setup.Undo()) {
        ++nSteps;
    }
    EXPECT_EQ(nSteps, 5);
    EXPECT_EQ(setup.Fields(), first);
    EXPECT_FALSE(setup.IsChanged());
    while (setup.Redo()) {
    }
    EXPECT_EQ(setup.ManOn(D7), WhiteRook);
    EXPECT_EQ(setup.Moves(), CPositionSetup::MaxMoves);
}

class SetupHand : public ::testing::Test {
  protected:
    SetupHand() { m_setup.PutAll(Fields({{E1, WhiteKing}, {D5, BlackRook}}), 0); }

    CPositionSetup m_setup;
    CSetupHand m_hand{m_setup};
};

TEST_F(SetupHand, DragsFromThePaletteOverTheBoardAndOff) {
    m_hand.PressPalette(WhiteQueen);
    EXPECT_EQ(m_hand.Held(), WhiteQueen);
    m_hand.Release(D7, false);
    EXPECT_EQ(m_setup.ManOn(D7), WhiteQueen);
    EXPECT_FALSE(m_hand.Stamp());

    m_hand.PressBoard(D5, false);
    EXPECT_EQ(m_hand.Held(), BlackRook);
    m_hand.Release(E4, false);
    EXPECT_EQ(m_setup.ManOn(E4), BlackRook);
    EXPECT_EQ(m_setup.ManOn(D5), EmptyField);

    m_hand.PressBoard(E4, false);
    m_hand.Release(NoFieldUnderMouse, false);
    EXPECT_EQ(m_setup.ManOn(E4), EmptyField);
    m_hand.PressBoard(E4, false);
    m_hand.Release(NoFieldUnderMouse, false);  // an empty field: nothing to carry off
    m_hand.PressBoard(D7, true);
    EXPECT_EQ(m_setup.ManOn(D7), EmptyField);
    m_hand.Release(D7, false);  // of the right button
    EXPECT_EQ(m_setup.Fields(), Fields({{E1, WhiteKing}}));
}

TEST_F(SetupHand, StampsUntilTheManIsClickedAgain) {
    const auto click = [this](int field) {
        m_hand.PressBoard(field, false);
        m_hand.Release(field, false);
    };
    const auto clickPalette = [this](TFigureCode man) {
        m_hand.PressPalette(man);
        m_hand.Release(NoFieldUnderMouse, true);
    };
    clickPalette(BlackPawn);
    click(D7);
    click(E4);
    m_hand.PressBoard(D7, false);  // a man is moved also with a stamp in the hand
    m_hand.Release(A1, false);
    EXPECT_EQ(m_setup.Fields(),
              Fields({{E1, WhiteKing}, {D5, BlackRook}, {E4, BlackPawn}, {A1, BlackPawn}}));
    clickPalette(BlackPawn);
    click(D7);
    EXPECT_EQ(m_setup.ManOn(D7), EmptyField);
    clickPalette(EmptyField);
    click(E4);
    EXPECT_EQ(m_setup.ManOn(E4), EmptyField);
}

TEST(SetupKeys, KnowTheLettersOfThreeLanguages) {
    EXPECT_EQ(ManOfLetter(U'Q'), WhiteQueen);
    EXPECT_EQ(ManOfLetter(U'h'), BlackQueen);
    EXPECT_EQ(ManOfLetter(U'W'), WhiteRook);
    EXPECT_EQ(ManOfLetter(U'с'), BlackBishop);  // Cyrillic
    EXPECT_EQ(ManOfLetter(U'К'), WhiteKnight);  // Cyrillic
    EXPECT_EQ(ManOfLetter(U'K'), WhiteKing);
    for (const char32_t other : {U'x', U'1', U'é', U'\U0001F600'}) {
        EXPECT_EQ(ManOfLetter(other), EmptyField);
    }
}

/// Kings, a rook and a variant that it plays.
std::unique_ptr<TChessProblem> ProblemWithVariants() {
    auto pProblem = std::make_unique<TChessProblem>();
    pProblem->m_id = 7;
    SetPlies(*pProblem, PliesOfStipulation(TProblemType::DirectMate, 3));
    for (const auto& [field, man] :
         {std::pair(E1, WhiteKing), std::pair(H1, WhiteRook), std::pair(E8, BlackKing)}) {
        pProblem->m_pBoard->m_fields[field] = man;
    }
    PreparePosition(*pProblem->m_pBoard, true);
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    pProblem->m_answers = {TMove{.from = H1, .to = 55}};
    pProblem->m_shOptions.Set(TProblemOption::HasAnswers);
    CPlayedLine line;
    line.Start(*pProblem);
    line.Play(TMove{.from = E1, .to = 12});
    SaveVariant(*pProblem, L"king", line);
    line.Start(*pProblem);
    line.Play(TMove{.from = H1, .to = 55});
    SaveVariant(*pProblem, L"rook", line);
    return pProblem;
}

TEST(SetupResult, DropsOnlyWhatBelongsToTheOldPositionAndUndoBringsItBack) {
    CDocument document;
    document.Add(ProblemWithVariants());
    TChessProblem& problem = *document.Current();
    const TProblemState before = StateOf(problem);
    const TNewPosition position = {Fields({{E1, WhiteKing}, {H1, WhiteKnight}, {A8, BlackKing}}),
                                   4};

    const TSetupCost cost = CostOf(problem, position);
    EXPECT_EQ(cost.variants, 1);
    EXPECT_TRUE(cost.bKeys);
    ASSERT_TRUE(document.Edit([&](TChessProblem& p) { SetPosition(p, position); }));
    EXPECT_EQ(WriteFen(*problem.m_pBoard, true), "k7/8/8/8/8/8/8/4K2N");
    EXPECT_EQ(WriteFen(problem.m_originalBoard, true), "k7/8/8/8/8/8/8/4K2N");
    EXPECT_EQ(MovesOfStipulation(problem), 4);
    EXPECT_FALSE(problem.m_shOptions.Has(TProblemOption::HasAnswers));
    ASSERT_EQ(problem.m_variants.size(), 1U);
    EXPECT_EQ(problem.m_variants.begin()->second.m_name, L"king");
    ASSERT_TRUE(document.Undo());
    EXPECT_EQ(StateOf(problem), before);

    // Another stipulation keeps every variant; nothing new is no step.
    TNewPosition longer = {before.fields, 5};
    EXPECT_EQ(CostOf(problem, longer).variants, 0);
    EXPECT_TRUE(CostOf(problem, longer).bKeys);
    longer.nMoves = 3;
    EXPECT_FALSE(CostOf(problem, longer).bKeys);
    EXPECT_FALSE(document.Edit([&](TChessProblem& p) { SetPosition(p, longer); }));
}

TEST(SetupResult, TellsTheCastlingsOfTheMenAtHome) {
    EXPECT_EQ(CastlingsOf(Fields({{E1, WhiteKing}, {H1, WhiteRook}, {A1, WhiteRook}})),
              "White 0-0 0-0-0");
    EXPECT_EQ(
        CastlingsOf(Fields({{E8, BlackKing}, {A8, BlackRook}, {E1, WhiteKing}, {H1, WhiteRook}})),
        "White 0-0, Black 0-0-0");
    EXPECT_EQ(CastlingsOf({}), "none");
}

}  // namespace
}  // namespace tarnwick
