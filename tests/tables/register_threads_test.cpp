// Registers under several threads, for the race detector: one load for all who want a type, and memory that
// is taken from threads only when they have given it back.

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "chess/prepare_position.h"
#include "support/table_folder.h"
#include "tables/register/held_tables.h"

namespace tarnwick {
namespace {

TEST(ThreadsOfRegisters, WaitForOneLoad) {
    const CTableFolder folder({"R"});
    for (int round = 0; round < 20; ++round) {
        TGlobalRegisterSet registers(folder.Options());
        std::atomic<bool> bGo{false};
        std::vector<TGlobalRegister*> found(4);
        std::vector<std::thread> threads;
        for (TGlobalRegister*& pFound : found) {
            threads.emplace_back([&registers, &bGo, &pFound] {
                while (!bGo) {
                }
                pFound = registers.FindDataForType("R");
            });
        }
        bGo = true;
        for (std::thread& thread : threads) {
            thread.join();
        }
        ASSERT_NE(found[0], nullptr);
        EXPECT_EQ(std::set<TGlobalRegister*>(found.begin(), found.end()).size(), 1U);
        EXPECT_EQ(registers.Generation(), 1U) << "loaded more than once";
        EXPECT_EQ(registers.Status()[0].useCount, 4);
        for (TGlobalRegister* pRegister : found) {
            registers.ReleaseData(pRegister);
        }
    }
}

/// What a thread of a search does: it asks about random boards of three types.
void AskAtRandom(TGlobalRegisterSet& registers, const std::vector<std::vector<std::uint8_t>>& want,
                 unsigned seed, std::atomic<int>& answers) {
    CHeldTables held(&registers);
    std::mt19937 random(seed);
    const CTableIndex indices[] = {CTableIndex("Q"), CTableIndex("R"), CTableIndex("P")};
    TChessboard board = EmptyChessboard();
    for (int i = 0; i < 4000; ++i) {
        const std::size_t type = i % 500 < 250 ? seed % 3 : random() % 3;
        const std::uint64_t number = random() % indices[type].GetIndexCount();
        board = EmptyChessboard();
        if (!indices[type].PositionOfIndex(number, board) || !PreparePositionNoThrow(board, true)) {
            continue;
        }
        board.m_shPlies = 41;
        const TGlobalRegister* pRegister = held.Find(board, {});
        if (pRegister == nullptr) {
            continue;  // No room just now.
        }
        const unsigned moves = want[type][number];
        ASSERT_EQ(pRegister->IsMateByIndex(board), moves == 0 ? 0 : 2 * moves - 1);
        ++answers;
    }
}

TEST(ThreadsOfRegisters, GiveTablesBackWhenMemoryIsWanted) {
    const CTableFolder folder({"Q", "R", "P"});
    std::vector<std::vector<std::uint8_t>> want;
    for (const char* type : {"Q", "R", "P"}) {
        want.push_back(folder.BytesOf(type));
        folder.TurnIntoLz4(type);
    }
    TGlobalRegisterSet registers(folder.Options());
    registers.SetQuota(150000);  // Room for P and Q or R, not for all three.
    std::atomic<int> answers{0};
    std::vector<std::thread> threads;
    for (unsigned seed = 0; seed < 4; ++seed) {
        threads.emplace_back([&, seed] { AskAtRandom(registers, want, seed, answers); });
    }
    for (int i = 0; i < 20; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        registers.Clear(true);  // What was refused for lack of room may be tried again.
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GT(answers, 1000);
    EXPECT_LE(registers.CurrentUse(), registers.Quota());
    for (const TRegisterStatus& line : registers.Status()) {
        EXPECT_EQ(line.useCount, 0) << line.type;
    }
}

}  // namespace
}  // namespace tarnwick
