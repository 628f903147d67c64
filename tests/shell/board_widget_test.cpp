#include "app/shell/board_widget.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "app/shell/colours.h"
#include "support/board_line.h"

namespace tarnwick {
namespace {

constexpr const char* Position = "r3k3/1P6/8/3n4/8/8/4P3/R3K2R";

/// A board on screen and what it asked of the window.
class BoardWidget : public ::testing::Test {
  protected:
    BoardWidget() {
        QObject::connect(&m_board, &CBoardWidget::moveWanted, [this](TMove move) {
            m_wanted.push_back(m_line.Texts(&move, 1).front());
        });
        QObject::connect(&m_board, &CBoardWidget::moveRefused,
                         [this](TMove move) { m_refused.push_back(move); });
        QObject::connect(&m_board, &CBoardWidget::promotionWanted,
                         [this](const QPoint&, bool) { ++m_promotions; });
        m_board.resize(400, 400);
        m_board.ShowBoard(m_line.Board());
        m_board.show();
    }

    QPoint Centre(const std::string& field) const {
        const TRectangle square = m_board.Geometry().FieldSquare(FieldOf(field));
        return {square.x + square.width / 2, square.y + square.height / 2};
    }
    void Drag(const std::string& from, const std::string& to) {
        QTest::mousePress(&m_board, Qt::LeftButton, {}, Centre(from));
        QTest::mouseMove(&m_board, Centre(to));
        QTest::mouseRelease(&m_board, Qt::LeftButton, {}, Centre(to));
    }
    void Click(const std::string& field) {
        QTest::mouseClick(&m_board, Qt::LeftButton, {}, Centre(field));
    }
    QImage Painted(qreal scale = 1) {
        QImage image(m_board.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        m_board.render(&image);
        return image;
    }

    CBoardLine m_line{Position};
    CBoardWidget m_board;
    std::vector<std::string> m_wanted;
    std::vector<TMove> m_refused;
    int m_promotions = 0;
};

/// What a field's square holds, in shares of its pixels.
struct TInk {
    double black = 0;
    double white = 0;
};

TInk InkOn(const QImage& image, const TRectangle& square, qreal scale) {
    TInk ink;
    const int side = static_cast<int>(square.width * scale);
    const QPoint corner(static_cast<int>(square.x * scale), static_cast<int>(square.y * scale));
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const QColor pixel = image.pixelColor(corner + QPoint(x, y));
            ink.black += pixel.lightness() < 120 ? 1 : 0;
            ink.white += pixel.lightness() > 238 ? 1 : 0;
        }
    }
    ink.black /= side * side;
    ink.white /= side * side;
    return ink;
}

TEST_F(BoardWidget, MenArePaintedOnTheFieldsWhereAClickFindsThem) {
    for (const bool bRotated : {false, true}) {
        m_board.SetRotated(bRotated);
        for (const auto& [side, scale] : {std::pair{200, 1.0}, {400, 1.0}, {523, 2.0}}) {
            m_board.resize(side, side);
            const QImage image = Painted(scale);
            for (int field = 0; field < FieldCount; ++field) {
                SCOPED_TRACE(testing::Message() << "field " << field << " side " << side);
                const TInk ink = InkOn(image, m_board.Geometry().FieldSquare(field), scale);
                const TFigureCode code = m_line.Board().m_fields[field];
                // A man is an outline and a filling: the filling tells the colour.
                EXPECT_EQ(ink.black > 0.04, code != EmptyField);
                EXPECT_EQ(ink.white > 0.07, IsWhite(code));
                EXPECT_EQ(ink.black > 0.2, IsBlack(code));
            }
        }
    }
}

TEST_F(BoardWidget, APictureOfDoubleScaleIsSharp) {
    const TRectangle square = m_board.Geometry().FieldSquare(A1);
    const auto edges = [](const QImage& image, QRect area) {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x < area.right(); ++x) {
                const int step =
                    image.pixelColor(x, y).lightness() - image.pixelColor(x + 1, y).lightness();
                count += std::abs(step) > 150 ? 1 : 0;
            }
        }
        return count;
    };
    const QImage once = Painted(1);
    const QImage twice = Painted(2);
    const QImage enlarged = once.scaled(800, 800, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QRect area(square.x * 2, square.y * 2, square.width * 2, square.height * 2);
    EXPECT_GT(edges(twice, area), 2 * edges(enlarged, area));
}

TEST_F(BoardWidget, DraggingTwoClicksKeysAndTypingWantTheSameMove) {
    Drag("e2", "e4");
    Click("e2");
    Click("e4");
    QTest::keyClicks(&m_board, "e2e4");
    QTest::keyClicks(&m_board, "e2-e4");
    Click("e2");
    Click("e2");  // puts it back
    m_board.ActivateField(FieldOf("e2"));
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}) {
        QTest::keyClick(&m_board, key);
    }
    EXPECT_EQ(m_wanted, std::vector<std::string>(5, "e2-e4"));
    EXPECT_TRUE(m_refused.empty());
}

