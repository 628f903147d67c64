#pragma once
// Small questions that a line of text, a number or a choice answers. They are opened with open() and tell
// their answer by a signal: no loop of their own runs, so that a solve can report meanwhile. They delete
// themselves when they are closed.

#include <QDialog>
#include <QStringList>
#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tarnwick {

struct TTextQuestion {
    QString title;
    QString prompt;
    QString text;               ///< In the box at first, selected.
    QStringList offered;        ///< Shown in a list below the box, of which a click takes one.
    bool bOfferedOnly = false;  ///< There is no box: one of the offered is the answer.
    /// Why the text cannot be taken, shown in red while it is so; empty: it can. The dialog's button is
    /// grey meanwhile. May be null.
    std::function<QString(const QString& text)> whyNot;
    /// A note under the box that forbids nothing; may be null.
    std::function<QString(const QString& text)> note;
};

class CTextDialog : public QDialog {
    Q_OBJECT

  public:
    CTextDialog(TTextQuestion question, QWidget* pParent);

    QLineEdit* Box() const { return m_pBox; }
    QListWidget* List() const { return m_pList; }
    bool CanAccept() const;
    void accept() override;

  signals:
    void answered(const QString& text);
    /// The row in `offered`; only with bOfferedOnly.
    void chosen(int nIndex);

  private:
    void SetUpBox();
    void SetUpList();
    void Check();

    TTextQuestion m_question;
    QLineEdit* m_pBox;
    QListWidget* m_pList;
    QLabel* m_pRemark;
    QPushButton* m_pOk;
};

}  // namespace tarnwick
