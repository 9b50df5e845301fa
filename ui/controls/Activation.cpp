#include "ui/controls/Activation.h"

#include "ui/platform/KeyRepetition.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace quellbrook {

bool IsActivation(const QKeyEvent& event) {
    if (IsRepetition(event) || (event.modifiers() & ~Qt::KeypadModifier)) return false;
    return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    const bool printable = (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
    if (printable) return key;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab: return 9;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_Delete: return 46;
    default: return 0;
    }
}

bool SendMenuKey(QWidget& widget, const QKeyEvent& event) {
    if (event.key() != Qt::Key_F10 || event.modifiers() != Qt::ShiftModifier) return false;
    const QPoint at = widget.rect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, at, widget.mapToGlobal(at));
    QCoreApplication::sendEvent(&widget, &menu);
    return true;
}

}  // namespace quellbrook
