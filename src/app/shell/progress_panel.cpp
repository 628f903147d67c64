#include "app/shell/progress_panel.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "base/filled_text.h"

#include "app/commands/command_table.h"
#include "app/commands/tooltip_texts.h"
#include "app/shell/colours.h"
#include "app/shell/picture_button.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

constexpr int Margin = 6;
constexpr int BarHeight = 8;
constexpr int NoOneThread = -1;

QString FromUtf8Text(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

CProgressPanel::CProgressPanel(QWidget* pParent)
    : CPanel(pParent),
      m_pResize(new CPictureButton("enlarge", this)),
      m_pPeek(new CPictureButton("", this)) {
    m_pPeek->SetHalves(true);
    m_pPeek->hide();
    connect(m_pResize, &CPictureButton::pressedWith, this, &CProgressPanel::resizeWanted);
    connect(m_pPeek, &CPictureButton::pressedWith, this,
            [this](TPress press) { PeekNext(press.bUpperHalf); });
    setAttribute(Qt::WA_OpaquePaintEvent);
    Retranslate();
}

void CProgressPanel::ShowProgress(const TProgress& progress, bool bShownProblem) {
    const auto peekedBefore = m_progress ? m_progress->peekedThread : std::nullopt;
    const bool bNew = !m_progress || peekedBefore != progress.peekedThread;
    m_progress = progress;
    m_bShownProblem = bShownProblem;
    m_pPeek->setVisible(true);
    if (bNew) {
        Retranslate();
    }
    MakeLines();
}

void CProgressPanel::ShowText(const QString& text) {
    m_progress.reset();
    m_text = text;
    m_pPeek->hide();
    MakeLines();
}

void CProgressPanel::SetLarge(bool bLarge) {
    m_bLarge = bLarge;
    MakeLines();
}

void CProgressPanel::Place(const TWindowLayout& layout) {
    setGeometry(ToQRect(layout.progress));
}

void CProgressPanel::resizeEvent(QResizeEvent* /*pEvent*/) {
    const int side = fontMetrics().height() + 8;
    m_pResize->setGeometry(width() - side - 2, 2, side, side);
    m_pPeek->setGeometry(m_pResize->x() - side - 2, 2, side, side);
    MakeLines();
}

/// The lines that the panel has room for, below the buttons.
void CProgressPanel::MakeLines() {
    m_lines.clear();
    const QFontMetrics metrics = fontMetrics();
    if (m_progress) {
        const TPanelSpace space = {
            .bLarge = m_bLarge,
            .width = LineRect(0).width(),
            .mostLines = (BarRect().top() - LineRect(0).top()) / metrics.lineSpacing(),
            .textWidth = [&](std::string_view text) {
                return metrics.horizontalAdvance(
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
            }};
        m_lines = ProgressLines(*m_progress, space);
    }
    if (QAccessible::isActive()) {
        QStringList told(Heading());
        for (const std::string& line : m_lines) {
            told << FromUtf8Text(line);
        }
        setAccessibleDescription(told.join('\n'));
    }
    update();
}

QString CProgressPanel::Heading() const {
    if (!m_progress) {
        return m_text;
    }
    const std::string moves = std::to_string(m_progress->moves);
    if (m_bShownProblem) {
        return FromUtf8Text(FilledText(SolvingThisText, {moves}));
    }
    return FromUtf8Text(
        FilledText(SolvingOtherText, {std::to_string(m_progress->problemNumber), moves}));
}

QRect CProgressPanel::LineRect(std::size_t line) const {
    const int step = fontMetrics().lineSpacing();
    const int top = m_pResize->geometry().bottom() + 1 + static_cast<int>(line) * step;
    return {Margin, top, width() - 2 * Margin, step};
}

QRect CProgressPanel::BarRect() const {
    return {Margin, height() - BarHeight - Margin, width() - 2 * Margin, BarHeight};
}

// Painting.

void CProgressPanel::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(Palette().panel));
    painter.setPen(ToQColor(Palette().border));
    painter.drawLine(rect().topLeft(), rect().bottomLeft());
    painter.setPen(ToQColor(Palette().text));
    if (!m_progress) {
        const QRect room(Margin, Margin, m_pResize->x() - 2 * Margin, height() - 2 * Margin);
        painter.drawText(room, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, m_text);
        return;
    }
    PaintHeading(painter);
    PaintLines(painter);
    PaintBar(painter);
}

