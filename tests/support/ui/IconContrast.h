#pragma once

#include "tests/support/ui/Widgets.h"
#include "ui/style/Theme.h"

namespace quellbrook::testing {

// The least contrast of a graphic to its background.
inline constexpr double GraphicContrast = 3.0;

// The color of the icon in this part of a picture: the pixel with the highest contrast to the part's corner, which
// shows the background. Without an icon it is the background.
inline QColor ColorOfIcon(const QImage& picture, const QRect& part) {
    const QColor background = PixelAt(picture, part.topLeft());
    QColor strongest = background;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor color = PixelAt(picture, QPoint(x, y));
            if (Theme::Contrast(color, background) > Theme::Contrast(strongest, background)) strongest = color;
        }
    return strongest;
}

inline double ContrastOfIcon(const QImage& picture, const QRect& part) {
    return Theme::Contrast(ColorOfIcon(picture, part), PixelAt(picture, part.topLeft()));
}

}  // namespace quellbrook::testing