TEST_F(BoardWidget, ARefusedMoveIsReportedAndEscapeGivesUp) {
    Drag("e2", "e5");
    ASSERT_EQ(m_refused.size(), 1U);
    EXPECT_EQ(m_refused[0].to, FieldOf("e5"));
    Click("e2");
    QTest::keyClick(&m_board, Qt::Key_Escape);
    EXPECT_EQ(m_board.Drag().SelectedField(), NoFieldUnderMouse);
    EXPECT_TRUE(m_wanted.empty());
}

TEST_F(BoardWidget, APromotionAsksForTheFigure) {
    Drag("b7", "a8");
    EXPECT_EQ(m_promotions, 1);
    m_board.Promote(TypeRook);
    Drag("b7", "b8");
    m_board.Promote(EmptyField);
    QTest::keyClicks(&m_board, "b8=N");
    EXPECT_EQ(m_wanted, (std::vector<std::string>{"b7:a8R", "b7-b8N"}));
}

TEST_F(BoardWidget, AMoveIsTypedToItsEndOrRefused) {
    QStringList texts;
    QStringList refused;
    QObject::connect(&m_board, &CBoardWidget::typedTextChanged,
                     [&](const QString& text) { texts << text; });
    QObject::connect(&m_board, &CBoardWidget::typedTextRefused,
                     [&](const QString& text) { refused << text; });
    QTest::keyClicks(&m_board, "0-0");  // may still become the long one
    EXPECT_TRUE(m_wanted.empty());
    QTest::keyClick(&m_board, Qt::Key_Return);
    EXPECT_EQ(m_wanted, std::vector<std::string>{"0-0"});
    texts.clear();
    QTest::keyClicks(&m_board, "ez2");
    QTest::keyClick(&m_board, Qt::Key_Backspace);
    QTest::keyClick(&m_board, Qt::Key_Return);
    EXPECT_EQ(texts, (QStringList{"e", "e2", "e", ""})) << "z begins no move";
    EXPECT_EQ(refused, QStringList{"e"});
}

/// Sees which part of the board is painted.
class CPaintWatch : public QObject {
  public:
    QRegion painted;

    bool eventFilter(QObject* /*pObject*/, QEvent* pEvent) override {
        if (pEvent->type() == QEvent::Paint) {
            painted += static_cast<QPaintEvent*>(pEvent)->region();
        }
        return false;
    }
};

TEST_F(BoardWidget, OnlyFieldsThatChangedAreRepainted) {
    const auto square = [&](const char* field) {
        const TRectangle r = m_board.Geometry().FieldSquare(FieldOf(field));
        return QRect(r.x, r.y, r.width, r.height);
    };
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_board));
    QCoreApplication::processEvents();
    CPaintWatch watch;
    m_board.installEventFilter(&watch);
    Click("e2");
    QCoreApplication::processEvents();
    EXPECT_TRUE(watch.painted.contains(square("e2")) && watch.painted.contains(square("e4")));
    EXPECT_FALSE(watch.painted.intersects(square("a1")) || watch.painted.intersects(square("h8")));

    m_line.Play({"e2-e4"});
    watch.painted = {};
    m_board.ShowBoard(m_line.Board());
    QCoreApplication::processEvents();
    EXPECT_TRUE(watch.painted.contains(square("e2")) && watch.painted.contains(square("e4")));
    EXPECT_FALSE(watch.painted.intersects(square("a1")));
    m_board.removeEventFilter(&watch);
}

TEST_F(BoardWidget, WhileSettingUpClicksAreReportedAsTheyAre) {
    std::vector<int> pressed;
    QObject::connect(&m_board, &CBoardWidget::fieldPressed,
                     [&](int field, Qt::MouseButton) { pressed.push_back(field); });
    m_board.ShowSetup(m_line.Board(), {});
    Drag("e2", "e4");
    QTest::mouseClick(&m_board, Qt::RightButton, {}, Centre("h8"));
    EXPECT_EQ(pressed, (std::vector<int>{FieldOf("e2"), H8}));
    m_board.ShowBoard(m_line.Board(), false);
    Drag("e2", "e4");
    EXPECT_EQ(pressed.size(), 2U) << "no moves and no setting up";
    EXPECT_TRUE(m_wanted.empty());
}

TEST_F(BoardWidget, TooltipsTellOfTheFieldAndTheLastMove) {
    const auto told = [&](const QPoint& place) {
        QHelpEvent help(QEvent::ToolTip, place, m_board.mapToGlobal(place));
        QApplication::sendEvent(&m_board, &help);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(told(Centre("d5")), "d5, black knight");
    EXPECT_EQ(told(Centre("e4")), "e4, empty");
    QTest::mousePress(&m_board, Qt::LeftButton, {}, Centre("e2"));
    QTest::mouseMove(&m_board, Centre("e3"));
    told(Centre("d5"));
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 5000))
        << "nobody reads while he drags";
    QTest::mouseRelease(&m_board, Qt::LeftButton, {}, Centre("e2"));
    TChessboard after = m_line.Board();
    after.m_pPrevious = &m_line.Board();
    after.m_lastMove.from = static_cast<TField>(FieldOf("e2"));
    after.m_lastMove.to = static_cast<TField>(FieldOf("e4"));
    m_board.ShowBoard(after);
    EXPECT_EQ(told(Centre("e4")), "e4, empty, last move came here");
    m_board.ShowBoard(m_line.Board());
}

}  // namespace
}  // namespace tarnwick
