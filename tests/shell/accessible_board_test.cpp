#include "app/shell/accessible_board.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QTest>
#include <algorithm>
#include <vector>

#include "app/shell/board_widget.h"
#include "support/board_line.h"

namespace tarnwick {
namespace {

struct TTold {
    QAccessible::Event event;
    QString name;
};
std::vector<TTold> g_told;

void Remember(QAccessibleEvent* pEvent) {
    QAccessibleInterface* told = pEvent->accessibleInterface();
    g_told.push_back({pEvent->type(), told == nullptr ? QString() : told->text(QAccessible::Name)});
}

bool WasTold(QAccessible::Event event, const QString& name) {
    return std::any_of(g_told.begin(), g_told.end(),
                       [&](const TTold& told) { return told.event == event && told.name == name; });
}

class AccessibleBoard : public ::testing::Test {
  protected:
    AccessibleBoard() {
        m_board.resize(400, 400);
        m_board.ShowBoard(m_line.Board());
        m_board.show();
        m_board.activateWindow();
        m_board.setFocus();
        QCoreApplication::processEvents();
    }

    QAccessibleInterface* Root() { return QAccessible::queryAccessibleInterface(&m_board); }
    QString NameOf(const std::string& field) {
        return Root()->child(FieldOf(field))->text(QAccessible::Name);
    }
    void Press(const std::string& field) {
        Root()
            ->child(FieldOf(field))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
    }

    CBoardLine m_line{"r3k3/1P6/8/3n4/8/8/4P3/R3K2R"};
    CBoardWidget m_board;
};

TEST_F(AccessibleBoard, Has64ChildrenWithNamesAndPlaces) {
    ASSERT_NE(Root(), nullptr);
    ASSERT_EQ(Root()->childCount(), 64);
    EXPECT_EQ(Root()->text(QAccessible::Name), "Chessboard");
    EXPECT_EQ(NameOf("d5"), "d5, black knight");
    EXPECT_EQ(NameOf("d4"), "d4, empty");
    for (int field = 0; field < FieldCount; ++field) {
        QAccessibleInterface* child = Root()->child(field);
        ASSERT_NE(child, nullptr);
        const QPoint centre = child->rect().center();
        EXPECT_EQ(Root()->childAt(centre.x(), centre.y()), child);
        EXPECT_EQ(Root()->indexOfChild(child), field);
        EXPECT_EQ(child->parent(), Root());
    }
    EXPECT_EQ(Root()->child(64), nullptr);
    EXPECT_EQ(Root()->childAt(-500, -500), nullptr);
}

TEST_F(AccessibleBoard, AMoveCanBeMadeByActions) {
    std::vector<std::string> wanted;
    QObject::connect(&m_board, &CBoardWidget::moveWanted,
                     [&](TMove move) { wanted.push_back(m_line.Texts(&move, 1).front()); });
    Press("e2");
    EXPECT_TRUE(Root()->child(FieldOf("e2"))->state().selected);
    EXPECT_EQ(NameOf("e4"), "e4, empty, can move here");
    Press("e4");
    EXPECT_EQ(wanted, std::vector<std::string>{"e2-e4"});
}

TEST_F(AccessibleBoard, TheLastMoveIsTheDescription) {
    m_line.Play({"Rh1-h8"});
    m_board.ShowBoard(m_line.Board());
    EXPECT_EQ(Root()->text(QAccessible::Description),
              "Black to move. Last move: white rook from h1 to h8, check");
}

/// What is told as it happens. The toolkit passes it on only where a screen reader could listen: ctest
/// runs these once more on a virtual screen with the bus of accessibility.
class AccessibleEvents : public AccessibleBoard {
  protected:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")) {
            GTEST_SKIP() << "no screen reader could listen here";
        }
        ASSERT_TRUE(QTest::qWaitFor([] { return QAccessible::isActive(); }));
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_board.hasFocus(); }));
        QAccessible::installUpdateHandler(Remember);
        g_told.clear();
    }
    void TearDown() override { QAccessible::installUpdateHandler(nullptr); }
};

TEST_F(AccessibleEvents, FieldsTellThatAManMayComeToThem) {
    Press("e2");
    EXPECT_TRUE(WasTold(QAccessible::NameChanged, "e4, empty, can move here"));
    EXPECT_TRUE(WasTold(QAccessible::StateChanged, "e2, white pawn, selected"));
    EXPECT_FALSE(WasTold(QAccessible::NameChanged, "a1, white rook")) << "nothing changed there";
}

TEST_F(AccessibleEvents, TheCursorTakesTheFocusAndTheLastMoveIsAnnounced) {
    QTest::keyClick(&m_board, Qt::Key_Up);
    EXPECT_TRUE(WasTold(QAccessible::Focus, "e1, white king"));
    EXPECT_EQ(Root()->focusChild(), Root()->child(E1));
    m_line.Play({"Rh1-h8"});
    m_board.ShowBoard(m_line.Board());
    EXPECT_TRUE(WasTold(QAccessible::Alert, "Chessboard"));
    EXPECT_TRUE(WasTold(QAccessible::NameChanged, "h8, white rook, last move came here"));
}

TEST(AccessibleBoards, LeaveNothingBehind) {
    QAccessible::Id id = 0;
    {
        CBoardWidget board;
        QAccessibleInterface* field = QAccessible::queryAccessibleInterface(&board)->child(0);
        id = QAccessible::uniqueId(field);
        ASSERT_EQ(QAccessible::accessibleInterface(id), field);
    }
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace tarnwick
