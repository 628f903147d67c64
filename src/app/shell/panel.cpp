#include "app/shell/panel.h"

#include <QEvent>

#include "app/shell/colours.h"

namespace tarnwick {
namespace {

/// Between the two: `share` percent of the first.
QColor Mixed(const QColor& one, const QColor& other, int share) {
    const auto mix = [share](int a, int b) { return (a * share + b * (100 - share)) / 100; };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

}  // namespace

QString ShownText(const TUserText& text) {
    return QString::fromUtf8(UserText(text));
}

QString PlainText(const TUserText& text) {
    QString plain = ShownText(text).section('\t', 0, 0);
    plain.remove('&');
    while (plain.endsWith('.')) {
        plain.chop(1);
    }
    return plain;
}

QPalette ToolkitPalette(const TPalette& palette) {
    const QColor panel = ToQColor(palette.panel);
    const QColor window = ToQColor(palette.window);
    const QColor text = ToQColor(palette.text);
    QPalette result(text, panel, Mixed(panel, Qt::white, 70), Mixed(panel, text, 60),
                    ToQColor(palette.border), text, text, window, panel);
    result.setColor(QPalette::AlternateBase, Mixed(window, panel, 60));
    result.setColor(QPalette::Highlight, ToQColor(palette.selectedMark));
    result.setColor(QPalette::HighlightedText, text);
    result.setColor(QPalette::Link, ToQColor(palette.link));
    result.setColor(QPalette::PlaceholderText, ToQColor(palette.faintText));
    result.setColor(QPalette::ToolTipBase, window);
    result.setColor(QPalette::ToolTipText, text);
    const QColor grey = Mixed(text, panel, 45);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        result.setColor(QPalette::Disabled, role, grey);
    }
    return result;
}

CPanel::CPanel(QWidget* pParent) : QWidget(pParent), m_palette(LightPalette) {
    setPalette(ToolkitPalette(m_palette));
}

void CPanel::SetPalette(const TPalette& palette) {
    m_palette = palette;
    setPalette(ToolkitPalette(palette));
    Recolour();
    update();
}

void CPanel::changeEvent(QEvent* pEvent) {
    if (pEvent->type() == QEvent::LanguageChange) {
        Retranslate();
        update();
    }
    QWidget::changeEvent(pEvent);
}

}  // namespace tarnwick
