#include "app/shell/title_bar.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include "app/commands/tooltip_texts.h"
#include "app/shell/colours.h"
#include "app/shell/description_line.h"
#include "app/shell/number_button.h"
#include "app/shell/picture_button.h"
#include "app/shell/shell_texts.h"
#include "app/view/problem_title.h"

namespace tarnwick {
namespace {

TCommand StipulationCommand(const TPress& press) {
    if (press.button == Qt::RightButton) {
        return press.bUpperHalf ? TCommand::IncreaseStipulationBy10
                                : TCommand::DecreaseStipulationBy10;
    }
    return press.bUpperHalf ? TCommand::IncreaseStipulation : TCommand::DecreaseStipulation;
}

}  // namespace

TTitle TitleOf(const TChessProblem& problem) {
    const std::wstring& description = problem.m_description;
    TTitle title = {.number = QString::fromStdString(TitleText(problem)),
                    .description = QString::fromStdWString(description),
                    .links = {}};
    const auto characters = [&](std::size_t count) {
        return static_cast<int>(QString::fromStdWString(description.substr(0, count)).size());
    };
    for (const TWebAddress& address : WebAddresses(description)) {
        const int nStart = characters(address.start);
        const int nLength = characters(address.start + address.length) - nStart;
        title.links.push_back({nStart, nLength, title.description.mid(nStart, nLength)});
    }
    return title;
}

CTitleBar::CTitleBar(QWidget* pParent)
    : CPanel(pParent),
      m_pPrevious(new CPictureButton("previous", this)),
      m_pNumber(new CNumberButton(this)),
      m_pMoves(new CPictureButton("", this)),
      m_pDescription(new CDescriptionLine(this)),
      m_pEdit(new QLineEdit(this)),
      m_pNext(new CPictureButton("next", this)) {
    m_pMoves->SetHalves(true);
    m_pMoves->SetBadge(QString::fromUtf8("▲\n▼"));
    m_pMoves->hide();
    m_pEdit->hide();
    m_pEdit->installEventFilter(this);
    ConnectParts();
    Retranslate();
}

void CTitleBar::ConnectParts() {
    connect(m_pPrevious, &CPictureButton::pressedWith,
            [this] { emit commandWanted(TCommand::PreviousProblem); });
    connect(m_pNext, &CPictureButton::pressedWith,
            [this] { emit commandWanted(TCommand::NextProblem); });
    connect(m_pNumber, &CNumberButton::clicked,
            [this] { emit commandWanted(TCommand::SelectProblemNumber); });
    connect(m_pNumber, &CNumberButton::rightClicked,
            [this] { emit commandWanted(TCommand::SelectProblemFromList); });
    connect(m_pMoves, &CPictureButton::pressedWith,
            [this](TPress press) { emit commandWanted(StipulationCommand(press)); });
    connect(m_pDescription, &CDescriptionLine::editWanted,
            [this] { emit commandWanted(TCommand::EditDescription); });
    connect(m_pDescription, &CDescriptionLine::linkWanted, [this](const QString& address) {
        m_menuLink = address;
        emit commandWanted(TCommand::OpenLink);
    });
    connect(m_pDescription, &CDescriptionLine::linkMenuWanted,
            [this](const QString& address, const QPoint& globalPlace) {
                m_menuLink = address;
                emit contextMenuWanted(TContextMenu::Link, globalPlace);
            });
    connect(m_pEdit, &QLineEdit::returnPressed, this, &CTitleBar::CommitEdit);
}

void CTitleBar::ShowTitle(const TTitle& title) {
    if (title.number == m_title.number && title.description == m_title.description) {
        return;
    }
    AbandonEdit();
    m_title = title;
    const int width = NumberWidth();
    m_pNumber->setText(title.number);
    m_pNumber->setAccessibleDescription(title.number);
    m_pDescription->Show(title.description, title.links);
    if (NumberWidth() != width) {
        emit numberWidthChanged();
    }
}

void CTitleBar::ShowState(const TWindowState& state) {
    m_pPrevious->ShowState(StateOfCommand(TCommand::PreviousProblem, state));
    m_pNext->ShowState(StateOfCommand(TCommand::NextProblem, state));
    m_pNumber->setEnabled(StateOfCommand(TCommand::SelectProblemNumber, state).bEnabled);
    m_pMoves->ShowState(StateOfCommand(TCommand::IncreaseStipulation, state));
    m_pMoves->setVisible(state.bPositionSetting);
}

void CTitleBar::Place(const TWindowLayout& layout) {
    setGeometry(ToQRect(layout.titleBar));
    const QPoint corner = geometry().topLeft();
    const auto place = [&](QWidget* pPart, const TRectangle& rectangle) {
        pPart->setGeometry(ToQRect(rectangle).translated(-corner));
    };
    place(m_pPrevious, layout.previousButton);
    place(m_pNext, layout.nextButton);
    place(m_pNumber, layout.problemNumber);
    place(m_pMoves, layout.movesControl);
    place(m_pDescription, layout.description);
    QRect edit = m_pDescription->geometry().adjusted(0, 3, 0, -3);
    edit.setRight(m_pNext->geometry().left() - 4);
    m_pEdit->setGeometry(edit);
}

int CTitleBar::NumberWidth() const {
    return m_pNumber->sizeHint().width();
}

// The description.

void CTitleBar::EditDescription() {
    if (IsEditing()) {
        return;
    }
    m_pEdit->setText(m_title.description);
    m_pEdit->selectAll();
    m_pDescription->hide();
    m_pEdit->show();
    m_pEdit->setFocus();
    emit editingChanged(true);
}

bool CTitleBar::IsEditing() const {
    return m_pEdit->isVisibleTo(this);
}

void CTitleBar::CommitEdit() {
    const QString text = m_pEdit->text().simplified();
    const bool bEdited = IsEditing() && text != m_title.description;
    EndEdit();
    if (bEdited) {
        emit descriptionEdited(text);
    }
}

void CTitleBar::AbandonEdit() {
    EndEdit();
}

void CTitleBar::EndEdit() {
    if (IsEditing()) {
        m_pEdit->hide();
        m_pDescription->show();
        emit editingChanged(false);
    }
}

/// Escape is the box's own, also where it is a key of the window.
bool CTitleBar::eventFilter(QObject* pObject, QEvent* pEvent) {
    const bool bKey =
        pEvent->type() == QEvent::KeyPress || pEvent->type() == QEvent::ShortcutOverride;
    if (bKey && static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Escape) {
        pEvent->accept();
        if (pEvent->type() == QEvent::KeyPress) {
            AbandonEdit();
        }
        return true;
    }
    return CPanel::eventFilter(pObject, pEvent);
}

void CTitleBar::Retranslate() {
    const auto name = [](TCommand command) { return PlainText(*TextOfCommand(command)); };
    m_pPrevious->SetTexts(name(TCommand::PreviousProblem), ShownText(PreviousTooltip));
    m_pNext->SetTexts(name(TCommand::NextProblem), ShownText(NextTooltip));
    m_pMoves->SetTexts(ShownText(NumberOfMovesNameText), ShownText(NumberOfMovesTooltip));
    m_pNumber->setAccessibleName(name(TCommand::SelectProblemNumber));
    m_pNumber->setToolTip(ShownText(ProblemNumberTooltip));
    m_pDescription->setAccessibleName(ShownText(DescriptionNameText));
    m_pDescription->SetTooltip(ShownText(DescriptionTooltip));
    m_pEdit->setAccessibleName(ShownText(DescriptionNameText));
    m_pEdit->setToolTip(ShownText(DescriptionTooltip));
}

void CTitleBar::Recolour() {
    m_pDescription->SetColours(Palette());
}

void CTitleBar::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(Palette().panel));
    painter.setPen(ToQColor(Palette().border));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

}  // namespace tarnwick
