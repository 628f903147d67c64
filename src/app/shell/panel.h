#pragma once
// What the parts of the window have in common: each takes its colours and its language anew while it is
// on screen, finds its place in the window's layout, and asks for commands instead of obeying them.
//
// A change of language reaches every part as the event LanguageChange, which the toolkit hands down from
// the window to all its children: `QEvent event(QEvent::LanguageChange); QApplication::sendEvent(...)`.

#include <QPalette>
#include <QWidget>

#include "base/language.h"

#include "app/view/palettes.h"
#include "app/view/rectangle.h"

namespace tarnwick {

inline QRect ToQRect(const TRectangle& rectangle) {
    return {rectangle.x, rectangle.y, rectangle.width, rectangle.height};
}

/// A text of the program in the present language.
QString ShownText(const TUserText& text);
/// The same without "&" and without the key behind a tab: for names and titles of what menus offer too.
QString PlainText(const TUserText& text);

/// The palette for the toolkit's own widgets, edit boxes, lists and menus. The window gives it to the
/// application: dialogs follow.
QPalette ToolkitPalette(const TPalette& palette);

class CPanel : public QWidget {
    Q_OBJECT

  public:
    explicit CPanel(QWidget* pParent);

    void SetPalette(const TPalette& palette);
    const TPalette& Palette() const { return m_palette; }

  protected:
    /// Sets all texts, tooltips and accessible names in the present language.
    virtual void Retranslate() = 0;
    /// The colours are others: pictures that were made in them must be made again.
    virtual void Recolour() {}
    void changeEvent(QEvent* pEvent) override;

  private:
    TPalette m_palette;
};

}  // namespace tarnwick
