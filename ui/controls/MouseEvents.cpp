#include "ui/controls/MouseEvents.h"

#include "ui/controls/FlatScrollBar.h"
#include "ui/platform/Guard.h"

#include <QChildEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace quellbrook {

int ButtonMask(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton: return MouseButton::Left;
    case Qt::RightButton: return MouseButton::Right;
    case Qt::MiddleButton: return MouseButton::Middle;
    default: return 0;
    }
}

MouseEvents::MouseEvents(QWidget* container) : QObject(container), m_container(container) { Watch(container); }

void MouseEvents::Watch(QObject* widget) {
    if (!widget->isWidgetType()) return;
    widget->installEventFilter(this);
    for (QObject* child : widget->children()) Watch(child);
}

bool MouseEvents::IsEcho(const QMouseEvent& event) {
    const Seen seen{event.type(), event.timestamp(), event.globalPosition(), event.button()};
    const bool echo = seen == m_last;
    m_last = seen;
    return echo;
}

bool MouseEvents::eventFilter(QObject* watched, QEvent* event) {
    const QPointer<QObject> alive(watched);
    Guard([&] { Handle(watched, event); });
    // A receiver may destroy the clicked widget, which must not handle the event afterwards.
    return !alive;
}

void MouseEvents::Handle(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ChildAdded: return Watch(static_cast<QChildEvent*>(event)->child());
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: break;
    default: return;
    }
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    const auto* widget = static_cast<QWidget*>(watched);
    if (widget != m_container && !m_container->isAncestorOf(widget)) return;
    if (IsEcho(mouse)) return;
    const QPoint at = widget->mapTo(m_container, mouse.position().toPoint());
    if (event->type() == QEvent::MouseButtonRelease)
        emit Up(ButtonMask(mouse.button()), at);
    else
        emit DoubleClick(at);
}

ScrollWheelSupport::ScrollWheelSupport(QWidget* container, FlatScrollBar* bar) : QObject(container), m_bar(bar) {
    container->installEventFilter(this);
}

bool ScrollWheelSupport::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::Wheel || !m_bar || !m_bar->IsShown()) return false;
    Guard([this, event] { m_bar->TurnWheel(static_cast<QWheelEvent*>(event)->angleDelta().y()); });
    event->accept();
    return true;
}

}  // namespace quellbrook
