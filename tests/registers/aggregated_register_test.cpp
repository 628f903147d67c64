#include "registers/aggregated_register.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

#include "chess/fen.h"
#include "registers/register_positions.h"
#include "support/fake_clock.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

using enum TRegisterResult;

constexpr std::uint32_t Heur = 0x80000001;
constexpr std::uint32_t Params = 0xFFFFFFF0;

TRegisterLimits MaxElements(std::uint32_t count) {
    TRegisterLimits limits;
    limits.m_maxElements = count;
    return limits;
}

class AggregatedRegister : public ::testing::Test {
  protected:
    AggregatedRegister() { Make({}); }

    void Make(TRegisterSettings settings) {
        m_pRegister = std::make_unique<TAggregatedTemporaryChessboardRegister>(std::move(settings));
        m_pRegister->UpdateLimits(MaxElements(1'000'000));
        m_pRegister->SetBucketCount(16384, true);
    }
    TChessboardRegisterItem NextItem() {
        // Random items may repeat; a row of numbers on two fields does not.
        TChessboardRegisterItem item = RandomItem(m_dice);
        item.m_fields[0] = static_cast<TFigureCode>(m_itemNumber & 0xFF);
        item.m_fields[1] = static_cast<TFigureCode>(m_itemNumber >> 8 & 0xFF);
        item.m_fields[2] = static_cast<TFigureCode>(m_itemNumber++ >> 16);
        return item;
    }
    void Store(int plies, const TChessboardRegisterItem& item, bool bMate) {
        m_pRegister->StoreResult(static_cast<std::uint16_t>(plies), item, HashOf(item), bMate);
    }
    void StoreMany(int count, int plies) {
        for (int i = 0; i < count; ++i) {
            Store(plies, NextItem(), false);
        }
    }
    void StoreDoubtful(int plies, const TChessboardRegisterItem& item, std::uint32_t heur = Heur) {
        m_pRegister->InsertDoubtful(static_cast<std::uint16_t>(plies), item, HashOf(item), heur,
                                    Params);
    }
    TRegisterResult Find(int plies, const TChessboardRegisterItem& item,
                         std::uint32_t heur = Heur) const {
        return m_pRegister->FindResult(static_cast<std::uint16_t>(plies), item, heur, Params);
    }
    TRecordValues Values(const TChessboardRegisterItem& item) const {
        return m_pRegister->FindValues(item, HashOf(item));
    }

    CFakeClock m_clock;
    slow::CDice m_dice{slow::TestSeed()};
    int m_itemNumber = 1;
    std::unique_ptr<TAggregatedTemporaryChessboardRegister> m_pRegister;
};

TEST_F(AggregatedRegister, KeepsTheShortestMateAndTheLongestNoMate) {
    const auto item = NextItem();
    Store(9, item, true);
    Store(11, item, true);
    Store(3, item, false);
    Store(5, item, false);
    Store(3, item, false);
    EXPECT_EQ(Values(item), (TRecordValues{9, 5}));
    EXPECT_EQ(Find(5, item), NoMate);
    EXPECT_EQ(Find(7, item), Unknown);
    EXPECT_EQ(Find(9, item), Mate);
    EXPECT_EQ(m_pRegister->FindShortestMate(15, item, Heur, Params), 9);
    EXPECT_EQ(m_pRegister->FindShortestMate(7, item, Heur, Params), -2);
    EXPECT_EQ(m_pRegister->FindShortestMate(5, item, Heur, Params), 0);
    EXPECT_EQ(Find(9, NextItem()), Unknown);
}

TEST_F(AggregatedRegister, QuickerMateSearchMeetsALongerMateOnlyWhenTheSumWrapsRound) {
    const auto item = NextItem();
    Store(9, item, true);
    const auto ask = [&](int plies, int extended) {
        return m_pRegister->FindResultForQuickerMate(static_cast<std::uint16_t>(plies),
                                                     static_cast<std::uint16_t>(extended), item,
                                                     HashOf(item), Heur, Params);
    };
    EXPECT_EQ(ask(7, 9), Unknown);
    EXPECT_EQ(ask(9, 11), Mate);
    EXPECT_EQ(ask(7, 5), QuickerMate);
}

