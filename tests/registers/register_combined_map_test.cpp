// The map against a plain model that keeps every bucket as a vector or a tree and nothing else.

#include "registers/register_combined_map.h"

#include <gtest/gtest.h>

#include <map>
#include <variant>

#include "registers/register_positions.h"

namespace tarnwick {
namespace {

struct TModelRecord {
    TChessboardRegisterItem position;
    TRecordValues values;
};

struct TModelBucket {
    bool bTree = false;
    std::vector<TModelRecord> records;  // in order of arrival
};

class CModel {
  public:
    explicit CModel(std::uint32_t bucketCount) : m_buckets(bucketCount) {}

    TModelRecord* Find(const TChessboardRegisterItem& position) {
        for (TModelRecord& record : BucketOf(position).records) {
            if (record.position == position) {
                return &record;
            }
        }
        return nullptr;
    }
    void Add(const TChessboardRegisterItem& position, TRecordValues values) {
        TModelBucket& bucket = BucketOf(position);
        bucket.bTree = bucket.bTree || bucket.records.size() == 8;
        bucket.records.push_back({position, values});
    }
    std::uint32_t Sweep(std::uint16_t maxFirst, std::uint16_t maxSecond) {
        std::uint32_t removed = 0;
        for (TModelBucket& bucket : m_buckets) {
            for (std::size_t i = 0; i < bucket.records.size(); ++i) {
                const TRecordValues values = bucket.records[i].values;
                if (values.m_first <= maxFirst && values.m_second <= maxSecond) {
                    bucket.records.erase(bucket.records.begin() + static_cast<std::ptrdiff_t>(i));
                    ++removed;
                    i -= bucket.bTree ? 1 : 0;
                }
            }
        }
        return removed;
    }
    /// Bucket by bucket; records of a tree in any order.
    std::vector<TModelRecord> Content() const {
        std::vector<TModelRecord> content;
        for (const TModelBucket& bucket : m_buckets) {
            content.insert(content.end(), bucket.records.begin(), bucket.records.end());
        }
        return content;
    }
    bool IsTree(const TChessboardRegisterItem& position) { return BucketOf(position).bTree; }
    std::uint32_t BucketNumber(const TChessboardRegisterItem& position) const {
        return BucketHash(position) & static_cast<std::uint32_t>(m_buckets.size() - 1);
    }

