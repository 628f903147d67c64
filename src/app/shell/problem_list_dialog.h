#pragma once
// All problems of the file in a list with a filter box. The list stays open beside the window, also while
// something is being solved. Its rows are made when they are seen, so that 100,000 problems open at once.

#include <QDialog>

class QLabel;
class QLineEdit;
class QTableView;

namespace tarnwick {

class CDocument;
class CProblemListModel;

class CProblemListDialog : public QDialog {
    Q_OBJECT

  public:
    /// The document must outlive the dialog.
    CProblemListDialog(CDocument& document, QWidget* pParent);

    /// The file or its problems have changed; asks the document for the list again.
    void Refresh();
    /// Marks the problem on show, if the filter lets it through.
    void SelectShownProblem();
    QLineEdit* FilterBox() const { return m_pFilter; }
    QTableView* Table() const { return m_pTable; }

  signals:
    /// Enter or a double click. The dialog stays open.
    void problemWanted(int id);

  protected:
    void changeEvent(QEvent* pEvent) override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

  private:
    void SetUpTable();
    void Retranslate();
    void ApplyFilter();
    void WantSelected();

    CDocument& m_document;
    QLineEdit* m_pFilter;
    QTableView* m_pTable;
    QLabel* m_pCount;
    CProblemListModel* m_pModel;
};

}  // namespace tarnwick
