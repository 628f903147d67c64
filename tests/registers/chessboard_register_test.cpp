#include "registers/chessboard_register.h"

#include <gtest/gtest.h>

#include <functional>

#include "base/chess_exception.h"
#include "base/language.h"

#include "chess/fen.h"
#include "registers/register_positions.h"

namespace tarnwick {
namespace {

using enum TSolvedAnswer;

TChessboard BoardFromFen(const char* fen) {
    TChessboard board;
    bool bIgnored = false;
    EXPECT_TRUE(ReadFen(board, fen, bIgnored, bIgnored)) << fen;
    return board;
}

class ChessboardRegister : public ::testing::Test {
  protected:
    ChessboardRegister() {
        TRegisterLimits limits;
        limits.m_maxElements = 1000;
        m_register.UpdateLimits(limits);
    }
    void Insert(int plies, bool bAnswer, const TMove* pMove = nullptr) {
        m_register.Insert(static_cast<std::uint16_t>(plies), m_item, bAnswer, pMove, true);
    }
    void InsertDefence(int plies, bool bAnswer, const TMove* pMove = nullptr) {
        m_register.InsertDefence(static_cast<std::uint16_t>(plies), m_item, bAnswer, pMove, true);
    }
    TSolvedAnswer Find(int plies) const {
        return m_register.FindAnswer(static_cast<std::uint16_t>(plies), m_item);
    }
    TSolvedAnswer FindDefence(int plies, TMove* pMove = nullptr) const {
        return m_register.FindDefenceAnswer(static_cast<std::uint16_t>(plies), m_item, pMove);
    }
    std::size_t EntryCount() const {
        std::size_t count = 0;
        for (const auto& [plies, positions] : m_register.Answers()) {
            count += positions.size();
        }
        return count;
    }

    TChessboardRegister<bool> m_register;
    TChessboardRegisterItem m_item = ItemsOfOneBucket(1)[0];
};

TEST_F(ChessboardRegister, MateHoldsForMorePliesAndNoMateForFewer) {
    Insert(7, true);
    Insert(3, false);
    EXPECT_EQ(Find(9), Yes);
    EXPECT_EQ(Find(5), Unknown);
    EXPECT_EQ(Find(1), No);
    EXPECT_EQ(FindDefence(8), Unknown) << "defences are another matter";
}

TEST_F(ChessboardRegister, DefenceHoldsForFewerPliesAndItsLackForMore) {
    const TMove defence{12, 20, 0, 0};
    InsertDefence(6, true, &defence);
    InsertDefence(10, false);
    TMove found{};
    EXPECT_EQ(FindDefence(4, &found), Yes);
    EXPECT_TRUE(found.SameAs(defence));
    EXPECT_EQ(FindDefence(8), Unknown);
    EXPECT_EQ(FindDefence(12), No);
    EXPECT_EQ(m_register.ElementCount(), 0u) << "defences are not counted";
    InsertDefence(8, true);
    EXPECT_EQ(EntryCount(), 2u) << "the longer defence replaces the shorter one";
    EXPECT_EQ(m_register.ElementCount(), 0u);
}

TEST_F(ChessboardRegister, WhatFollowsIsNotStoredAndWhatIsDominatedGoes) {
    Insert(7, true);
    Insert(7, true);
    Insert(9, true);
    EXPECT_EQ(m_register.ElementCount(), 1u);
    Insert(5, true);
    EXPECT_EQ(m_register.ElementCount(), 1u);
    EXPECT_EQ(EntryCount(), 1u);
    Insert(1, false);
    Insert(3, false);
    EXPECT_EQ(EntryCount(), 2u);
    EXPECT_EQ(m_register.ElementCount(), 2u);
}

TEST_F(ChessboardRegister, ContradictionIsRefusedAndChangesNothing) {
    g_language = LanguageId::English;
    Insert(7, true);
    InsertDefence(6, true);
    for (const auto& contradict : {std::function<void()>([&] { Insert(9, false); }),
                                   std::function<void()>([&] { InsertDefence(4, false); })}) {
        try {
            contradict();
            ADD_FAILURE() << "a contradiction was taken in";
        } catch (const ChessException& refused) {
            EXPECT_STREQ(refused.what(), "Incoherent information in TChessboardRegister::Insert()");
        }
    }
    EXPECT_EQ(EntryCount(), 2u);
    Insert(5, false);  // the lock is free again
}

TEST_F(ChessboardRegister, ShortOrSuperfluousInsertsAreDroppedWithoutAWord) {
    m_register.bKeepShortMovers = false;
    Insert(3, true);
    InsertDefence(2, true);
    EXPECT_EQ(EntryCount(), 0u);
    m_register.UpdateLimits({});
    Insert(9, true);
    EXPECT_EQ(EntryCount(), 0u) << "a register without room";
    m_register.ClearMaps();
    EXPECT_TRUE(m_register.bKeepShortMovers);
}

/// Files of one answer that are there for every root.
class CFakeFiles : public TRegisterFiles {
  public:
    void LoadAnswers(TChessboardRegister<bool>& target) override {
        ++m_loads;
        m_bRemovedDominated = target.bRemoveDominated;
        target.Insert(7, m_item, true, nullptr, false);
        target.Insert(m_bContradict ? 9 : 5, m_item, !m_bContradict, nullptr, false);
    }
    bool LoadSummary(TChessboardRegister<bool>& target) override {
        target.Summary().m_block[TSolvedProblemSummary::SolvedByte] = 1;
        return true;
    }
    bool SaveAnswers(const TChessboardRegister<bool>& source) override {
        ++m_saves;
        return source.FindAnswer(99, m_item) == Yes;  // the writer may read
    }

    TChessboardRegisterItem m_item = ItemsOfOneBucket(1)[0];
    bool m_bContradict = false;
    bool m_bRemovedDominated = true;
    int m_loads = 0;
    int m_saves = 0;
};

TEST_F(ChessboardRegister, ANewRootLoadsItsFilesOnce) {
    const TChessboard root = BoardFromFen("8/8/8/8/8/k1K5/8/7R");
    CFakeFiles files;
    m_register.SetFiles(&files);
    m_register.SetRootPosition(root);
    m_register.SetRootPosition(root);
    EXPECT_EQ(files.m_loads, 1);
    EXPECT_FALSE(files.m_bRemovedDominated);
    EXPECT_EQ(EntryCount(), 2u) << "as it was written";
    EXPECT_TRUE(m_register.Summary().IsSolved());
    EXPECT_EQ(files.m_saves, 0);
    Insert(3, true);
    EXPECT_EQ(EntryCount(), 1u);
    EXPECT_EQ(files.m_saves, 1);
    m_register.bNoFile = true;
    m_register.SetRootPosition(BoardFromFen("8/8/8/8/8/k1K5/8/6R1"));
    EXPECT_EQ(EntryCount(), 0u);
    EXPECT_EQ(files.m_loads, 1);
    EXPECT_FALSE(m_register.Summary().IsSolved());
}

TEST_F(ChessboardRegister, AFileThatContradictsItselfLeavesAUsableRegister) {
    CFakeFiles files;
    files.m_bContradict = true;
    m_register.SetFiles(&files);
    EXPECT_THROW(m_register.SetRootPosition(BoardFromFen("8/8/8/8/8/k1K5/8/7R")), ChessException);
    EXPECT_EQ(Find(7), Yes) << "what came before stays";
    Insert(5, true);
    EXPECT_EQ(EntryCount(), 1u) << "inserts remove again what is dominated";
}

}  // namespace
}  // namespace tarnwick
