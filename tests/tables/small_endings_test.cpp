// Tables of four men against a separate, plain solver: random positions of every type.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iostream>
#include <random>

#include "support/random_positions.h"
#include "support/table_folder.h"
#include "tables/table_positions.h"

namespace tarnwick {
namespace {

constexpr int PositionsOfEachType = 100'000;

bool HasWhiteMan(const std::string& type) {
    return std::ranges::any_of(type, [](unsigned char letter) { return std::isupper(letter); });
}

/// White to move, drawn from all legal positions of the type alike.
TEndingPosition RandomPosition(const CTableIndex& index, std::mt19937_64& random,
                               std::uint64_t& number) {
    TEndingPosition position;
    do {
        number = random() % index.GetIndexCount();
    } while (!IsLegalIndex(index, number, position));
    return position;
}

void CompareType(const CTableFolder& folder, const std::string& type, CSmallEndings& judge) {
    const CTableIndex index(type);
    const auto pValues =
        OpenValues(CTableFolders(folder.Path(), {}), index, std::uint64_t{1} << 30, true).pValues;
    ASSERT_NE(pValues, nullptr);
    std::mt19937_64 random(slow::TestSeed());
    int won = 0;
    for (int i = 0; i < PositionsOfEachType; ++i) {
        std::uint64_t number = 0;
        const TEndingPosition position = RandomPosition(index, random, number);
        const int moves = judge.MovesToMate(position);
        ASSERT_EQ(static_cast<int>(pValues->ValueAt(number)), moves) << position.Fen();
        won += moves > 0 ? 1 : 0;
    }
    std::cout << type << ": " << PositionsOfEachType << " equal, " << won << " won" << std::endl;
}

void CompareTypes(bool bPawns) {
    const CTableFolder folder({});
    CSmallEndings judge;
    for (const std::string& type : AllTypes(2, bPawns)) {
        if (HasPawns(type) == bPawns && HasWhiteMan(type)) {
            SCOPED_TRACE(type);
            folder.MakeTables({type});
            CompareType(folder, type, judge);
        }
    }
}

TEST(SlowSmallEndings, AgreeWithTheTablesWithoutPawns) {
    CompareTypes(false);
}

TEST(SlowSmallEndings, AgreeWithTheTablesWithPawns) {
    CompareTypes(true);
}

}  // namespace
}  // namespace tarnwick
