#include "app/shell/tag_chips.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "base/filled_text.h"

#include "app/shell/panel.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

constexpr int Padding = 7;
constexpr int CrossWidth = 14;
constexpr int Gap = 4;
constexpr int WidestTag = 140;

}  // namespace

CTagChip::CTagChip(const QString& tag, bool bRemovable, QWidget* pParent)
    : QAbstractButton(pParent), m_bRemovable(bRemovable) {
    setText(tag);
    setFocusPolicy(Qt::TabFocus);
}

QSize CTagChip::sizeHint() const {
    const int textWidth = std::min(fontMetrics().horizontalAdvance(text()), WidestTag);
    return {textWidth + 2 * Padding + (m_bRemovable ? CrossWidth : 0), fontMetrics().height() + 4};
}

QRect CTagChip::Cross() const {
    return {width() - CrossWidth - Padding / 2, 0, CrossWidth, height()};
}

bool CTagChip::hitButton(const QPoint& place) const {
    return m_bRemovable ? Cross().contains(place) : rect().contains(place);
}

void CTagChip::keyPressEvent(QKeyEvent* pEvent) {
    const int key = pEvent->key();
    if (key == Qt::Key_Delete || key == Qt::Key_Backspace || key == Qt::Key_Return) {
        click();
    } else {
        QAbstractButton::keyPressEvent(pEvent);
    }
}

void CTagChip::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor ink = palette().color(QPalette::WindowText);
    QColor ground = ink;
    ground.setAlphaF(underMouse() ? 0.16F : 0.08F);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(Qt::NoPen));
    painter.setBrush(ground);
    painter.drawRoundedRect(frame, frame.height() / 2, frame.height() / 2);
    const int forCross = m_bRemovable ? CrossWidth : 0;
    const QRect room = rect().adjusted(Padding, 0, -Padding - forCross, 0);
    painter.setPen(ink);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width() + 1));
    if (m_bRemovable) {
        const QPointF centre = QRectF(Cross()).center();
        painter.setPen(QPen(ink, 1.4));
        painter.drawLine(centre + QPointF(-3, -3), centre + QPointF(3, 3));
        painter.drawLine(centre + QPointF(-3, 3), centre + QPointF(3, -3));
    }
}

CTagChips::CTagChips(QWidget* pParent) : QWidget(pParent) {}

void CTagChips::SetTags(const QStringList& tags) {
    if (tags != m_tags) {
        m_tags = tags;
        Rebuild();
    }
}

void CTagChips::Retranslate() {
    setAccessibleName(ShownText(TagsNameText));
    Rebuild();
}

void CTagChips::resizeEvent(QResizeEvent* /*pEvent*/) {
    Rebuild();
}

/// Chips are few: they are made anew. They may ask for that themselves, so the old ones go later.
void CTagChips::Rebuild() {
    for (CTagChip* pChip : m_chips) {
        pChip->hide();
        pChip->deleteLater();
    }
    m_chips.clear();
    const int nShown = CountThatFits(width());
    int left = 0;
    for (int i = 0; i < nShown; ++i) {
        AddChip(m_tags[i], left);
    }
    if (nShown < m_tags.size()) {
        AddMore(nShown, left);
    }
}

/// All, or as many as leave room for the count of the others.
int CTagChips::CountThatFits(int width) const {
    const int more = fontMetrics().horizontalAdvance("+99") + 2 * Padding;
    int left = 0;
    for (int i = 0; i < m_tags.size(); ++i) {
        left += CTagChip(m_tags[i], true, nullptr).sizeHint().width() + Gap;
        const bool bLast = i + 1 == m_tags.size();
        if (left - Gap + (bLast ? 0 : Gap + more) > width) {
            return i;
        }
    }
    return static_cast<int>(m_tags.size());
}

void CTagChips::AddChip(const QString& tag, int& left) {
    auto* pChip = new CTagChip(tag, true, this);
    const QString text = QString::fromStdString(FilledText(RemoveThisTagText, {tag.toStdString()}));
    pChip->setAccessibleName(text);
    pChip->setToolTip(text);
    connect(pChip, &CTagChip::clicked, this, [this, tag] { emit removalWanted(tag); });
    pChip->setGeometry(QRect(QPoint(left, 0), pChip->sizeHint()));
    pChip->show();
    left += pChip->width() + Gap;
    m_chips.push_back(pChip);
}

void CTagChips::AddMore(int nShown, int left) {
    auto* pChip = new CTagChip(QString("+%1").arg(m_tags.size() - nShown), false, this);
    const QString others = m_tags.mid(nShown).join(", ");
    const QString text = QString::fromStdString(FilledText(MoreTagsText, {others.toStdString()}));
    pChip->setAccessibleName(text);
    pChip->setToolTip(text);
    connect(pChip, &CTagChip::clicked, this, &CTagChips::moreWanted);
    pChip->setGeometry(QRect(QPoint(left, 0), pChip->sizeHint()));
    pChip->show();
    m_chips.push_back(pChip);
}

}  // namespace tarnwick
