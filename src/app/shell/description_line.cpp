#include "app/shell/description_line.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/shell/colours.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {

CDescriptionLine::CDescriptionLine(QWidget* pParent) : QWidget(pParent), m_palette(LightPalette) {
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
}

void CDescriptionLine::Show(const QString& text, std::vector<TDescriptionLink> links) {
    m_text = text;
    m_links = std::move(links);
    setAccessibleDescription(text);
    LayOut();
}

void CDescriptionLine::SetColours(const TPalette& palette) {
    m_palette = palette;
    LayOut();
}

void CDescriptionLine::SetTooltip(const QString& tooltip) {
    m_tooltip = tooltip;
    LayOut();
}

QString CDescriptionLine::ShownText() const {
    return m_layout.text();
}

void CDescriptionLine::LayOut() {
    const QString whole = m_text.isEmpty() ? PlainText(NoDescriptionText) : m_text;
    const QString shown = fontMetrics().elidedText(whole, Qt::ElideRight, width());
    const bool bCut = shown != whole;
    m_nShown = static_cast<int>(shown.size()) - (bCut ? 1 : 0);
    m_layout.setText(shown);
    m_layout.setFont(font());
    m_layout.setFormats(LinkFormats(m_nShown));
    m_layout.beginLayout();
    QTextLine line = m_layout.createLine();
    if (line.isValid()) {
        line.setNumColumns(static_cast<int>(shown.size()));
    }
    m_layout.endLayout();
    setToolTip(bCut ? m_text + "\n\n" + m_tooltip : m_tooltip);
    update();
}

QList<QTextLayout::FormatRange> CDescriptionLine::LinkFormats(int nShown) const {
    QList<QTextLayout::FormatRange> formats;
    for (const TDescriptionLink& link : m_links) {
        QTextLayout::FormatRange range;
        range.start = link.nStart;
        range.length = std::min(link.nLength, nShown - link.nStart);
        range.format.setForeground(ToQColor(m_palette.link));
        range.format.setFontUnderline(true);
        if (range.length > 0) {
            formats.push_back(range);
        }
    }
    return formats;
}

QPointF CDescriptionLine::TextCorner() const {
    const QRectF text = m_layout.boundingRect();
    const qreal textWidth =
        m_layout.lineCount() > 0 ? m_layout.lineAt(0).naturalTextWidth() : text.width();
    return {std::max((width() - textWidth) / 2, 0.0), (height() - text.height()) / 2};
}

QRect CDescriptionLine::LinkRect(std::size_t link) const {
    const TDescriptionLink& wanted = m_links[link];
    const int end = std::min(wanted.nStart + wanted.nLength, m_nShown);
    if (end <= wanted.nStart || m_layout.lineCount() == 0) {
        return {};
    }
    const QTextLine line = m_layout.lineAt(0);
    const QPointF corner = TextCorner();
    const qreal left = line.cursorToX(wanted.nStart);
    return QRectF(corner.x() + left, corner.y(), line.cursorToX(end) - left, line.height())
        .toAlignedRect();
}

const TDescriptionLink* CDescriptionLine::LinkAt(const QPoint& place) const {
    for (std::size_t i = 0; i < m_links.size(); ++i) {
        if (LinkRect(i).contains(place)) {
            return &m_links[i];
        }
    }
    return nullptr;
}

void CDescriptionLine::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.setPen(ToQColor(m_text.isEmpty() ? m_palette.faintText : m_palette.text));
    m_layout.draw(&painter, TextCorner());
    if (hasFocus()) {
        painter.setPen(QPen(ToQColor(m_palette.selectedMark), 2));
        painter.drawRect(rect().adjusted(1, 3, -1, -3));
    }
}

void CDescriptionLine::resizeEvent(QResizeEvent* /*pEvent*/) {
    LayOut();
}

void CDescriptionLine::changeEvent(QEvent* pEvent) {
    if (pEvent->type() == QEvent::FontChange) {
        LayOut();
    }
    QWidget::changeEvent(pEvent);
}

/// Taken here, so that the release comes here too.
void CDescriptionLine::mousePressEvent(QMouseEvent* /*pEvent*/) {}

void CDescriptionLine::mouseReleaseEvent(QMouseEvent* pEvent) {
    const QPoint place = pEvent->position().toPoint();
    if (pEvent->button() != Qt::LeftButton || !rect().contains(place)) {
        return;
    }
    if (const TDescriptionLink* pLink = LinkAt(place)) {
        emit linkWanted(pLink->address);
    } else {
        emit editWanted();
    }
}

void CDescriptionLine::mouseMoveEvent(QMouseEvent* pEvent) {
    const bool bLink = LinkAt(pEvent->position().toPoint()) != nullptr;
    setCursor(bLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void CDescriptionLine::keyPressEvent(QKeyEvent* pEvent) {
    const int key = pEvent->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        emit editWanted();
    } else {
        QWidget::keyPressEvent(pEvent);
    }
}

/// Of the link under the mouse, or by the keyboard of the first one.
void CDescriptionLine::contextMenuEvent(QContextMenuEvent* pEvent) {
    const bool bByKey = pEvent->reason() == QContextMenuEvent::Keyboard;
    const TDescriptionLink* pFirst = m_links.empty() ? nullptr : &m_links.front();
    const TDescriptionLink* pLink = bByKey ? pFirst : LinkAt(pEvent->pos());
    if (pLink != nullptr) {
        emit linkMenuWanted(pLink->address,
                            bByKey ? mapToGlobal(rect().center()) : pEvent->globalPos());
    }
}

}  // namespace tarnwick
