#pragma once
// The palettes' colours as the toolkit takes them.

#include <QColor>

#include "app/view/palettes.h"

namespace tarnwick {

inline QColor ToQColor(TColour colour, int alpha = 255) {
    return {colour.red, colour.green, colour.blue, alpha};
}

}  // namespace tarnwick
