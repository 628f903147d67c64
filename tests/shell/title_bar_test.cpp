#include "app/shell/title_bar.h"

#include <QLineEdit>
#include <vector>

#include "app/shell/colours.h"
#include "app/shell/description_line.h"
#include "app/shell/number_button.h"
#include "app/shell/picture_button.h"
#include "shell/panel_support.h"

namespace tarnwick {
namespace {

class TitleBar : public CPanelTest<CTitleBar> {
  protected:
    TitleBar() {
        QObject::connect(&m_part, &CTitleBar::commandWanted,
                         [this](TCommand command) { m_commands.push_back(command); });
        QObject::connect(&m_part, &CTitleBar::descriptionEdited,
                         [this](const QString& text) { m_edited << text; });
        Show(L"Loyd, 1858 https://example.org/34567 and more");
    }

    void Show(const std::wstring& description) {
        m_part.ShowTitle(TitleOf(*NewProblem(12, 3, description)));
        m_input.titleTextWidth = m_part.NumberWidth();
        PlacePart();
    }
    void ClickDescription(const QPoint& place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(m_part.Description(), button, {}, place);
    }

    std::vector<TCommand> m_commands;
    QStringList m_edited;
};

TEST_F(TitleBar, ALongDescriptionIsCutAndWholeInItsTooltip) {
    const QString whole = QString("word ").repeated(60).trimmed() + " http://end.example";
    Show(whole.toStdWString());
    const CDescriptionLine& line = *m_part.Description();
    EXPECT_TRUE(line.ShownText().endsWith(QString::fromUtf8("…")));
    EXPECT_LE(line.fontMetrics().horizontalAdvance(line.ShownText()), line.width());
    EXPECT_TRUE(line.toolTip().startsWith(whole));
    EXPECT_TRUE(line.LinkRect(0).isEmpty()) << "the link was cut off";
    EXPECT_LT(line.geometry().right(), Child<CPictureButton>()->parentWidget()->width() - 41);
    m_window.resize(3000, 500);
    m_input.width = 3000;
    PlacePart();
    EXPECT_EQ(line.ShownText(), whole);
    EXPECT_FALSE(line.LinkRect(0).isEmpty());
}

TEST_F(TitleBar, ALinkIsBlueOpensItsPageAndHasAMenu) {
    const QRect link = m_part.Description()->LinkRect(0);
    const QImage image = Painted().copy(link.translated(m_part.Description()->pos()));
    int blue = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            blue += image.pixelColor(x, y) == ToQColor(LightPalette.link) ? 1 : 0;
        }
    }
    EXPECT_GE(blue, link.width() - 1) << "a line of one pixel at least lies below";

    ClickDescription(link.center());
    EXPECT_EQ(m_part.MenuLink(), "https://example.org/34567");
    int menus = 0;
    QObject::connect(&m_part, &CTitleBar::contextMenuWanted, [&](TContextMenu menu, const QPoint&) {
        menus += menu == TContextMenu::Link ? 1 : 0;
    });
    AskForMenu(*m_part.Description(), link.center());
    AskForMenu(*m_part.Description(), link.topLeft() - QPoint(20, 0));
    EXPECT_EQ(menus, 1);
    ClickDescription(link.topLeft() - QPoint(20, 0));
    EXPECT_EQ(m_commands, (std::vector{TCommand::OpenLink, TCommand::EditDescription}));
}

TEST_F(TitleBar, CharactersBeyondTheFirstPlaneDoNotShiftTheLinks) {
    const TTitle title = TitleOf(*NewProblem(1, 2, L"\U0001F451\U0001F451 http://a.example b"));
    ASSERT_EQ(title.links.size(), 1U);
    EXPECT_EQ(title.links[0].address, "http://a.example");
    EXPECT_EQ(title.number, "1: #2");
}

TEST_F(TitleBar, EnterKeepsTheDescriptionAndEscapeRestoresIt) {
    auto* pEdit = Child<QLineEdit>();
    m_part.EditDescription();
    EXPECT_TRUE(m_part.IsEditing());
    QTest::keyClicks(pEdit, "  new  text ");
    m_part.ShowTitle(TitleOf(*NewProblem(12, 3, L"Loyd, 1858 https://example.org/34567 and more")));
    EXPECT_TRUE(m_part.IsEditing()) << "the same title again";
    QTest::keyClick(pEdit, Qt::Key_Return);
    EXPECT_FALSE(m_part.IsEditing());
    m_part.EditDescription();
    QTest::keyClicks(pEdit, "nothing");
    QTest::keyClick(pEdit, Qt::Key_Escape);
    m_part.EditDescription();
    QTest::keyClick(pEdit, Qt::Key_Return);  // the text as it was: no edit
    m_part.EditDescription();
    Show(L"Another problem");
    EXPECT_FALSE(m_part.IsEditing());
    EXPECT_EQ(m_edited, QStringList{"new text"});
}

TEST_F(TitleBar, ButtonsAskForTheirCommandsAndSayWhyNot) {
    TWindowState state;
    state.nProblems = 3;
    state.nCurrent = 3;
    state.bPositionSetting = false;
    m_part.ShowState(state);
    const auto buttons = m_part.findChildren<CPictureButton*>();
    CPictureButton* pPrevious = buttons[0];
    CPictureButton* pNext = buttons[2];
    EXPECT_FALSE(pNext->isEnabled());
    EXPECT_GT(pNext->toolTip().count('\n'), 0) << pNext->toolTip().toStdString();
    QTest::mouseClick(pPrevious, Qt::LeftButton);
    QTest::mouseClick(Child<CNumberButton>(), Qt::LeftButton);
    AskForMenu(*Child<CNumberButton>(), QPoint(2, 2));
    EXPECT_EQ(m_commands, (std::vector{TCommand::PreviousProblem, TCommand::SelectProblemNumber,
                                       TCommand::SelectProblemFromList}));
    m_commands.clear();

    state.bPositionSetting = m_input.bSettingPosition = true;
    m_part.ShowState(state);
    PlacePart();
    emit buttons[1]->pressedWith({.bUpperHalf = true});
    emit buttons[1]->pressedWith({.button = Qt::RightButton, .bUpperHalf = false});
    EXPECT_TRUE(buttons[1]->isVisible());
    EXPECT_EQ(m_commands,
              (std::vector{TCommand::IncreaseStipulation, TCommand::DecreaseStipulationBy10}));
}

}  // namespace
}  // namespace tarnwick
