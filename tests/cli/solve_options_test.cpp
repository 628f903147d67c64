#include "cli/solve_options.h"

#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "cli/problem_input.h"
#include "engine/heuristics/heuristic_bits.h"

namespace tarnwick {
namespace {

/// The one problem of a .cp text with these words behind the stipulation.
class CWordsOfProblem {
  public:
    explicit CWordsOfProblem(const std::string& words)
        : m_input(ReadProblems({.name = "file",
                                .text = "1 #9 " + words + "\n{\n\tFEN: 7k/8/5K2/8/8/8/8/6R1\n}\n",
                                .form = TInputForm::ProblemFile})) {}

    const TChessProblem& Problem() const { return *m_input.problems.at(0).pProblem; }
    TEngineOptions Options(const TSolveArguments& arguments = {}) const {
        return OptionsFor(Problem(), arguments);
    }

  private:
    TProblemInput m_input;
};

TEST(SolveOptions, ProblemSaysHowItWantsToBeSolved) {
    const CWordsOfProblem problem(
        "SCHEDULERLEVELS 4 THREADS 3^2 STOPRELAXHEURISTICSONFIRSTSOLUTION SAFEMODE");
    TSolveArguments quick;
    quick.bQuick = true;
    const TEngineOptions options = problem.Options(quick);
    EXPECT_EQ(options.schedulerLevels, 4);
    EXPECT_EQ(options.threads, 3);
    EXPECT_EQ(options.multithreadingLevels, 2);
    EXPECT_TRUE(options.bStopRelaxOnFirstSolution);
    EXPECT_FALSE(options.bQuickMode);
    EXPECT_TRUE(CWordsOfProblem("").Options(quick).bQuickMode);
}

TEST(SolveOptions, UserGoesBeforeTheProblem) {
    TSolveArguments arguments;
    arguments.schedulerLevels = 0;
    arguments.threads = "1";
    arguments.relax = "on";
    arguments.finalPass = "off";
    const TEngineOptions options =
        CWordsOfProblem("SCHEDULERLEVELS 4 THREADS 3^2 STOPRELAXHEURISTICSONFIRSTSOLUTION")
            .Options(arguments);
    EXPECT_EQ(options.schedulerLevels, 0);
    EXPECT_EQ(options.threads, 1);
    EXPECT_FALSE(options.bStopRelaxOnFirstSolution);
    EXPECT_FALSE(options.bRunPassWithoutHeuristics);
}

TEST(SolveOptions, MoreTurnsThanThereAreLevelsOfThemAreAllOfThem) {
    EXPECT_EQ(CWordsOfProblem("SCHEDULERLEVELS 200").Options().schedulerLevels, 9);
}

TEST(SolveOptions, SettingsOfTheProblemChangeOnlyTheEnginesChoice) {
    const CWordsOfProblem problem("SH_KEEPKINGONTHEEDGE OFF SH_AREKINGSNEAR()");
    ASSERT_EQ(problem.Problem().m_heuristicSettings.size(), 2U);
    TSolveTask automatic;
    SetUpJob(automatic, problem.Problem(), {});
    ASSERT_TRUE(automatic.m_adjustHeuristics);
    THeuristicSet set;
    set.mask = SH_KEEPKINGONTHEEDGE | SH_SAVEQUEENROOK;
    automatic.m_adjustHeuristics(set);
    EXPECT_EQ(set.mask, SH_AREKINGSNEAR | SH_SAVEQUEENROOK);

    TSolveArguments arguments;
    arguments.heuristics = "sh_keepkingnearcorner(3S)";
    TSolveTask given;
    SetUpJob(given, problem.Problem(), arguments);
    EXPECT_FALSE(given.m_adjustHeuristics);
    EXPECT_EQ(given.m_options.heuristics, THeuristicsFrom::User);
    EXPECT_EQ(given.m_givenHeuristics.mask, SH_KEEPKINGNEARCORNER);
    EXPECT_EQ(given.m_givenHeuristics.parameters.CornerDistance, 3);

    arguments.heuristics = "none";
    TSolveTask none;
    SetUpJob(none, problem.Problem(), arguments);
    EXPECT_FALSE(none.m_adjustHeuristics);
    EXPECT_EQ(none.m_options.heuristics, THeuristicsFrom::None);
}

TEST(SolveOptions, NoHeuristicsAtAllAreAFault) {
    EXPECT_TRUE(HeuristicsFault("auto").empty() && !HeuristicsFault("").empty());
}

}  // namespace
}  // namespace tarnwick