void CProgressPanel::PaintHeading(QPainter& painter) {
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    const QRect room(Margin, 2, m_pPeek->x() - 2 * Margin, m_pPeek->height());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(bold).elidedText(Heading(), Qt::ElideRight, room.width()));
    painter.setFont(font());
}

void CProgressPanel::PaintLines(QPainter& painter) {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        painter.drawText(LineRect(i), Qt::AlignLeft | Qt::AlignVCenter, FromUtf8Text(m_lines[i]));
    }
}

void CProgressPanel::PaintBar(QPainter& painter) {
    const QRect bar = BarRect();
    const double share = std::clamp(m_progress->Percent() / 100, 0.0, 1.0);
    painter.fillRect(bar, ToQColor(Palette().window));
    painter.fillRect(QRect(bar.topLeft(), QSize(static_cast<int>(bar.width() * share), BarHeight)),
                     ToQColor(Palette().selectedMark));
    painter.setPen(ToQColor(Palette().faintText));
    painter.drawRect(bar.adjusted(0, 0, -1, -1));
}

// The user.

/// All threads, then each of those that search now, and all again.
void CProgressPanel::PeekNext(bool bUp) {
    if (!m_progress) {
        return;
    }
    std::vector<int> choices = {NoOneThread};
    choices.insert(choices.end(), m_progress->threads.begin(), m_progress->threads.end());
    const int peeked = m_progress->peekedThread ? *m_progress->peekedThread : NoOneThread;
    const auto place = std::ranges::find(choices, peeked) - choices.begin();
    const auto count = static_cast<std::ptrdiff_t>(choices.size());
    const std::ptrdiff_t next = (place + (bUp ? 1 : count - 1)) % count;
    emit peekWanted(choices[static_cast<std::size_t>(next)]);
}

void CProgressPanel::mouseReleaseEvent(QMouseEvent* pEvent) {
    if (pEvent->button() == Qt::LeftButton && rect().contains(pEvent->position().toPoint())) {
        emit resizeWanted();
    }
}

/// Only while something is being solved there is a position in hand.
void CProgressPanel::contextMenuEvent(QContextMenuEvent* pEvent) {
    if (m_progress) {
        emit contextMenuWanted(TContextMenu::PositionOfThread, pEvent->globalPos());
    } else {
        pEvent->ignore();
    }
}

/// The tooltip of the line with the positions of the register is its own.
bool CProgressPanel::event(QEvent* pEvent) {
    if (pEvent->type() != QEvent::ToolTip || !m_progress) {
        return CPanel::event(pEvent);
    }
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const std::string positions = std::to_string(m_progress->registerElements) + " (";
    bool bRegister = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        bRegister |= m_lines[i].starts_with(positions) && LineRect(i).contains(pHelp->pos());
    }
    QToolTip::showText(pHelp->globalPos(),
                       ShownText(bRegister ? RegisterSizeTooltip : ProgressSizeTooltip), this);
    return true;
}

void CProgressPanel::Retranslate() {
    const bool bOne = m_progress && m_progress->peekedThread;
    const QString thread = bOne ? QString::number(*m_progress->peekedThread) : QString("A");
    setAccessibleName(ShownText(ProgressNameText));
    setToolTip(ShownText(ProgressSizeTooltip));
    m_pResize->SetTexts(PlainText(*TextOfCommand(TCommand::ResizeProgressPanel)),
                        ShownText(ProgressSizeTooltip));
    m_pPeek->SetBadge(thread);
    m_pPeek->SetTexts(FromUtf8Text(FilledText(PeekedThreadNameText, {thread.toStdString()})),
                      ShownText(PeekedThreadTooltip));
    MakeLines();
}

}  // namespace tarnwick