TEST_F(AggregatedRegister, MateWinsOverNoMateOfTheSameLength) {
    const auto seven = NextItem();
    Store(7, seven, true);
    Store(7, seven, false);
    EXPECT_EQ(Values(seven), (TRecordValues{7, 5}));
    const auto one = NextItem();
    Store(1, one, true);
    Store(1, one, false);
    EXPECT_EQ(Values(one), (TRecordValues{1, 0}));
}

TEST_F(AggregatedRegister, SafeModeShowsAContradictionAndKeepsIt) {
    std::string shown;
    const auto make = [&](bool bCheck) {
        TRegisterSettings settings;
        settings.m_bCheckTempRegCoherency = bCheck;
        settings.m_tellError = [&](const std::string& title, const std::string& text) {
            shown += title + "|" + text;
            EXPECT_EQ(m_pRegister->ElementCount(), 1u);
            EXPECT_GT(m_pRegister->TotalBytesUsed(), 0u) << "no lock is held meanwhile";
        };
        Make(std::move(settings));
        m_pRegister->SetSafeMode(true);
    };
    TChessboard board;
    bool bIgnored = false;
    ASSERT_TRUE(ReadFen(board, "8/8/8/8/8/k1K5/8/7R", bIgnored, bIgnored));
    make(true);
    Store(5, ItemOf(board), true);
    Store(7, ItemOf(board), false);
    EXPECT_EQ(Values(ItemOf(board)), (TRecordValues{5, 7}));
    EXPECT_EQ(shown,
              "Error|8/8/8/8/8/k1K5/8/7R w - - 0 1\n\nnMoves=7, bThereIsMate=0\n"
              "MovesMate=5, MovesNoMate=7");
    // Records of files are mended even now.
    m_pRegister->StoreLoadedResult(5, ItemOf(board), HashOf(ItemOf(board)), true);
    EXPECT_EQ(Values(ItemOf(board)), (TRecordValues{5, 3}));
    make(false);
    shown.clear();
    Store(5, ItemOf(board), true);
    Store(7, ItemOf(board), false);
    EXPECT_EQ(Values(ItemOf(board)), (TRecordValues{5, 7}));
    EXPECT_EQ(shown, "");
}

TEST_F(AggregatedRegister, DoubtfulAnswersHoldOnlyUnderTheirHeuristics) {
    const auto item = NextItem();
    StoreDoubtful(9, item);
    StoreDoubtful(7, item);
    EXPECT_EQ(Find(9, item), NoMateUnderHeuristics);
    EXPECT_EQ(Find(11, item), Unknown);
    EXPECT_EQ(Find(9, item, Heur + 1), Unknown);
    Store(5, item, true);
    EXPECT_EQ(Find(9, item), Mate) << "what is certain is asked first";
    EXPECT_EQ(m_pRegister->DoubtfulCount(), 1u);
    EXPECT_EQ(m_pRegister->ElementCount(), 2u);
}

TEST_F(AggregatedRegister, BoundedTrialIsSettledUntilThePassCameToNoMate) {
    const auto item = NextItem();
    const TPositionHash hash = HashOf(item);
    const auto isSettled = [&](int limit, int plies) {
        return m_pRegister->IsTrialSettled(static_cast<std::uint16_t>(limit),
                                           static_cast<std::uint16_t>(plies), item, hash, Heur,
                                           Params);
    };
    EXPECT_FALSE(isSettled(3, 9));
    m_pRegister->InsertDoubtfulResult(4, item, hash, Heur, Params, false);
    EXPECT_TRUE(isSettled(3, 9));
    EXPECT_FALSE(isSettled(4, 9));
    EXPECT_EQ(Find(3, item), Unknown) << "a trial's number answers no query";
    m_pRegister->InsertDoubtfulResult(9, item, hash, Heur, Params, true);
    EXPECT_TRUE(isSettled(3, 11));
    EXPECT_FALSE(isSettled(3, 9));
    EXPECT_EQ(m_pRegister->DoubtfulCount(), 1u);
}

