#pragma once

class QWidget;

namespace quellbrook {

// Paints the ground and the border of a field over the whole widget.
void PaintField(QWidget& widget, bool enabled);

}  // namespace quellbrook
