#include "ui/controls/AccessibleEvents.h"

#include <QAccessible>
#include <QWidget>

namespace quellbrook {

void NotifySelection(QWidget& row, bool selected) {
    if (!QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent state(&row, changed);
    QAccessible::updateAccessibility(&state);
    if (!selected) return;
    QAccessibleEvent selection(&row, QAccessible::Selection);
    QAccessible::updateAccessibility(&selection);
    if (row.hasFocus()) return;  // Qt has already reported the focus
    QAccessibleEvent focus(&row, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

}  // namespace quellbrook