TEST_F(AggregatedRegister, HeldDoubtfulDataSurviveOneRemoval) {
    const auto item = NextItem();
    m_pRegister->HoldDoubtful(Heur, Params);
    StoreDoubtful(9, item);
    StoreDoubtful(9, NextItem(), Heur + 1);
    EXPECT_EQ(m_pRegister->RemoveUnheldDoubtful(), 0u) << "one is held, the other was never passed";
    EXPECT_EQ(m_pRegister->RemoveDoubtful(Heur, Params), 0u);
    EXPECT_EQ(Find(9, item), NoMateUnderHeuristics);
    EXPECT_EQ(m_pRegister->RemoveUnheldDoubtful(), 1u);
    EXPECT_EQ(Find(9, item), Unknown);
    StoreDoubtful(9, item);
    EXPECT_EQ(m_pRegister->RemoveDoubtful(Heur, Params), 1u);
    EXPECT_EQ(m_pRegister->DoubtfulCount(), 1u);
    EXPECT_EQ(m_pRegister->DoubtfulKeys().size(), 2u) << "an emptied layer stays";
}

TEST_F(AggregatedRegister, KeysOfLayersAreOrderedAsSignedNumbers) {
    const auto key = TAggregatedTemporaryChessboardRegister::KeyOf(Heur, Params);
    EXPECT_EQ(TAggregatedTemporaryChessboardRegister::HeuristicsOf(key), Heur);
    EXPECT_EQ(TAggregatedTemporaryChessboardRegister::HeurParamsOf(key), Params);
    const auto item = NextItem();
    m_pRegister->InsertDoubtful(5, item, HashOf(item), 1, 0);
    StoreDoubtful(5, item);
    EXPECT_EQ(m_pRegister->DoubtfulKeys(), (std::vector<std::int64_t>{key, 1}));
    ASSERT_NE(m_pRegister->FindDoubtful(key), nullptr);
    EXPECT_EQ(m_pRegister->FindDoubtful(key)->ElementCount(), 1u);
}

TEST_F(AggregatedRegister, RemoveNMoversTakesShortRecordsOfAllLayers) {
    const auto exact = NextItem();
    const auto doubtful = NextItem();
    Store(5, exact, true);
    StoreDoubtful(5, doubtful);
    EXPECT_EQ(m_pRegister->RemoveNMovers(4), 0u);
    EXPECT_EQ(m_pRegister->RemoveNMovers(5), 1u) << "doubtful ones wait for two plies more";
    EXPECT_EQ(Find(5, exact), Unknown);
    EXPECT_EQ(m_pRegister->RemoveNMovers(7), 1u);
    EXPECT_EQ(m_pRegister->ElementCount(), 0u);
}

TEST_F(AggregatedRegister, MaxElementsOfZeroStoresNothing) {
    m_pRegister->UpdateLimits(MaxElements(0));
    Store(5, NextItem(), true);
    StoreDoubtful(5, NextItem());
    EXPECT_EQ(m_pRegister->ElementCount(), 0u);
    EXPECT_TRUE(m_pRegister->DoubtfulKeys().empty());
}

