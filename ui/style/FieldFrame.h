#pragma once

class QPainter;
class QRect;
class QWidget;

namespace quellbrook {

// Paints the background and border of a field over the whole widget.
void PaintField(QWidget& widget, bool enabled);
void PaintField(QPainter& painter, const QRect& rect, bool enabled);

}  // namespace quellbrook
