#include "ui/platform/KeyRepetition.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace quellbrook {

namespace {

int releasedKey = 0;
quint64 releaseTime = 0;

class ReleaseWatch : public QObject {
public:
    explicit ReleaseWatch(QObject* parent) : QObject(parent) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyRelease) {
            const auto& release = *static_cast<QKeyEvent*>(event);
            releasedKey = release.key();
            releaseTime = release.timestamp();
        }
        return false;
    }
};

}  // namespace

void WatchKeyRepetition() {
    static QPointer<ReleaseWatch> watch;
    if (watch) return;
    watch = new ReleaseWatch(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(watch);
}

bool IsRepetition(const QKeyEvent& press) {
    const bool followsRelease = press.key() == releasedKey && press.timestamp() == releaseTime;
    return press.isAutoRepeat() || (followsRelease && releaseTime != 0);
}

}  // namespace quellbrook
