#pragma once

#include <QApplication>
#include <QHelpEvent>
#include <QString>
#include <QToolTip>

namespace quellbrook::testing {

// The tooltip that appears when the pointer rests at this position; empty if none does.
inline QString TooltipAt(QWidget* widget, const QPoint& at) {
    // A tooltip that ends stays on the screen for a moment.
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel")) delete window;
    QHelpEvent event(QEvent::ToolTip, at, widget->mapToGlobal(at));
    QApplication::sendEvent(widget, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

}  // namespace quellbrook::testing
