#include "app/solving/solve_session.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/chess_exception.h"

#include "chess/move_text.h"
#include "session_support.h"
#include "support/slow_solver.h"
#include "support/table_folder.h"

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

std::vector<std::string> KeysOf(const TSolveOutcome& outcome) {
    std::vector<std::string> texts;
    for (const TMove key : outcome.result.keys) {
        texts.push_back(MoveToDisplayText(key, outcome.board));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

TEST(ThreadsSolveSession, FindsAllKeysAndTellsEachOnce) {
    for (const auto& [fen, moves] :
         {std::pair{"7k/8/5K2/8/8/8/8/6R1", 2}, std::pair{"8/8/8/8/8/5K1k/8/4R3", 2},
          std::pair{"k7/8/2K5/8/8/8/1R6/6N1", 3}}) {
        CProblemOfFen owner(fen, moves);
        CWatchedSession session;
        session->Start(owner.Problem(), TestSettings(2), AllKeys());
        const TSolveOutcome outcome = session.Outcome();
        const auto want = slow::AllKeys(slow::FromFen(fen), moves);
        EXPECT_EQ(KeysOf(outcome), want) << fen;
        EXPECT_TRUE(outcome.result.bComplete);
        EXPECT_EQ(session.Solutions(), static_cast<int>(want.size())) << fen;
        EXPECT_EQ(session->Progress().keys.size(), want.size());
        EXPECT_TRUE(WaitUntil([&] { return session.Ends() == 1; }));
        EXPECT_FALSE(session->TakeOutcome()) << "it was taken already";
    }
}

TEST(ThreadsSolveSession, BrowsingAndEditingDoNotDisturbIt) {
    CWatchedSession session;
    {
        CProblemOfFen owner("7k/8/8/8/8/8/8/KQ6", 7, "SH_AREKINGSNEAR()");
        session->Start(owner.Problem(), TestSettings(), {});
        owner.Problem().m_heuristicSettings.clear();
        owner.Problem().m_pBoard->m_fields[0] = EmptyField;
    }  // the file is closed
    EXPECT_EQ(session.Outcome().result.status, TSolveStatus::Mate);
}

TEST(ThreadsSolveSession, RefusesWhatItCannotSolve) {
    CProblemOfFen checked("k7/8/8/8/8/8/8/R3K3", 2);
    CProblemOfFen self("7k/8/5K2/8/8/8/8/6R1", 2);
    self.Problem().m_type = TProblemType::SelfMate;
    CProblemOfFen endless(EndlessFen, 60);
    CWatchedSession session;
    EXPECT_THROW(session->Start(self.Problem(), TestSettings(), {}), ChessException);
    EXPECT_FALSE(session->IsRunning());
    session->Start(checked.Problem(), TestSettings(), {});
    const TSolveOutcome refused = session.Outcome();
    EXPECT_EQ(refused.result.status, TSolveStatus::Refused);
    EXPECT_FALSE(refused.result.message.empty());
    session->Start(endless.Problem(), TestSettings(), {});
    EXPECT_THROW(session->Start(endless.Problem(), TestSettings(), {}), ChessException);
    EXPECT_TRUE(session->IsRunning()) << "the first goes on";
}

/// Nice values of the threads that search.
std::vector<int> NiceOfSolvers() {
    std::vector<int> values;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream file(entry.path() / "comm");
        std::string name;
        if (std::getline(file, name) && name == "tarnwick-solver") {
            const auto thread = static_cast<id_t>(std::stoul(entry.path().filename()));
            values.push_back(getpriority(PRIO_PROCESS, thread));
        }
    }
    return values;
}

TEST(ThreadsSolveSession, PriorityWorksAtOnceOnAllThreads) {
    CProblemOfFen owner(EndlessFen, 60);
    CWatchedSession session;
    session->Start(owner.Problem(), TestSettings(3), AllKeys());
    ASSERT_TRUE(WaitUntil([&] { return session->Progress().threads.size() == 3; }));
    EXPECT_TRUE(session->SetPriority(TThreadPriority::Idle));
    const std::vector<int> nice = NiceOfSolvers();
    EXPECT_GE(nice.size(), 3U);
    EXPECT_EQ(std::ranges::count(nice, 19), std::ssize(nice));
}

TEST(ThreadsSolveSession, RunsHaveNumbersAndTheNextOneFreesTheRegister) {
    CProblemOfFen owner("7k/8/8/8/8/8/8/KQ6", 7, "SH_AREKINGSNEAR()");
    std::atomic<std::uint64_t> told{0};
    CSolveSession* pSession = nullptr;
    TSolveEvents events;
    events.onEnd = [&] { told = pSession->RunNumber(); };
    CSolveSession session(std::move(events));
    pSession = &session;
    session.Start(owner.Problem(), TestSettings(), {});
    ASSERT_TRUE(WaitUntil([&] { return told != 0; }));
    EXPECT_EQ(told, session.RunNumber());
    const std::weak_ptr<CKeptRegister> kept = session.Kept();
    ASSERT_FALSE(kept.expired());
    session.Start(owner.Problem(), TestSettings(), {});
    EXPECT_EQ(session.RunNumber(), told + 1);
    ASSERT_TRUE(WaitUntil([&] { return told == session.RunNumber(); }));
    EXPECT_TRUE(kept.expired());
}

/// The best of some stops: how long one takes is also a matter of the machine's load.
TEST(ThreadsSolveSession, StopsAtOnceAndStartsAgain) {
    CProblemOfFen owner(EndlessFen, 60);
    CWatchedSession session;
    auto best = 10000ms;
    for (int i = 1; i <= 5; ++i) {
        session->Start(owner.Problem(), TestSettings(4), AllKeys());
        ASSERT_TRUE(session.WaitForNodes());
        const auto start = std::chrono::steady_clock::now();
        session->Stop();
        ASSERT_TRUE(WaitUntil([&] { return session.Ends() == i; }));
        best = std::min(best, std::chrono::duration_cast<std::chrono::milliseconds>(
                                  std::chrono::steady_clock::now() - start));
        EXPECT_EQ(session.Outcome().result.status, TSolveStatus::Stopped);
    }
    EXPECT_LE(best, 100ms);
}

TEST(ThreadsSolveSession, APausedSearchStandsStillAndItsTimeToo) {
    CProblemOfFen owner(EndlessFen, 60);
    CWatchedSession session;
    session->Start(owner.Problem(), TestSettings(2), AllKeys());
    ASSERT_TRUE(session.WaitForNodes());
    session->Pause();
    std::this_thread::sleep_for(300ms);
    const TProgress paused = session->Progress();
    std::this_thread::sleep_for(300ms);
    const TProgress later = session->Progress();
    EXPECT_TRUE(later.bPaused);
    EXPECT_EQ(later.nodes, paused.nodes);
    EXPECT_EQ(later.elapsedMs, paused.elapsedMs);
    session->Resume();
    EXPECT_TRUE(WaitUntil([&] { return session->Progress().nodes > paused.nodes; }));
    EXPECT_GT(session->Progress().elapsedMs, paused.elapsedMs);
    session->Pause();
    session->Stop();
    const TSolveOutcome outcome = session.Outcome();
    EXPECT_EQ(outcome.result.status, TSolveStatus::Stopped);
    EXPECT_FALSE(session->IsPaused());
}

TEST(ThreadsSolveSession, OneThreadCanBeStopped) {
    CProblemOfFen owner(EndlessFen, 60);
    CWatchedSession session;
    EXPECT_FALSE(session->StopThread(0));
    session->Start(owner.Problem(), TestSettings(2), AllKeys());
    ASSERT_TRUE(WaitUntil([&] {  // in a pass that lasts, not in the sieve
        const TProgress progress = session->Progress();
        return progress.passes.size() > 1 && progress.threads.size() == 2;
    }));
    EXPECT_FALSE(session->StopThread(4711));
    EXPECT_TRUE(session->StopThread(1));
    EXPECT_TRUE(WaitUntil([&] { return session->Progress().threads.size() == 1; }));
    EXPECT_TRUE(session->IsRunning());
}

TEST(ThreadsSolveSession, SeveralRunAtOnceAndEndWithTheirOwners) {
    CProblemOfFen endless(EndlessFen, 60);
    CProblemOfFen queen("7k/8/8/8/8/8/8/KQ6", 7);
    std::atomic<int> late{0};
    {
        CSolveSession abandoned(
            {.onSolution = {}, .onThreadAdvice = {}, .onError = {}, .onEnd = [&late] { ++late; }});
        CWatchedSession session;
        abandoned.Start(endless.Problem(), TestSettings(2), AllKeys());
        session->Start(queen.Problem(), TestSettings(2), {});
        EXPECT_EQ(session.Outcome().result.status, TSolveStatus::Mate);
        EXPECT_TRUE(abandoned.IsRunning());
    }
    EXPECT_EQ(late, 0) << "told somebody who had gone";
}

TEST(ThreadsSolveSession, ProgressGrowsAndShowsThePeekedLine) {
    CProblemOfFen owner(EndlessFen, 60);
    CWatchedSession session;
    EXPECT_TRUE(session->Progress().passes.empty()) << "nothing was started";
    session->Start(owner.Problem(), TestSettings(2), AllKeys());
    session->Peek(1);
    ASSERT_TRUE(WaitUntil([&] { return !session->Progress().line.empty(); }));
    const TProgress progress = session->Progress();
    EXPECT_EQ(progress.line.substr(0, 3), "1. ");
    EXPECT_EQ(progress.peekedThread, 1);
    EXPECT_EQ(progress.problemNumber, 7U);
    EXPECT_EQ(progress.moves, 60);
    EXPECT_TRUE(progress.bRunning && progress.bSafeMode);
    ASSERT_FALSE(progress.passes.empty());
    EXPECT_EQ(progress.passes.front().name, "0");
    EXPECT_TRUE(progress.passes.back().bRunning);
    EXPECT_TRUE(progress.moveInHand);
    EXPECT_GT(progress.firstMoves, 0);
    session->Stop();
    session.Outcome();
    EXPECT_FALSE(session->Progress().passes.back().bRunning);
}

TEST(ThreadsSolveSession, AQuestionAboutThreadsWaitsForAnswerOrStop) {
    CProblemOfFen owner("7k/8/8/8/8/8/8/KQ6", 8);
    TSolveSettings settings = TestSettings(2);  // of some twenty first moves, none of them forcing
    settings.bAskAboutThreads = true;
    settings.bQuickMode = true;
    for (const bool bStop : {true, false}) {
        CWatchedSession session;
        session->Start(owner.Problem(), settings, {});
        ASSERT_TRUE(WaitUntil([&] { return session->ThreadAdvice().has_value(); }));
        EXPECT_EQ(session->ThreadAdvice(), 3);
        EXPECT_TRUE(WaitUntil([&] { return session.Advised() == 3; }));
        const std::uint64_t before = session->Progress().elapsedMs;
        std::this_thread::sleep_for(50ms);
        EXPECT_LE(session->Progress().elapsedMs, before + 40)
            << "the user's time is not the engine's";
        bStop ? session->Stop() : session->AnswerAdvice(true);
        const TSolveStatus status = session.Outcome().result.status;
        EXPECT_EQ(status, bStop ? TSolveStatus::Stopped : TSolveStatus::Mate);
        EXPECT_FALSE(session->ThreadAdvice());
    }
}

TEST(ThreadsSolveSession, ARegisterThatIsKeptSavesWork) {
    CProblemOfFen owner("7k/8/8/8/8/8/8/KQ6", 7);
    CWatchedSession session;
    TSolveWish wish;
    wish.heuristics = THeuristicsFrom::None;
    session->Start(owner.Problem(), TestSettings(), wish);
    const TSolveOutcome first = session.Outcome();
    const auto pKept = session->Kept();
    ASSERT_NE(pKept, nullptr);
    EXPECT_GT(pKept->Register()->ElementCount(), 0U);
    session->Start(owner.Problem(), TestSettings(), wish, pKept);
    const TSolveOutcome second = session.Outcome();
    EXPECT_EQ(second.result.keys.size(), 1U);
    EXPECT_LT(second.result.workNodes, first.result.workNodes / 2);
}

TEST(KeptRegister, ForgetsInSafeModeWhatQuickModeBelieved) {
    TEngineOptions options;
    options.memoryMiB = 16;
    options.bQuickMode = true;
    CKeptRegister kept(options, 13);
    TChessboardRegisterItem item;
    item.m_fields[0] = WhiteKing;
    const auto store = [&] { kept.Register()->StoreResult(5, item, HashOf(item), false); };
    store();
    kept.Prepare(options, 13);
    EXPECT_EQ(kept.Register()->ElementCount(), 1U);
    options.bQuickMode = false;
    kept.Prepare(options, 13);
    EXPECT_EQ(kept.Register()->ElementCount(), 0U);
    store();
    kept.Prepare(options, 13);
    EXPECT_EQ(kept.Register()->ElementCount(), 1U);
}

/// A search alone takes minutes over the longest win of this ending.
TEST(SolveSession, AsksTheTablesOfItsFolder) {
    const CTableFolder folder({"R"});
    CProblemOfFen owner("8/8/8/8/8/4k3/5R2/K7", 16);
    TSolveSettings settings = TestSettings();
    settings.pTables = std::make_shared<TGlobalRegisterSet>(folder.Options());
    CWatchedSession session;
    session->Start(owner.Problem(), settings, AllKeys());
    const TSolveOutcome outcome = session.Outcome();
    EXPECT_EQ(outcome.result.keys.size(), 3U);
    EXPECT_GT(outcome.result.tableHits, 0U);
}

TEST(JobOptions, WishGoesBeforeTheProblemAndThatBeforeTheSettings) {
    CProblemOfFen owner("7k/8/5K2/8/8/8/8/6R1", 9, "THREADS 3^2 STOPONDUAL SAFEMODE");
    TSolveSettings settings;
    settings.threads = 5;
    settings.schedulerLevels = 6;
    TEngineOptions options = JobOptions(owner.Problem(), settings, {});
    EXPECT_EQ(options.threads, 3);
    EXPECT_EQ(options.multithreadingLevels, 2);
    EXPECT_EQ(options.schedulerLevels, 6);
    EXPECT_FALSE(options.bQuickMode);
    EXPECT_TRUE(options.bAllSolutions && options.bStopOnDual);
    options = JobOptions(owner.Problem(), settings, AllKeys());
    EXPECT_TRUE(options.bAllSolutions && !options.bStopOnDual);
}

}  // namespace
}  // namespace tarnwick
