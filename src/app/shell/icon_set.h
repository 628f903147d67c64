#pragma once
// The pictures of buttons and of the program. Buttons are line drawings in one colour, which is that of
// the text around them, so that they show on light and dark panels alike.

#include <QIcon>
#include <QPixmap>

namespace tarnwick {

/// Makes the pictures of the library known to the toolkit; the classes that paint them call it.
void LoadPictures();

/// A button's picture by the name of its file: previous, next, back, forward, save, set_position,
/// threads, rotate, tag, start, pause, stop, variant, options, list, enlarge. A name without a file
/// gives an empty picture.
QPixmap ButtonPixmap(const QString& name, int size, qreal devicePixelRatio, const QColor& colour);

enum class TProgramIcon {
    Normal,
    Running,   ///< Something is being solved.
    Finished,  ///< The last solve gave a result.
};
QIcon ProgramIcon(TProgramIcon state);

}  // namespace tarnwick
