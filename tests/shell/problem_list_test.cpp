#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <vector>

#include "app/shell/problem_list_dialog.h"
#include "shell/panel_support.h"

namespace tarnwick {
namespace {

class ProblemList : public ::testing::Test {
  protected:
    void Open(int count) {
        g_language = LanguageId::English;
        Fill(m_document, count);
        m_pDialog = std::make_unique<CProblemListDialog>(m_document, nullptr);
        QObject::connect(m_pDialog.get(), &CProblemListDialog::problemWanted,
                         [this](int id) { m_wanted.push_back(id); });
        m_pDialog->show();
        m_pDialog->FilterBox()->setFocus();
    }
    QAbstractItemModel& Model() { return *m_pDialog->Table()->model(); }
    QString Cell(int row, int column) { return Model().index(row, column).data().toString(); }

    CDocument m_document;
    std::unique_ptr<CProblemListDialog> m_pDialog;
    std::vector<int> m_wanted;
};

TEST_F(ProblemList, EnterGoesToTheFilteredProblemAndEscapeCloses) {
    Open(300);
    QLineEdit* pFilter = m_pDialog->FilterBox();
    QTest::keyClicks(pFilter, "composer 29");
    ASSERT_EQ(Model().rowCount(), 13);  // 29, 129, 229 and 290 to 299
    EXPECT_EQ(Cell(0, 0) + Cell(0, 1) + Cell(0, 2), "29#3Composer 29");
    QTest::keyClick(pFilter, Qt::Key_Return);
    QTest::keyClick(pFilter, Qt::Key_Down);
    QTest::keyClick(m_pDialog->Table(), Qt::Key_Return);
    EXPECT_EQ(m_wanted, (std::vector{29, 129}));
    EXPECT_TRUE(m_pDialog->isVisible());
    QTest::keyClick(m_pDialog->Table(), Qt::Key_Escape);
    EXPECT_FALSE(m_pDialog->isVisible());
}

TEST_F(ProblemList, TheSelectedProblemOutlivesAChangeOfTheFilter) {
    Open(300);
    m_document.GoTo(290);
    m_pDialog->SelectShownProblem();
    m_pDialog->FilterBox()->setText("composer 29");
    m_pDialog->FilterBox()->setText("");
    QTest::keyClick(m_pDialog->FilterBox(), Qt::Key_Return);
    m_pDialog->FilterBox()->setText("nobody");
    QTest::keyClick(m_pDialog->FilterBox(), Qt::Key_Return);
    EXPECT_EQ(m_wanted, std::vector{290});
}

TEST_F(ProblemList, ProblemsThatAreGoneOrChangedDoNoHarm) {
    Open(5);
    m_document.Take(2);
    m_document.Edit([](TChessProblem& problem) { problem.m_tags.insert(L"tempo"); });
    EXPECT_EQ(Cell(1, 2), "");
    m_pDialog->grab();
    m_pDialog->Refresh();
    EXPECT_EQ(Model().rowCount(), 4);
    EXPECT_EQ(Cell(0, 3), "tempo");
}

TEST_F(ProblemList, AHundredThousandProblemsOpenAtOnce) {
    QElapsedTimer timer;
    Open(1);
    m_pDialog.reset();
    Fill(m_document, 100'000);
    timer.start();
    CProblemListDialog dialog(m_document, nullptr);
    dialog.show();
    dialog.grab();
    const auto openMs = timer.restart();
    dialog.FilterBox()->setText("composer 9999");
    dialog.grab();
    const auto firstFilterMs = timer.restart();
    dialog.FilterBox()->setText("composer 99");
    dialog.grab();
    const auto filterMs = timer.elapsed();
    RecordProperty("openMs", std::to_string(openMs));
    RecordProperty("firstFilterMs", std::to_string(firstFilterMs));
    RecordProperty("filterMs", std::to_string(filterMs));
    EXPECT_LT(openMs, 500);
    EXPECT_LT(filterMs, 500);
    EXPECT_EQ(dialog.Table()->model()->rowCount(), 3691) << "numbers with 99 in them";
}

}  // namespace
}  // namespace tarnwick
