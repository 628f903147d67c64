#include "app/shell/text_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "app/shell/colours.h"
#include "app/shell/panel.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

constexpr int SmallestWidth = 380;
constexpr int ListLines = 8;

}  // namespace

CTextDialog::CTextDialog(TTextQuestion question, QWidget* pParent)
    : QDialog(pParent),
      m_question(std::move(question)),
      m_pBox(new QLineEdit(m_question.text, this)),
      m_pList(new QListWidget(this)),
      m_pRemark(new QLabel(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(m_question.title);
    setMinimumWidth(SmallestWidth);
    auto* pPrompt = new QLabel(m_question.prompt, this);
    pPrompt->setWordWrap(true);
    auto* pButtons = new QDialogButtonBox(this);
    m_pOk = pButtons->addButton(ShownText(DialogOkText), QDialogButtonBox::AcceptRole);
    pButtons->addButton(ShownText(CancelText), QDialogButtonBox::RejectRole);
    auto* pLayout = new QVBoxLayout(this);
    for (QWidget* pPart :
         std::initializer_list<QWidget*>{pPrompt, m_pBox, m_pRemark, m_pList, pButtons}) {
        pLayout->addWidget(pPart);
    }
    SetUpBox();
    SetUpList();
    connect(pButtons, &QDialogButtonBox::accepted, this, &CTextDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &CTextDialog::reject);
    Check();
}

void CTextDialog::SetUpBox() {
    m_pBox->setAccessibleName(m_question.prompt);
    m_pBox->setToolTip(m_question.prompt);
    m_pBox->setVisible(!m_question.bOfferedOnly);
    m_pBox->selectAll();
    m_pRemark->setWordWrap(true);
    m_pRemark->setVisible(m_question.whyNot != nullptr || m_question.note != nullptr);
    connect(m_pBox, &QLineEdit::textChanged, this, &CTextDialog::Check);
}

/// A click takes a text into the box, a double click answers with it at once.
void CTextDialog::SetUpList() {
    m_pList->addItems(m_question.offered);
    m_pList->setAccessibleName(m_question.prompt);
    m_pList->setVisible(!m_question.offered.isEmpty());
    m_pList->setMaximumHeight(ListLines * (fontMetrics().height() + 4));
    connect(m_pList, &QListWidget::currentTextChanged, m_pBox, &QLineEdit::setText);
    connect(m_pList, &QListWidget::itemDoubleClicked, this, &CTextDialog::accept);
    if (m_question.bOfferedOnly) {
        m_pList->setCurrentRow(0);
        m_pList->setFocus();
    }
}

void CTextDialog::Check() {
    const QString text = m_pBox->text();
    const QString whyNot = m_question.whyNot ? m_question.whyNot(text) : QString();
    const QString note = m_question.note ? m_question.note(text) : QString();
    const bool bNothingChosen = m_question.bOfferedOnly && m_pList->currentRow() < 0;
    m_pOk->setEnabled(whyNot.isEmpty() && !bNothingChosen);
    QPalette colours = palette();
    if (!whyNot.isEmpty()) {
        const bool bDark = colours.color(QPalette::Window).lightness() < 128;
        colours.setColor(QPalette::WindowText,
                         ToQColor((bDark ? DarkPalette : LightPalette).errorText));
    }
    m_pRemark->setPalette(colours);
    // An empty box needs no reproach: who opens the dialog has not begun yet.
    m_pRemark->setText(text.isEmpty() ? QString() : whyNot.isEmpty() ? note : whyNot);
    m_pBox->setAccessibleDescription(m_pRemark->text());
}

bool CTextDialog::CanAccept() const {
    return m_pOk->isEnabled();
}

void CTextDialog::accept() {
    if (!CanAccept()) {
        return;
    }
    const QString text = m_pBox->text();
    const int row = m_pList->currentRow();
    QDialog::accept();
    emit answered(text);
    if (m_question.bOfferedOnly) {
        emit chosen(row);
    }
}

}  // namespace tarnwick
