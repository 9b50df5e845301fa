#include "ui/common/FormLoop.h"

#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <QWidget>

namespace quellbrook {

namespace {

class HideWatcher : public QObject {
public:
    explicit HideWatcher(QEventLoop& loop) : m_loop(loop) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous()) m_loop.quit();
        return false;
    }

private:
    QEventLoop& m_loop;
};

}  // namespace

void RunUntilClosed(QWidget& form) {
    const QPointer<QWidget> alive(&form);
    QEventLoop loop;
    HideWatcher watcher(loop);
    form.show();
    form.installEventFilter(&watcher);
    QObject::connect(&form, &QObject::destroyed, &loop, &QEventLoop::quit);
    if (form.isVisible()) loop.exec();
    if (alive) alive->hide();
}

}  // namespace quellbrook