  private:
    TModelBucket& BucketOf(const TChessboardRegisterItem& position) {
        return m_buckets[BucketNumber(position)];
    }
    std::vector<TModelBucket> m_buckets;
};

void AddTo(TRegisterCombinedMap& map, const TChessboardRegisterItem& item, TRecordValues values) {
    map.Add(map.BucketOf(item), item, HashOf(item), values);
}

bool Holds(const TRegisterCombinedMap& map, const TChessboardRegisterItem& item) {
    return map.Find(item, HashOf(item)) != NoRecord;
}

std::vector<TModelRecord> ContentOf(const TRegisterCombinedMap& map) {
    std::vector<TModelRecord> content;
    map.VisitInFileOrder([](TRecordValues) { return true; },
                         [&](const TChessboardRegisterItem& position, TRecordValues values) {
                             content.push_back({position, values});
                             return true;
                         });
    return content;
}

void ExpectSameContent(const TRegisterCombinedMap& map, CModel& model) {
    const std::vector<TModelRecord> visited = ContentOf(map);
    const std::vector<TModelRecord> expected = model.Content();
    ASSERT_EQ(visited.size(), expected.size());
    ASSERT_EQ(map.RecordCount(), expected.size());
    for (std::size_t i = 0; i < visited.size(); ++i) {
        const TModelRecord* held = model.Find(visited[i].position);
        ASSERT_NE(held, nullptr) << i;
        EXPECT_EQ(held->values, visited[i].values) << i;
        EXPECT_EQ(model.BucketNumber(visited[i].position),
                  model.BucketNumber(expected[i].position));
        if (!model.IsTree(visited[i].position)) {
            EXPECT_EQ(visited[i].position, expected[i].position) << i;
        }
        EXPECT_EQ(map.Values(map.Find(held->position, HashOf(held->position))), held->values);
    }
}

struct TMapCase {
    std::uint32_t buckets;
    int operations;
};

class RegisterCombinedMapLaw : public ::testing::TestWithParam<TMapCase> {};

TEST_P(RegisterCombinedMapLaw, AgreesWithThePlainModel) {
    const std::uint64_t seed = slow::TestSeed();
    SCOPED_TRACE(seed);
    slow::CDice dice(seed);
    TRegisterCombinedMap map;
    map.SetBucketCount(GetParam().buckets);
    CModel model(GetParam().buckets);
    std::vector<TChessboardRegisterItem> known;
    for (int i = 0; i < GetParam().operations; ++i) {
        const bool bNew = known.empty() || dice.Chance(70);
        const TChessboardRegisterItem item =
            bNew ? RandomItem(dice)
                 : known[static_cast<std::size_t>(dice.Below(static_cast<int>(known.size())))];
        const TRecordValues values{static_cast<std::uint16_t>(dice.Below(12)),
                                   static_cast<std::uint16_t>(dice.Below(12))};
        const TRecordNumber record = map.Find(item, HashOf(item));
        TModelRecord* expected = model.Find(item);
        ASSERT_EQ(record != NoRecord, expected != nullptr);
        if (expected == nullptr) {
            AddTo(map, item, values);
            model.Add(item, values);
            known.push_back(item);
        } else {
            ASSERT_EQ(map.Values(record), expected->values);
            map.SetValues(record, values);
            expected->values = values;
        }
        if (i % (GetParam().operations / 8) == 0) {
            const auto first = static_cast<std::uint16_t>(dice.Below(9));
            const auto second = static_cast<std::uint16_t>(dice.Below(9));
            ASSERT_EQ(map.Sweep(first, second), model.Sweep(first, second));
            ExpectSameContent(map, model);
        }
    }
    ExpectSameContent(map, model);
}
INSTANTIATE_TEST_SUITE_P(Sizes, RegisterCombinedMapLaw,
                         ::testing::Values(TMapCase{1, 2'000}, TMapCase{64, 6'000},
                                           TMapCase{4096, 40'000}, TMapCase{16384, 20'000}));

TEST(RegisterCombinedMap, SweepOfAVectorPassesOverTheNeighbourOfEachRemoval) {
    TRegisterCombinedMap map;
    map.SetBucketCount(64);
    const auto items = ItemsOfOneBucket(3);
    for (const auto& item : items) {
        AddTo(map, item, {0, 3});
    }
    EXPECT_EQ(map.Sweep(3, 3), 2u);
    EXPECT_FALSE(Holds(map, items[0]));
    EXPECT_TRUE(Holds(map, items[1]));
    EXPECT_FALSE(Holds(map, items[2]));
}

TEST(RegisterCombinedMap, NinthRecordMakesATreeThatStaysOne) {
    TRegisterCombinedMap map;
    map.SetBucketCount(64);
    const auto items = ItemsOfOneBucket(20);
    for (std::size_t i = 0; i < 9; ++i) {
        AddTo(map, items[i], {0, 3});
        EXPECT_EQ(map.RecordCount(), i + 1);
    }
    EXPECT_EQ(map.Sweep(3, 3), 9u) << "a tree has no neighbours to pass over";
    for (std::size_t i = 9; i < 12; ++i) {
        AddTo(map, items[i], {0, 3});
    }
    EXPECT_EQ(map.Sweep(3, 3), 3u) << "few records do not make it a vector again";
    map.Clear(true, {});
    for (std::size_t i = 12; i < 15; ++i) {
        AddTo(map, items[i], {0, 3});
    }
    EXPECT_EQ(map.Sweep(3, 3), 2u) << "clearing does";
}

TEST(RegisterCombinedMap, TreeIsVisitedInTheOrderOfKeys) {
    TRegisterCombinedMap map;
    map.SetBucketCount(64);
    auto items = ItemsOfOneBucket(40);
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        AddTo(map, *item, {1, 1});
    }
    const auto visited = ContentOf(map);
    ASSERT_EQ(visited.size(), items.size());
    for (std::size_t i = 1; i < visited.size(); ++i) {
        EXPECT_TRUE(TRegisterItemOrder()(visited[i - 1].position, visited[i].position));
    }
}

TEST(RegisterCombinedMap, VisitTakesOnlyWhatIsWantedAndStopsWhenTold) {
    TRegisterCombinedMap map;
    map.SetBucketCount(64);
    std::uint16_t plies = 0;
    for (const auto& item : ItemsOfOneBucket(30)) {
        AddTo(map, item, {0, ++plies});
    }
    int visits = 0;
    const auto isOdd = [](TRecordValues values) { return values.m_second % 2 == 1; };
    EXPECT_TRUE(map.VisitInFileOrder(isOdd, [&](const auto&, TRecordValues values) {
        ++visits;
        return values.m_second % 2 == 1;
    }));
    EXPECT_EQ(visits, 15);
    EXPECT_FALSE(map.VisitInFileOrder(isOdd, [&](const auto&, TRecordValues) { return false; }));
}

// Positions are found by a hash of 32 bits: with hundreds of thousands some share it, and many lines of
// the index are full.
TEST(RegisterCombinedMap, LargeMapLosesNothingWhenItGrowsShrinksAndFillsAgain) {
    slow::CDice dice(slow::TestSeed());
    TRegisterCombinedMap map;
    map.SetBucketCount(16384);
    std::vector<TChessboardRegisterItem> items;
    while (items.size() < 400'000) {
        const TChessboardRegisterItem item = RandomItem(dice);
        if (!Holds(map, item)) {
            AddTo(map, item, {0, static_cast<std::uint16_t>(items.size() % 3 * 2 + 1)});
            items.push_back(item);
        }
    }
    const std::uint64_t bytesBefore = map.BytesUsed();
    const std::uint32_t removed = map.Sweep(3, 3);
    EXPECT_GT(removed, 260'000u);
    std::uint32_t held = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool bHeld = Holds(map, items[i]);
        held += bHeld ? 1 : 0;
        ASSERT_TRUE(bHeld || i % 3 != 2) << i;
        if (!bHeld) {
            AddTo(map, items[i], {0, 7});
        }
    }
    EXPECT_EQ(held + removed, items.size());
    EXPECT_EQ(map.RecordCount(), items.size());
    EXPECT_EQ(map.BytesUsed(), bytesBefore) << "slots are used again";
    for (const auto& item : items) {
        ASSERT_TRUE(Holds(map, item));
    }
    map.Clear(false, {});
    EXPECT_EQ(map.BytesUsed(), 0u);
    EXPECT_FALSE(Holds(map, items[0]));
}

// The index finds all positions of one hash in one place; a row of them must go round its end.
TEST(PositionIndex, ManyEntriesOfOneHashAtTheEndOfTheRowAreFoundAndErased) {
    CPositionIndex index;
    const TPositionHash last{0xFFFFFFFF};
    for (TRecordNumber record = 0; record < 100; ++record) {
        index.ReserveOne();
        index.Insert(record % 10 == 0 ? TPositionHash{record} : last, record);
    }
    for (TRecordNumber gone = 0; gone < 100; gone += 3) {
        index.Erase(gone % 10 == 0 ? TPositionHash{gone} : last, gone);
    }
    for (TRecordNumber record = 0; record < 100; ++record) {
        const TPositionHash hash = record % 10 == 0 ? TPositionHash{record} : last;
        const TRecordNumber found = index.Find(hash, [&](TRecordNumber r) { return r == record; });
        EXPECT_EQ(found, record % 3 == 0 ? NoRecord : record);
    }
}

}  // namespace
}  // namespace tarnwick
