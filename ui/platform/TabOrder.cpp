#include "ui/platform/TabOrder.h"

#include <QWidget>

#include <algorithm>
#include <vector>

namespace quellbrook {

namespace {

// Qt orders only focusable widgets, and it moves the children of a focusable widget with a focus proxy together with
// the widget.
bool IsOrdered(const QWidget* widget, const QWidget* parent) {
    if (widget->focusPolicy() == Qt::NoFocus) return false;
    for (const QWidget* around = widget->parentWidget(); around && around != parent; around = around->parentWidget())
        if (around->focusPolicy() != Qt::NoFocus && around->focusProxy() && around->isAncestorOf(around->focusProxy()))
            return false;
    return true;
}

// Qt's tab order is a ring, and Qt ignores a change that affects only its first widget. A parent that accepts the focus
// marks the start of the ring.
void BeginWith(QWidget* parent, QWidget* first) {
    const Qt::FocusPolicy policy = parent->focusPolicy();
    parent->setFocusPolicy(Qt::StrongFocus);
    QWidget::setTabOrder(parent, first);
    parent->setFocusPolicy(policy);
}

}  // namespace

void MoveFirstInTabOrder(QWidget* widget) {
    QWidget* parent = widget->parentWidget();
    if (!parent || widget->isWindow()) return;

    std::vector<QWidget*> inside;
    bool isWholeRing = !parent->focusProxy();
    for (QWidget* next = parent->nextInFocusChain(); next && next != parent; next = next->nextInFocusChain()) {
        if (!parent->isAncestorOf(next))
            isWholeRing = isWholeRing && next->focusPolicy() == Qt::NoFocus;
        else if (IsOrdered(next, parent))
            inside.push_back(next);
    }
    std::stable_partition(inside.begin(), inside.end(), [widget](const QWidget* candidate) {
        return candidate == widget || widget->isAncestorOf(candidate);
    });

    if (isWholeRing && !inside.empty()) BeginWith(parent, inside.front());
    for (size_t i = 1; i < inside.size(); ++i) QWidget::setTabOrder(inside[i - 1], inside[i]);
}

}  // namespace quellbrook
