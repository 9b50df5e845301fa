#pragma once

class QWidget;

namespace quellbrook {

// Paints the background and border of a field over the whole widget.
void PaintField(QWidget& widget, bool enabled);

}  // namespace quellbrook
