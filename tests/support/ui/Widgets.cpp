#include "tests/support/ui/Widgets.h"

#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

namespace quellbrook::testing {

void ShowActive(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    ServeEvents();
}

namespace {

// Does not use QTest, which treats the point 0,0 as the middle of the widget.
void SendMouse(const QPointer<QWidget>& widget, QEvent::Type type, Qt::MouseButton button, const QPoint& at,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    static quint64 time = 1000;
    if (!widget) return;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    const QPoint inWindow = widget->mapTo(widget->window(), at);
    QMouseEvent event(type, at, inWindow, widget->mapToGlobal(at), button, held, modifiers);
    event.setTimestamp(++time);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}

void PressAndRelease(QWidget* widget, Qt::MouseButton button, const QPoint& at, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWidget> alive(widget);
    SendMouse(alive, QEvent::MouseButtonPress, button, at, modifiers);
    SendMouse(alive, QEvent::MouseButtonRelease, button, at, modifiers);
}

}  // namespace

void Click(QWidget* widget) { Click(widget, widget->rect().center()); }
void Click(QWidget* widget, const QPoint& at, Qt::KeyboardModifiers modifiers) {
    PressAndRelease(widget, Qt::LeftButton, at, modifiers);
}
void RightClick(QWidget* widget) { RightClick(widget, widget->rect().center()); }
void RightClick(QWidget* widget, const QPoint& at) { PressAndRelease(widget, Qt::RightButton, at, Qt::NoModifier); }
void DoubleClick(QWidget* widget) { DoubleClick(widget, widget->rect().center()); }
void DoubleClick(QWidget* widget, const QPoint& at) { DoubleClick(widget, at, Qt::LeftButton); }

void DoubleClick(QWidget* widget, const QPoint& at, Qt::MouseButton button) {
    const QPointer<QWidget> alive(widget);
    PressAndRelease(widget, button, at, Qt::NoModifier);
    SendMouse(alive, QEvent::MouseButtonDblClick, button, at);
    SendMouse(alive, QEvent::MouseButtonRelease, button, at);
}

void MousePress(QWidget* widget, const QPoint& at, Qt::MouseButton button) {
    SendMouse(widget, QEvent::MouseButtonPress, button, at);
}

void MouseRelease(QWidget* widget, const QPoint& at, Qt::MouseButton button) {
    SendMouse(widget, QEvent::MouseButtonRelease, button, at);
}

void Turn(QWidget* widget, int angleDelta) {
    const QPointF at = widget->rect().center();
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, angleDelta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}

void Press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(widget, key, modifiers); }

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* focused = QApplication::focusWidget();
    if (!focused) {
        ADD_FAILURE() << "No widget is focused";
        return;
    }
    QTest::keyClick(focused, key, modifiers);
}

void Type(QWidget* widget, const QString& text) { QTest::keyClicks(widget, text); }

void SendKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

void SendText(QWidget& window, const char* text) {
    for (; *text; ++text) QTest::keyClick(window.windowHandle(), *text);
}

void ServeEvents() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QImage Grab(QWidget& widget) { return widget.grab().toImage(); }

QColor PixelAt(const QImage& picture, const QPoint& at) {
    const qreal ratio = picture.devicePixelRatio();
    return picture.pixelColor(qRound(at.x() * ratio), qRound(at.y() * ratio));
}

bool HasColor(const QImage& picture, const QRect& part, const QColor& color) {
    const qreal ratio = picture.devicePixelRatio();
    const QRect pixels = QRect(qRound(part.x() * ratio), qRound(part.y() * ratio), qRound(part.width() * ratio),
                               qRound(part.height() * ratio))
                             .intersected(picture.rect());
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            if (picture.pixelColor(x, y).rgb() == color.rgb()) return true;
    return false;
}

namespace {

// A field's inner widget has the same name as its control.
std::string ControlName(const QWidget* widget) {
    while (widget->objectName().isEmpty() && widget->parentWidget()) widget = widget->parentWidget();
    return widget->objectName().toStdString();
}

}  // namespace

std::vector<std::string> TabOrder(QWidget& window) {
    std::vector<std::string> names;
    QWidget* widget = window.nextInFocusChain();
    for (; widget && widget != &window; widget = widget->nextInFocusChain()) {
        const bool stop = (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() &&
                          widget->isVisibleTo(&window) && !widget->focusProxy();
        if (stop) names.push_back(ControlName(widget));
    }
    return names;
}

}  // namespace quellbrook::testing
