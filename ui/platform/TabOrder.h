#pragma once

class QWidget;

namespace quellbrook {

// Moves a widget, with everything focusable inside it, before its siblings in the tab order.
void MoveFirstInTabOrder(QWidget* widget);

}  // namespace quellbrook
