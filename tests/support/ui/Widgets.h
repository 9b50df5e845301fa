#pragma once

#include <QApplication>
#include <QImage>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quellbrook::testing {

// The descendant of that name, the first one of a control array. Fails the test and returns null if there is none.
template <typename T = QWidget>
T* Find(QWidget& root, const char* objectName) {
    T* found = root.findChild<T*>(QString::fromUtf8(objectName));
    if (!found) ADD_FAILURE() << "No such control: " << objectName;
    return found;
}

// Every descendant of that name in order of creation: a control array.
template <typename T = QWidget>
std::vector<T*> FindAll(QWidget& root, const char* objectName) {
    const QList<T*> found = root.findChildren<T*>(QString::fromUtf8(objectName));
    return std::vector<T*>(found.begin(), found.end());
}

// Shows a window and activates it.
void ShowActive(QWidget& window);

// Mouse events as the platform sends them, to this widget, by default at its center: press and release; a double click
// is press, release, double click, release.
void Click(QWidget* widget);
void Click(QWidget* widget, const QPoint& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void RightClick(QWidget* widget);
void RightClick(QWidget* widget, const QPoint& at);
void DoubleClick(QWidget* widget);
void DoubleClick(QWidget* widget, const QPoint& at);
void DoubleClick(QWidget* widget, const QPoint& at, Qt::MouseButton button);
void MousePress(QWidget* widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
void MouseRelease(QWidget* widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
void Turn(QWidget* widget, int angleDelta);  // the wheel; 120 is one notch away from the user

// Real key events: to the widget, or to the focused one.
void Press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(QWidget* widget, const QString& text);

// Keys as the platform sends them to the window: an open list or menu receives them instead.
void SendKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void SendText(QWidget& window, const char* text);

// Processes the pending events.
void ServeEvents();

// The widget as painted, in device pixels.
QImage Grab(QWidget& widget);
// The color at a point in device-independent pixels.
QColor PixelAt(const QImage& picture, const QPoint& at);
// Whether any pixel of this part has exactly this color.
bool HasColor(const QImage& picture, const QRect& part, const QColor& color);

// Names of the focusable widgets in tab order, beginning with the window's first.
std::vector<std::string> TabOrder(QWidget& window);

}  // namespace quellbrook::testing
