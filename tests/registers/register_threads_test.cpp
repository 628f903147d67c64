// The aggregate as search threads use it: all at once, at its memory limit.

#include <gtest/gtest.h>

#include <thread>

#include "registers/aggregated_register.h"
#include "registers/register_positions.h"

namespace tarnwick {
namespace {

/// The truth about an item: mate in so many plies. Doubtful data are stored one length below.
std::uint16_t MatePliesOf(const TChessboardRegisterItem& item) {
    return static_cast<std::uint16_t>(3 + 2 * (HashOf(item).m_value % 12));
}

class CSearchThread {
  public:
    CSearchThread(TAggregatedTemporaryChessboardRegister& shared, unsigned number)
        : m_register(shared), m_dice(slow::TestSeed() + number) {}

    void Run(int operations) {
        for (int i = 0; i < operations; ++i) {
            const TChessboardRegisterItem item = RandomItem(m_dice);
            const TPositionHash hash = HashOf(item);
            const auto heuristics = static_cast<std::uint32_t>(m_dice.Below(3));
            m_register.Prefetch(hash);
            CheckAnswers(item, hash, heuristics);
            Store(item, hash, heuristics);
            if (m_dice.Below(2000) == 0) {
                m_register.HoldDoubtful(heuristics, 0);
                m_register.RemoveDoubtful(heuristics, 0);
                m_register.RemoveDoubtful(heuristics, 0);
            }
        }
    }
    int Faults() const { return m_faults; }

  private:
    void CheckAnswers(const TChessboardRegisterItem& item, TPositionHash hash,
                      std::uint32_t heuristics) {
        const std::uint16_t mate = MatePliesOf(item);
        const auto find = [&](int plies) {
            return m_register.FindResult(static_cast<std::uint16_t>(plies), item, hash, heuristics,
                                         0);
        };
        m_faults += find(mate - 2) == TRegisterResult::Mate ? 1 : 0;
        const TRegisterResult atMate = find(mate);
        m_faults += atMate != TRegisterResult::Mate && atMate != TRegisterResult::Unknown ? 1 : 0;
    }
    void Store(const TChessboardRegisterItem& item, TPositionHash hash, std::uint32_t heuristics) {
        const std::uint16_t mate = MatePliesOf(item);
        const auto below = static_cast<std::uint16_t>(mate - 2);
        m_register.StoreResult(mate, item, hash, true);
        m_register.StoreResult(below, item, hash, false);
        m_register.InsertDoubtful(below, item, hash, heuristics, 0);
    }

    TAggregatedTemporaryChessboardRegister& m_register;
    slow::CDice m_dice;
    int m_faults = 0;
};

TEST(ThreadsAggregatedRegister, ManyThreadsAtTheLimitGetOnlyTrueAnswers) {
    TAggregatedTemporaryChessboardRegister shared({});
    TRegisterLimits limits;
    limits.m_maxElements = 12'000;
    shared.UpdateLimits(limits);
    shared.SetBucketCount(16384, true);
    constexpr unsigned ThreadCount = 4;
    std::vector<CSearchThread> searches;
    for (unsigned i = 0; i < ThreadCount; ++i) {
        searches.emplace_back(shared, i);
    }
    std::vector<std::thread> threads;
    for (CSearchThread& search : searches) {
        threads.emplace_back([&search] { search.Run(8'000); });
    }
    for (int i = 0; i < 20; ++i) {
        shared.EmptySomeDataWhenRegisterFull(true);
        EXPECT_GT(shared.TotalBytesUsed(), 0u);
        std::this_thread::yield();
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const CSearchThread& search : searches) {
        EXPECT_EQ(search.Faults(), 0);
    }
    // Some threads may have passed the limit together, by a record each. Doubtful results are stored
    // also when an emptying has just been and made too little room, so they do not count here.
    EXPECT_LE(shared.ElementCount() - shared.DoubtfulCount(),
              limits.m_maxElements + 4 * ThreadCount);
    std::uint32_t counted = 0;
    const auto count = [&](const auto&, TRecordValues) {
        ++counted;
        return true;
    };
    const auto all = [](TRecordValues) { return true; };
    shared.VisitInFileOrder(all, count);
    for (const std::int64_t key : shared.DoubtfulKeys()) {
        shared.FindDoubtful(key)->VisitInFileOrder(all, count);
    }
    EXPECT_EQ(counted, shared.ElementCount()) << "counters and tables agree at rest";
}

}  // namespace
}  // namespace tarnwick
