#include "ui/accessibility/RowsAccessible.h"

#include <QWidget>

#include <algorithm>

namespace quellbrook {

namespace {

int TopOf(const QAccessibleInterface* child) { return qobject_cast<const QWidget*>(child->object())->y(); }

}  // namespace

QList<QAccessibleInterface*> RowsAccessible::Children() const {
    QList<QAccessibleInterface*> children;
    for (int i = 0; i < childCount(); ++i) children.push_back(QAccessibleWidget::child(i));
    std::stable_sort(children.begin(), children.end(),
                     [](const auto* a, const auto* b) { return TopOf(a) < TopOf(b); });
    return children;
}

QAccessibleInterface* RowsAccessible::child(int index) const { return Children().value(index); }

int RowsAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (!child) return -1;
    const QList<QAccessibleInterface*> children = Children();
    const auto found = std::find_if(children.begin(), children.end(),
                                    [child](const auto* other) { return other->object() == child->object(); });
    return found == children.end() ? -1 : static_cast<int>(found - children.begin());
}

}  // namespace quellbrook
