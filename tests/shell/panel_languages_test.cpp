// The parts of the window in each language: nothing is cut at the smallest size, and everything that can be
// reached has a name and a tooltip.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <set>

#include "app/shell/about_box.h"
#include "app/shell/bottom_bar.h"
#include "app/shell/message_strip.h"
#include "app/shell/moves_panel.h"
#include "app/shell/problem_list_dialog.h"
#include "app/shell/progress_panel.h"
#include "app/shell/questions.h"
#include "app/shell/title_bar.h"
#include "shell/panel_support.h"

namespace tarnwick {
namespace {

/// All parts as the smallest window has them.
struct TParts {
    TParts() {
        TLayoutInput input;
        title.ShowTitle(TitleOf(*NewProblem(12345, 128)));
        input.lineHeight = window.fontMetrics().height();
        input.titleTextWidth = title.NumberWidth();
        const TWindowLayout layout = LayOutWindow(input);
        title.Place(layout);
        progress.Place(layout);
        moves.Place(layout);
        strip.Place(layout);
        bar.Place(layout);
        window.resize(input.width, input.height);
        window.show();
    }

    QWidget window;
    CTitleBar title{&window};
    CProgressPanel progress{&window};
    CMovesPanel moves{&window};
    CMessageStrip strip{&window};
    CBottomBar bar{&window};
};

void ExpectNothingCut(const QWidget& part) {
    for (const auto* pButton : part.findChildren<QAbstractButton*>()) {
        if (pButton->isVisible() && !pButton->text().isEmpty()) {
            EXPECT_GE(pButton->width(), pButton->sizeHint().width())
                << pButton->text().toStdString();
        }
    }
    for (const auto* pLabel : part.findChildren<QLabel*>()) {
        EXPECT_GE(pLabel->height(), pLabel->heightForWidth(pLabel->width()))
            << pLabel->text().toStdString();
    }
    for (const auto* pBox : part.findChildren<QLineEdit*>()) {
        const int text = pBox->fontMetrics().horizontalAdvance(pBox->placeholderText());
        EXPECT_GE(pBox->width() - 8, text) << pBox->placeholderText().toStdString();
    }
    for (const auto* pHeader : part.findChildren<QHeaderView*>()) {
        for (int i = 0; pHeader->isVisible() && i < pHeader->count(); ++i) {
            EXPECT_GE(pHeader->sectionSize(i), pHeader->sectionSizeHint(i));
        }
    }
}

class PanelLanguages : public ::testing::TestWithParam<LanguageId> {
  protected:
    PanelLanguages() { g_language = GetParam(); }
    ~PanelLanguages() override { g_language = LanguageId::English; }
};
INSTANTIATE_TEST_SUITE_P(All, PanelLanguages, ::testing::ValuesIn(AllLanguages));

TEST_P(PanelLanguages, NothingIsCutInTheSmallestWindow) {
    TParts parts;
    QCoreApplication::processEvents();
    ExpectNothingCut(parts.window);
}

TEST_P(PanelLanguages, NothingIsCutInTheDialogs) {
    CDocument document;
    Fill(document, 3);
    CProblemListDialog list(document, nullptr);
    CAboutBox* pAbout = new CAboutBox(nullptr);
    CTextDialog* pTag = NewTagQuestion({L"a", L"b"}, {L"b"}, nullptr);
    pTag->Box()->setText("b");  // its remark shows
    CTextDialog* pNumber = NewNumberQuestion({1, 100'000}, 7, nullptr);
    for (QDialog* pDialog : {static_cast<QDialog*>(&list), static_cast<QDialog*>(pAbout),
                             static_cast<QDialog*>(pTag), static_cast<QDialog*>(pNumber)}) {
        pDialog->show();
        QCoreApplication::processEvents();
        SCOPED_TRACE(pDialog->windowTitle().toStdString());
        ExpectNothingCut(*pDialog);
        pDialog->close();
    }
}

TEST_P(PanelLanguages, WhatTheKeyboardReachesHasANameAndATooltip) {
    TParts parts;
    parts.moves.ShowTags({"1858", "tempo"});
    int reached = 0;
    for (const auto* pWidget : parts.window.findChildren<QWidget*>()) {
        if (pWidget->focusPolicy() == Qt::NoFocus) {
            continue;
        }
        ++reached;
        const auto* pButton = qobject_cast<const QAbstractButton*>(pWidget);
        const bool bText = pButton != nullptr && !pButton->text().isEmpty();
        EXPECT_TRUE(bText || !pWidget->accessibleName().isEmpty())
            << pWidget->metaObject()->className();
        EXPECT_FALSE(pWidget->toolTip().isEmpty()) << pWidget->metaObject()->className();
    }
    EXPECT_GE(reached, 20);
}

TEST(PanelLanguageChange, EveryTextFollowsAtOnce) {
    g_language = LanguageId::English;
    TParts parts;
    CDocument document;
    Fill(document, 3);
    CProblemListDialog list(document, &parts.window);
    const auto texts = [&] {
        QStringList all;
        for (const auto* pWidget : parts.window.findChildren<QWidget*>()) {
            all << pWidget->toolTip() << pWidget->accessibleName() << pWidget->windowTitle();
        }
        all.removeAll("");
        return std::set<QString>(all.begin(), all.end());
    };
    const std::set<QString> english = texts();
    ChangeLanguage(parts.window, LanguageId::Ukrainian);
    const std::set<QString> ukrainian = texts();
    EXPECT_GT(english.size(), 25U);
    for (const QString& text : ukrainian) {
        EXPECT_FALSE(english.contains(text)) << text.toStdString();
    }
    ChangeLanguage(parts.window, LanguageId::English);
    EXPECT_EQ(texts(), english);
}

}  // namespace
}  // namespace tarnwick
