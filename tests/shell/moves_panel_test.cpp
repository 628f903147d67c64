#include "app/shell/moves_panel.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTableView>
#include <vector>

#include "app/document/variants.h"
#include "app/shell/tag_chips.h"
#include "shell/panel_support.h"

namespace tarnwick {
namespace {

constexpr TField D2 = D1 + 8;

class MovesPanel : public CPanelTest<CMovesPanel> {
  protected:
    MovesPanel() : m_pProblem(NewProblem(1, 20)) {
        QObject::connect(&m_part, &CMovesPanel::plyWanted,
                         [this](int nPly) { m_plies.push_back(nPly); });
        QObject::connect(&m_part, &CMovesPanel::contextMenuWanted,
                         [this](TContextMenu menu, const QPoint&) { m_menus.push_back(menu); });
        m_line.Start(*m_pProblem);
        for (int i = 0; i < 9; ++i) {  // queen and king go to and fro
            m_line.Play(i % 2 == 0 ? TMove{D1, D2} : TMove{D2, D1});
            m_line.Play(i % 2 == 0 ? TMove{E8, F8} : TMove{F8, E8});
        }
        SaveVariant(*m_pProblem, L"Aside", m_line);
        SaveMainVariant(*m_pProblem, m_line);
        SetMoveComment(*m_pProblem, m_line.Moves(2), L"waits");
        Show();
    }

    void Show() {
        m_part.ShowMoves(m_line.Rows(*m_pProblem, m_part.RemainingMoves()));
        m_part.ShowVariants(VariantItems(*m_pProblem));
    }
    QAbstractItemModel& Model() { return *m_part.MoveTable()->model(); }
    QPoint CellCentre(int row, int column) {
        return m_part.MoveTable()->visualRect(Model().index(row, column)).center();
    }
    void RightClick(QAbstractItemView& view, const QPoint& place) {
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
        AskForMenu(*view.viewport(), place);
    }

    std::unique_ptr<TChessProblem> m_pProblem;
    CPlayedLine m_line;
    std::vector<int> m_plies;
    std::vector<TContextMenu> m_menus;
};

TEST_F(MovesPanel, TheCurrentMoveIsMarkedAndInSight) {
    QTableView& table = *m_part.MoveTable();
    EXPECT_TRUE(m_plies.empty()) << "showing moves is no wish of the user";
    EXPECT_EQ(table.currentIndex(), Model().index(8, 2));
    EXPECT_TRUE(table.viewport()->rect().contains(CellCentre(8, 2)));
    m_line.GoTo(0);
    Show();
    EXPECT_FALSE(table.currentIndex().isValid());
    EXPECT_TRUE(table.viewport()->rect().contains(CellCentre(0, 1)));
    EXPECT_EQ(Model().index(0, 1).data().toString(), "Qd1-d2");
    EXPECT_EQ(Model().index(0, 2).data(Qt::AccessibleTextRole).toString(), "Ke8-f8, waits");
    EXPECT_TRUE(m_plies.empty());
}

TEST_F(MovesPanel, ClicksAndArrowsGoToMovesAndARightClickDoesNot) {
    m_line.GoTo(1);
    Show();
    QTableView& table = *m_part.MoveTable();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, CellCentre(1, 2));
    QTest::keyClick(&table, Qt::Key_Left);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, CellCentre(1, 0));  // the number
    EXPECT_EQ(m_plies, (std::vector{4, 3}));
    RightClick(table, CellCentre(0, 2));
    EXPECT_EQ(m_part.MenuPly(), 2);
    RightClick(table, CellCentre(0, 0));
    EXPECT_EQ(m_menus, std::vector{TContextMenu::ListedMove});
    EXPECT_EQ(m_plies.size(), 2U);
    AskForMenu(table, QPoint(0, 0), QContextMenuEvent::Keyboard);
    EXPECT_EQ(m_part.MenuPly(), 3) << "the move of the keyboard";
}