TEST_F(AggregatedRegister, FullRegisterLosesFinishedPassesFirst) {
    m_pRegister->UpdateLimits(MaxElements(30'000));
    m_pRegister->HoldDoubtful(Heur, Params);
    for (int i = 0; i < 5'000; ++i) {
        StoreDoubtful(3, NextItem());
    }
    m_pRegister->RemoveDoubtful(Heur, Params);
    StoreMany(25'000, 3);
    EXPECT_EQ(m_pRegister->ElementCount(), 30'000u);
    StoreMany(1, 3);
    EXPECT_EQ(m_pRegister->DoubtfulCount(), 0u);
    EXPECT_EQ(m_pRegister->ElementCount(), 25'001u) << "that was enough: nothing else went";
    EXPECT_TRUE(m_pRegister->bKeepShortMovers);
}

TEST_F(AggregatedRegister, FullRegisterThenLosesRecordsInRisingOrderOfLength) {
    m_pRegister->UpdateLimits(MaxElements(30'000));
    const auto longOne = NextItem();
    Store(21, longOne, true);
    StoreMany(1'000, 3);
    StoreMany(10'000, 5);
    StoreMany(18'999, 7);
    StoreMany(1, 7);
    // Few were short, so short ones are no longer stored; the five-pliers had to go as well.
    EXPECT_FALSE(m_pRegister->bKeepShortMovers);
    EXPECT_EQ(Find(21, longOne), Mate);
    const std::uint32_t held = m_pRegister->ElementCount();
    EXPECT_GE(held, 19'001u);
    EXPECT_LT(held, 26'000u);
    m_pRegister->UpdateLimits(MaxElements(60'000));
    StoreMany(100, 3);
    StoreDoubtful(3, NextItem());
    EXPECT_EQ(m_pRegister->ElementCount(), held);
    m_pRegister->Clear(TClearMode::All, true);
    m_pRegister->SetBucketCount(16384, true);
    StoreMany(100, 3);
    EXPECT_EQ(m_pRegister->ElementCount(), 100u);
}

TEST_F(AggregatedRegister, EmptyingIsDoneOncePer16Milliseconds) {
    m_pRegister->UpdateLimits(MaxElements(10'000));
    StoreMany(10'000, 3);
    m_pRegister->EmptySomeDataWhenRegisterFull(false);
    const std::uint32_t after = m_pRegister->ElementCount();
    EXPECT_LT(after, 10'000u);
    StoreMany(static_cast<int>(10'000 - after), 5);
    m_clock.Advance(16);
    StoreMany(1, 5);
    EXPECT_EQ(m_pRegister->ElementCount(), 10'000u) << "full, and the record is dropped";
    m_clock.Advance(1);
    m_pRegister->EmptySomeDataWhenRegisterFull(false);
    EXPECT_LT(m_pRegister->ElementCount(), 10'000u);
}

TEST_F(AggregatedRegister, SearchNodeEmptiesOnlyWhatIsThreeQuartersFull) {
    m_pRegister->UpdateLimits(MaxElements(10'000));
    StoreMany(7'500, 3);
    m_pRegister->EmptySomeDataWhenRegisterFull(true);
    EXPECT_EQ(m_pRegister->ElementCount(), 7'500u);
    StoreMany(1, 3);
    m_pRegister->EmptySomeDataWhenRegisterFull(true);
    EXPECT_LT(m_pRegister->ElementCount(), 7'500u);
}

TEST_F(AggregatedRegister, ClearEmptiesTheLayersOfItsMode) {
    const auto fill = [&] {
        m_pRegister->SetBucketCount(16384, true);
        StoreMany(100, 5);
        StoreDoubtful(5, NextItem());
    };
    fill();
    m_pRegister->Clear(TClearMode::DoubtfulOnly, true);
    EXPECT_EQ(m_pRegister->ElementCount(), 100u);
    EXPECT_TRUE(m_pRegister->DoubtfulKeys().empty());
    fill();
    m_pRegister->Clear(TClearMode::ExactOnly, true);
    EXPECT_EQ(m_pRegister->ElementCount(), 1u);
    EXPECT_EQ(m_pRegister->BucketCount(), 16384u);
    fill();
    m_pRegister->Clear(TClearMode::All, true);
    EXPECT_EQ(m_pRegister->ElementCount(), 0u);
    EXPECT_EQ(m_pRegister->TotalBytesUsed(), 0u);
    StoreMany(1, 5);  // between Clear and SetBucketCount nothing is kept
    EXPECT_EQ(m_pRegister->ElementCount(), 0u);
}

TEST_F(AggregatedRegister, AnotherBucketCountEmptiesAllLayersTheSameOneNone) {
    StoreMany(100, 5);
    StoreDoubtful(5, NextItem());
    m_pRegister->SetBucketCount(16384, true);
    EXPECT_EQ(m_pRegister->ElementCount(), 101u);
    m_pRegister->SetBucketCount(16384, false);
    EXPECT_EQ(m_pRegister->ElementCount(), 0u);
    StoreMany(100, 5);
    StoreDoubtful(5, NextItem());
    m_pRegister->SetBucketCount(524288, true);
    EXPECT_EQ(m_pRegister->ElementCount(), 0u);
    EXPECT_EQ(m_pRegister->DoubtfulCount(), 0u);
    const auto item = NextItem();
    StoreDoubtful(5, item);
    EXPECT_EQ(Find(5, item), NoMateUnderHeuristics);
}

TEST_F(AggregatedRegister, LongClearingShowsFallingCountsUnlessSilent) {
    std::vector<std::uint32_t> shown;
    TRegisterSettings settings;
    settings.m_repaint = [&] { shown.push_back(m_pRegister->ElementCount()); };
    for (const bool bSilent : {false, true}) {
        Make(settings);
        StoreMany(300'000, 5);
        SetClock([]() noexcept {
            static std::int64_t s_now = 0;
            return s_now += 700;  // every look at the clock is a long time later
        });
        m_pRegister->Clear(TClearMode::All, bSilent);
    }
    ASSERT_GE(shown.size(), 2u);
    EXPECT_LT(shown[0], 300'000u);
    EXPECT_GT(shown[0], 0u);
    EXPECT_EQ(shown.back(), 0u);
    EXPECT_EQ(shown.size(), 2u) << "the silent clearing shows nothing";
}

/// Stores until memory has ended several times, in a process that may take 40 MiB more; 0 if of the last
/// two records one is held (the other may have found no memory).
int StoreUntilMemoryEnds(TAggregatedTemporaryChessboardRegister& target,
                         const std::function<TChessboardRegisterItem()>& nextItem) {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlimit limit{pages * 4096 + (std::size_t{40} << 20), RLIM_INFINITY};
    setrlimit(RLIMIT_AS, &limit);
    int heldOfLastTwo = 0;
    for (int i = 0; i < 400'000; ++i) {
        const TChessboardRegisterItem item = nextItem();
        target.StoreResult(static_cast<std::uint16_t>(5 + i % 4 * 2), item, HashOf(item), false);
        const bool bHeld = target.FindResult(5, item, 0, 0) == TRegisterResult::NoMate;
        heldOfLastTwo += i >= 400'000 - 2 && bHeld ? 1 : 0;
    }
    return heldOfLastTwo > 0 ? 0 : 1;
}

TEST_F(AggregatedRegister, InsertThatFindsNoMemoryMakesRoomForTheNext) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizers need address space of their own";
#endif
    const CTempFolder folder;
    TRegisterSettings settings;
    settings.m_bRegisterInfoLog = true;
    settings.m_logFolder = folder.Path();
    Make(std::move(settings));
    const auto nextItem = [this] {
        m_clock.Advance(20);
        return NextItem();
    };
    EXPECT_EXIT(_exit(StoreUntilMemoryEnds(*m_pRegister, nextItem)), ::testing::ExitedWithCode(0),
                "");
    EXPECT_THAT(ReadBytes(folder / "registerInfo.log"),
                ::testing::HasSubstr("Exception caught in method TChessboardRegister::Insert"));
}

TEST(RegisterLimits, UserGrantAndPhysicalMemoryBothLimit) {
    const TRegisterLimits granted = ComputeRegisterLimits(std::uint64_t{16} << 30, 4096);
    EXPECT_EQ(granted.m_memoryLimit, std::uint64_t{4} << 30);
    EXPECT_EQ(granted.m_dataBudget, 3135326126u);
    EXPECT_EQ(granted.m_maxElements, 32659647u);
    EXPECT_EQ(ComputeRegisterLimits(std::uint64_t{1} << 30, 4096).m_memoryLimit,
              std::uint64_t{1} << 30);
}

}  // namespace
}  // namespace tarnwick
