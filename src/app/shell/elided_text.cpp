#include "app/shell/elided_text.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace tarnwick {

CElidedText::CElidedText(QWidget* pParent) : QWidget(pParent) {}

void CElidedText::SetText(const QString& text) {
    if (text == m_text) {
        return;
    }
    m_text = text;
    setAccessibleDescription(text);
    UpdateTooltip();
    update();
}

int CElidedText::Lines() const {
    return std::max(height() / fontMetrics().lineSpacing(), 1);
}

QSize CElidedText::sizeHint() const {
    return {fontMetrics().horizontalAdvance(m_text), fontMetrics().lineSpacing()};
}

/// The first lines as the layout breaks them, the last one cut. Line ends of the text count as breaks.
QString CElidedText::ShownText() const {
    const QFontMetrics metrics = fontMetrics();
    QString shown;
    const int nLines = Lines();
    int nLine = 0;
    const QStringList paragraphs = m_text.split('\n');
    for (const QString& paragraph : paragraphs) {
        QTextLayout layout(paragraph, font());
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width());
            if (++nLine == nLines) {
                const QString rest = (nLines == 1 ? m_text : paragraph).mid(line.textStart());
                return shown + metrics.elidedText(QString(rest).replace('\n', ' '), Qt::ElideRight,
                                                  width());
            }
            shown += paragraph.mid(line.textStart(), line.textLength()) + '\n';
        }
        layout.endLayout();
    }
    return shown;
}

void CElidedText::UpdateTooltip() {
    const QString shown = ShownText().simplified();
    setToolTip(shown == m_text.simplified() ? QString() : m_text);
}

void CElidedText::resizeEvent(QResizeEvent* /*pEvent*/) {
    UpdateTooltip();
}

void CElidedText::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, ShownText().trimmed());
}

}  // namespace tarnwick
