#pragma once

class QSize;
class QWidget;

namespace quellbrook {

namespace FocusRing {

// From now on, a ring surrounds the control while it or its focus proxy has the focus: 2 px wide, 1 px outside the
// control. The ring is a QFocusFrame over the control's window or scroll area, and there is at most one.
void Show(QWidget* control);
// The ring surrounds a part of this size at the center of the control, not all of it.
void SetSize(QWidget* control, const QSize& size);

}  // namespace FocusRing

}  // namespace quellbrook
