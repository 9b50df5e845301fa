#pragma once

class QWidget;

namespace quellbrook {

// Tells assistive tools that a row, which is a widget of its own, was selected or is no longer selected. A selected row
// counts as the focus of its list.
void NotifySelection(QWidget& row, bool selected);

}  // namespace quellbrook
