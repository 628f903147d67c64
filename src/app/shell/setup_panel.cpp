#include "app/shell/setup_panel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QTextBrowser>
#include <algorithm>

#include "app/setup/setup_texts.h"
#include "app/shell/colours.h"

namespace tarnwick {
namespace {

constexpr int Margin = 4;
constexpr int MenInRow = 6;
constexpr int LargestMan = 48;
constexpr int ButtonPadding = 10;
constexpr TFigureCode Types[MenInRow] = {TypeKing,   TypeQueen,  TypeRook,
                                         TypeBishop, TypeKnight, TypePawn};

QString Paragraph(const QString& text, const QColor& colour) {
    return text.isEmpty() ? QString()
                          : QString("<p style=\"margin:0 0 6px 0; color:%1\">%2</p>")
                                .arg(colour.name(), text.toHtmlEscaped().replace("\n", "<br>"));
}

}  // namespace

CSetupPanel::CSetupPanel(QWidget* pParent) : CPanel(pParent) {
    for (const TFigureCode colour : {WhiteFlag, BlackFlag}) {
        for (const TFigureCode type : Types) {
            AddMan(static_cast<TFigureCode>(colour | type));
        }
    }
    AddMan(EmptyField);
    m_pEmptyBoard = new QPushButton(this);
    m_pStartingArray = new QPushButton(this);
    m_pText = new QTextBrowser(this);
    m_pDone = new QPushButton(this);
    m_pCancel = new QPushButton(this);
    m_pText->setFrameShape(QFrame::NoFrame);
    m_pText->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_pEmptyBoard, &QPushButton::clicked, this, &CSetupPanel::emptyBoardWanted);
    connect(m_pStartingArray, &QPushButton::clicked, this, &CSetupPanel::startingArrayWanted);
    connect(m_pDone, &QPushButton::clicked, this, &CSetupPanel::doneWanted);
    connect(m_pCancel, &QPushButton::clicked, this, &CSetupPanel::cancelWanted);
    hide();
    Retranslate();
}

void CSetupPanel::AddMan(TFigureCode man) {
    auto* const pButton = new CPaletteButton(man, m_pieces, this);
    m_men.push_back(pButton);
    connect(pButton, &CPaletteButton::mousePressed, this, [this, man] { emit manPressed(man); });
    connect(pButton, &CPaletteButton::mouseDragged, this, &CSetupPanel::mouseDragged);
    connect(pButton, &CPaletteButton::mouseReleased, this, [this, pButton](const QPoint& place) {
        emit mouseReleased(place, pButton->rect().contains(pButton->mapFromGlobal(place)));
    });
    connect(pButton, &CPaletteButton::clicked, this, [this, man] { emit manChosen(man); });
}

CPaletteButton* CSetupPanel::Button(TFigureCode man) const {
    return *std::ranges::find(m_men, man, &CPaletteButton::Man);
}

QString CSetupPanel::Text() const {
    return m_pText->toPlainText();
}

void CSetupPanel::Show(const TSetupView& view) {
    const bool bSameText = view.faults == m_view.faults && view.doubts == m_view.doubts &&
                           view.castlings == m_view.castlings;
    m_view = view;
    for (CPaletteButton* const pButton : m_men) {
        pButton->setChecked(view.stamp == pButton->Man());
    }
    if (!bSameText) {
        ShowText();
    }
}

/// What the user has to do first stands first.
void CSetupPanel::ShowText() {
    const QColor text = ToQColor(Palette().text);
    m_pText->setHtml(Paragraph(m_view.faults, ToQColor(Palette().errorText)) +
                     Paragraph(m_view.doubts, ToQColor(Palette().errorText)) +
                     Paragraph(m_view.castlings, text) +
                     Paragraph(ShownText(SettingNoteText), text));
}

void CSetupPanel::Place(const TWindowLayout& layout) {
    const QRect top = ToQRect(layout.progress);
    setGeometry(top.united(ToQRect(layout.variants)));
    const int inner = width() - 2 * Margin;
    const int man = std::min(inner / MenInRow, LargestMan);
    for (int i = 0; i < 2 * MenInRow; ++i) {
        m_men[static_cast<std::size_t>(i)]->setGeometry(Margin + i % MenInRow * man,
                                                        Margin + i / MenInRow * man, man, man);
    }
    const int row = fontMetrics().height() + ButtonPadding;
    int y = 2 * Margin + 2 * man;
    m_men.back()->setGeometry(Margin, y, row, row);
    const int half = (inner - row) / 2;
    m_pEmptyBoard->setGeometry(Margin + row, y, half, row);
    m_pStartingArray->setGeometry(Margin + row + half, y, half, row);
    y += row + Margin;
    const int bottom = height() - row - Margin;
    m_pText->setGeometry(Margin, y, inner, bottom - y - Margin);
    m_pDone->setGeometry(Margin, bottom, inner / 2, row);
    m_pCancel->setGeometry(Margin + inner / 2, bottom, inner / 2, row);
}

void CSetupPanel::Retranslate() {
    for (CPaletteButton* const pButton : m_men) {
        pButton->Retranslate();
    }
    const auto setTexts = [](QPushButton& button, const TUserText& name, const TUserText& tooltip) {
        button.setText(ShownText(name));
        button.setToolTip(ShownText(tooltip));
        button.setAccessibleDescription(ShownText(tooltip));
    };
    setTexts(*m_pEmptyBoard, EraseAllText, EraseAllTooltip);
    setTexts(*m_pStartingArray, StartPositionText, StartPositionTooltip);
    setTexts(*m_pDone, DoneText, DoneTooltip);
    setTexts(*m_pCancel, CancelSettingText, CancelSettingTooltip);
    setAccessibleName(ShownText(PaletteNameText));
    m_pText->setAccessibleName(ShownText(SettingStateNameText));
    ShowText();
}

void CSetupPanel::Recolour() {
    QPalette colours = palette();
    colours.setColor(QPalette::Base, ToQColor(Palette().panel));
    m_pText->setPalette(colours);
    ShowText();
}

void CSetupPanel::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(Palette().panel));
    painter.setPen(ToQColor(Palette().border));
    painter.drawLine(rect().topLeft(), rect().bottomLeft());
}

/// The buttons leave Escape to the panel.
void CSetupPanel::keyPressEvent(QKeyEvent* pEvent) {
    if (pEvent->key() == Qt::Key_Escape) {
        emit cancelWanted();
    } else {
        CPanel::keyPressEvent(pEvent);
    }
}

}  // namespace tarnwick
