#include "app/shell/questions.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>

#include "shell/panel_support.h"

namespace tarnwick {
namespace {

/// An open question, and what it answered.
struct TAsked {
    explicit TAsked(CTextDialog* pQuestion) : pDialog(pQuestion) {
        QObject::connect(pQuestion, &CTextDialog::answered,
                         [this](const QString& text) { answers << text; });
        QObject::connect(pQuestion, &CTextDialog::chosen, [this](int index) { row = index; });
        pQuestion->open();
    }
    ~TAsked() { delete pDialog; }

    /// Whether the text can be the answer.
    bool Takes(const QString& text) {
        pDialog->Box()->setText(text);
        return pDialog->CanAccept();
    }
    void PressEnter() { QTest::keyClick(pDialog, Qt::Key_Return); }

    QPointer<CTextDialog> pDialog;
    QStringList answers;
    int row = -1;
};

TEST(Questions, ANumberMustBeInTheFile) {
    TAsked asked(NewNumberQuestion({3, 5, 9}, 5, nullptr));
    EXPECT_TRUE(asked.pDialog->CanAccept());
    for (const char* text : {"", "4", "10", "abc", "9999999999999", "-3"}) {
        EXPECT_FALSE(asked.Takes(text)) << text;
    }
    asked.PressEnter();
    EXPECT_TRUE(asked.answers.isEmpty());
    EXPECT_TRUE(asked.Takes(" 9 "));
    asked.PressEnter();
    EXPECT_EQ(asked.answers, QStringList{" 9 "});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(asked.pDialog.isNull()) << "it deletes itself";
}

TEST(Questions, EscapeAnswersNothing) {
    TAsked asked(NewCommentQuestion("Qd1-d7+", "waits", nullptr));
    EXPECT_FALSE(asked.Takes("a ] b"));
    EXPECT_TRUE(asked.Takes("")) << "takes the comment away";
    QTest::keyClick(asked.pDialog, Qt::Key_Escape);
    EXPECT_TRUE(asked.answers.isEmpty());
}

TEST(Questions, ATagIsNewOrKnownButNotTwiceInAProblem) {
    TAsked asked(NewTagQuestion({L"1858", L"Bristol"}, {L"Bristol"}, nullptr));
    EXPECT_FALSE(asked.Takes("  "));
    EXPECT_FALSE(asked.Takes(" Bristol"));
    EXPECT_TRUE(asked.Takes("tempo"));
    ASSERT_EQ(asked.pDialog->List()->count(), 1) << "what it has already is not offered";
    asked.pDialog->List()->setCurrentRow(0);
    asked.PressEnter();
    EXPECT_EQ(asked.answers, QStringList{"1858"});
}

TEST(Questions, AVariantIsSavedOverAnotherButNotRenamedToIt) {
    const std::vector<TVariantItem> variants = {{L"k1", L"Main variant", true},
                                                {L"k2", L"Set play", false}};
    TAsked save(NewVariantNameQuestion(variants, "", true, nullptr));
    EXPECT_FALSE(save.pDialog->CanAccept()) << "a name is needed";
    EXPECT_FALSE(save.Takes("a {b}"));
    EXPECT_TRUE(save.Takes("Set play"));
    EXPECT_EQ(save.pDialog->Box()->accessibleDescription(),
              "The variant of this name will be replaced.");
    TAsked rename(NewVariantNameQuestion(variants, "Set play", false, nullptr));
    EXPECT_TRUE(rename.pDialog->CanAccept());
    EXPECT_FALSE(rename.Takes(" Main variant"));
    EXPECT_TRUE(rename.Takes("Other"));
}

TEST(Questions, AChoiceGivesTheRow) {
    const std::vector<TVariantItem> variants = {{L"k1", L"Same", false}, {L"k2", L"Same", false}};
    TAsked asked(NewVariantChoice(TCommand::RemoveVariant, variants, nullptr));
    EXPECT_EQ(asked.pDialog->windowTitle(), "Remove variant");
    QTest::keyClick(asked.pDialog->List(), Qt::Key_Down);
    asked.PressEnter();
    EXPECT_EQ(asked.row, 1);
}

}  // namespace
}  // namespace tarnwick
