#pragma once

#include <QColor>

class QPainter;
class QRect;

namespace quellbrook {

// The colors of a push button in one of its states. An inverted button has a border and dark text instead of the
// strong background.
struct ButtonLook {
    QColor background;
    QColor border;
    QColor ink;
};

ButtonLook LookOfButton(bool enabled, bool inverted, bool hovered, bool pressed);
// The margin at each side of a caption, in pixels.
inline constexpr int ButtonMargin = 16;

void PaintButtonGround(QPainter& painter, const QRect& rect, const ButtonLook& look);

}  // namespace quellbrook
