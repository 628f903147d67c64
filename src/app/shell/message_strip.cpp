#include "app/shell/message_strip.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <algorithm>

#include "app/shell/colours.h"
#include "app/shell/elided_text.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

constexpr int Margin = 4;
constexpr int IndentOfSecondLine = 58;  // the start button reaches into the strip there
constexpr int CharactersOfBox = 12;
constexpr int FrameOfBox = 14;

}  // namespace

CMessageStrip::CMessageStrip(QWidget* pParent)
    : CPanel(pParent),
      m_pTyped(new QLineEdit(this)),
      m_pKnown(new CElidedText(this)),
      m_pSecond(new CElidedText(this)) {
    m_pTyped->installEventFilter(this);
    connect(m_pTyped, &QLineEdit::returnPressed, this, [this] {
        if (!m_pTyped->text().trimmed().isEmpty()) {
            emit moveTyped(m_pTyped->text().trimmed());
        }
    });
    connect(m_pTyped, &QLineEdit::textEdited, this, [this] { ShowRefusal({}); });
    Retranslate();
}

void CMessageStrip::ShowKnown(const QString& text) {
    m_pKnown->SetText(text);
}

void CMessageStrip::ShowComment(const QString& text) {
    m_comment = text;
    ShowRefusal({});
}

void CMessageStrip::ShowRefusal(const QString& text) {
    m_refusal = text;
    ShowSecondLine();
}

void CMessageStrip::ShowTyped(const QString& text) {
    m_pTyped->setText(text);
}

void CMessageStrip::ClearTyped() {
    m_pTyped->clear();
}

void CMessageStrip::FocusTyping() {
    m_pTyped->setFocus();
    m_pTyped->selectAll();
}

void CMessageStrip::ShowSecondLine() {
    QPalette colours = palette();
    const bool bRefused = !m_refusal.isEmpty();
    colours.setColor(QPalette::WindowText,
                     ToQColor(bRefused ? Palette().errorText : Palette().text));
    m_pSecond->setPalette(colours);
    m_pSecond->SetText(QString(bRefused ? m_refusal : m_comment).replace('\n', ' '));
}

/// Escape empties the box and then gives the keyboard back to the window.
bool CMessageStrip::eventFilter(QObject* pObject, QEvent* pEvent) {
    if (pEvent->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Escape) {
        m_pTyped->text().isEmpty() ? m_pTyped->clearFocus() : m_pTyped->clear();
        ShowRefusal({});
        return true;
    }
    return CPanel::eventFilter(pObject, pEvent);
}

void CMessageStrip::Place(const TWindowLayout& layout) {
    setGeometry(ToQRect(layout.messageStrip));
    PlaceParts();
}

void CMessageStrip::PlaceParts() {
    const int line = height() / 2;
    const int typed = fontMetrics().averageCharWidth() * CharactersOfBox;
    const int hint = fontMetrics().horizontalAdvance(m_pTyped->placeholderText());
    const int box = std::max(typed, hint) + FrameOfBox;
    m_pTyped->setGeometry(Margin, 1, box, line);
    const int known = box + 3 * Margin;
    m_pKnown->setGeometry(known, 1, width() - known - Margin, line);
    m_pSecond->setGeometry(IndentOfSecondLine, line + 1, width() - IndentOfSecondLine - Margin,
                           height() - line - 2);
}

void CMessageStrip::Retranslate() {
    m_pTyped->setPlaceholderText(ShownText(TypeMoveText));
    m_pTyped->setAccessibleName(ShownText(TypeMoveText));
    m_pTyped->setToolTip(ShownText(TypeMoveTooltip));
    m_pKnown->setAccessibleName(ShownText(KnownPositionNameText));
    m_pSecond->setAccessibleName(ShownText(CommentNameText));
    PlaceParts();
}

void CMessageStrip::Recolour() {
    ShowSecondLine();
}

void CMessageStrip::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(Palette().panel));
}

}  // namespace tarnwick