TEST_F(MovesPanel, TheWindowMayShowTheMovesAnewWhileItIsTold) {
    QObject::connect(&m_part, &CMovesPanel::plyWanted, [this](int nPly) {
        m_line.GoTo(nPly);
        Show();
    });
    QTableView& table = *m_part.MoveTable();
    const int nTop = table.rowAt(0);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, CellCentre(5, 1));
    EXPECT_EQ(table.currentIndex(), Model().index(5, 1));
    EXPECT_EQ(table.rowAt(0), nTop) << "the list does not jump under the mouse";
    QTest::keyClick(&table, Qt::Key_Up);
    QTest::keyClick(&table, Qt::Key_Right);
    EXPECT_EQ(m_plies, (std::vector{11, 9, 10}));
    EXPECT_EQ(m_line.Ply(), 10);
}

TEST_F(MovesPanel, TheCheckBoxCountsDown) {
    bool bAsked = false;
    QObject::connect(&m_part, &CMovesPanel::remainingMovesChanged,
                     [&](bool bRemaining) { bAsked = bRemaining; });
    auto* pBox = Child<QCheckBox>();
    QTest::mouseClick(pBox, Qt::LeftButton, {}, QPoint(8, pBox->height() / 2));
    EXPECT_TRUE(bAsked);
    Show();
    EXPECT_EQ(Model().index(0, 0).data().toString(), "#20");
}

TEST_F(MovesPanel, TheMainVariantStandsFirstAndSelectionOutlivesARefresh) {
    QListWidget& list = *m_part.VariantList();
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(0)->text(), "Main variant");
    std::vector<std::wstring> wanted;
    QObject::connect(&m_part, &CMovesPanel::variantWanted,
                     [&](const std::wstring& key) { wanted.push_back(key); });
    const QRect second = list.visualItemRect(list.item(1));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second.center());
    RemoveVariant(*m_pProblem, *FindMainVariant(*m_pProblem));
    Show();
    EXPECT_EQ(m_part.SelectedVariant(), *FindVariant(*m_pProblem, L"Aside"));
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(wanted, std::vector(2, m_part.SelectedVariant()));
    RightClick(list, second.center());  // below the last one now
    EXPECT_EQ(m_part.SelectedVariant(), L"");
    EXPECT_EQ(m_menus, std::vector{TContextMenu::MainVariantButton});
}

TEST_F(MovesPanel, TagsAreRemovedByTheirCrossAndCountedWhereTheyFindNoRoom) {
    QStringList removed;
    std::vector<TCommand> commands;
    QObject::connect(&m_part, &CMovesPanel::tagRemovalWanted,
                     [&](const QString& tag) { removed << tag; });
    QObject::connect(&m_part, &CMovesPanel::commandWanted,
                     [&](TCommand command) { commands.push_back(command); });
    m_part.ShowTags({"1858", "1st prize", "Bristol", "model mate", "zugzwang", "tempo"});
    QList<CTagChip*> chips = m_part.findChildren<CTagChip*>();
    for (const CTagChip* pChip : chips) {
        EXPECT_LE(pChip->geometry().right(), pChip->parentWidget()->width());
        EXPECT_GE(pChip->width(), pChip->sizeHint().width());
    }
    ASSERT_GE(chips.size(), 3);
    CTagChip* pFirst = chips.front();
    QTest::mouseClick(pFirst, Qt::LeftButton, {}, QPoint(5, 8));  // its text
    EXPECT_TRUE(removed.isEmpty());
    QTest::mouseClick(pFirst, Qt::LeftButton, {}, QPoint(pFirst->width() - 9, 8));
    QTest::keyClick(chips[1], Qt::Key_Delete);
    EXPECT_EQ(removed, (QStringList{"1858", "1st prize"}));
    const int nHidden = 6 - static_cast<int>(chips.size() - 1);
    EXPECT_EQ(chips.back()->text(), QString("+%1").arg(nHidden));
    QTest::mouseClick(chips.back(), Qt::LeftButton);
    EXPECT_EQ(commands, std::vector{TCommand::RemoveTag});
}

}  // namespace
}  // namespace tarnwick
