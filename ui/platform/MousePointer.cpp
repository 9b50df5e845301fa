#include "ui/platform/MousePointer.h"

#include <QApplication>
#include <QEvent>
#include <QList>
#include <QPointer>
#include <QWidget>

namespace quellbrook {

namespace {

int current = MousePointer::Default;
bool overridden = false;

QList<QPointer<QWidget>>& OpenDialogs() {
    static QList<QPointer<QWidget>> dialogs;
    return dialogs;
}

// Dialogs show the arrow: the override is suspended while one is open.
void ApplyPointer() {
    OpenDialogs().removeIf([](const QPointer<QWidget>& dialog) { return !dialog || !dialog->isVisible(); });
    const bool wanted =
        current == MousePointer::Hourglass && OpenDialogs().isEmpty() && !QApplication::activeModalWidget();
    if (wanted == overridden) return;
    overridden = wanted;
    if (wanted)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

class DialogWatcher : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show && event->type() != QEvent::Hide) return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget || !widget->isWindow() || !widget->isModal()) return false;
        if (event->type() == QEvent::Show) OpenDialogs().append(widget);
        ApplyPointer();
        return false;
    }
};

void WatchDialogs() {
    static QPointer<DialogWatcher> watcher;
    if (watcher || !qApp) return;
    watcher = new DialogWatcher(qApp);
    qApp->installEventFilter(watcher);
}

}  // namespace

void SetMousePointer(int pointer) {
    WatchDialogs();
    current = pointer;
    ApplyPointer();
}

int GetMousePointer() { return current; }

}  // namespace quellbrook
