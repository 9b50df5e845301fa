#include "ui/platform/WidgetKeyState.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <array>
#include <memory>

namespace quellbrook {

namespace {

constexpr int FirstKey = 37;

class KeyWatcher : public QObject {
public:
    bool IsDown(int keyCode) const {
        const int position = keyCode - FirstKey;
        return position >= 0 && position < static_cast<int>(m_down.size()) && m_down[static_cast<size_t>(position)];
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress: Note(*static_cast<QKeyEvent*>(event), true); break;
        case QEvent::KeyRelease: Note(*static_cast<QKeyEvent*>(event), false); break;
        case QEvent::ApplicationDeactivate: m_down.fill(false); break;
        default: break;
        }
        return false;
    }

private:
    void Note(const QKeyEvent& event, bool down) {
        static_assert(Qt::Key_Up == Qt::Key_Left + 1 && Qt::Key_Down == Qt::Key_Left + 3);
        const int position = event.key() - Qt::Key_Left;
        if (position < 0 || position >= static_cast<int>(m_down.size())) return;
        if (!down && event.isAutoRepeat()) return;
        m_down[static_cast<size_t>(position)] = down;
    }

    std::array<bool, 4> m_down = {};
};

}  // namespace

std::function<bool(int)> WidgetKeyState() {
    const auto watcher = std::make_shared<KeyWatcher>();
    QCoreApplication::instance()->installEventFilter(watcher.get());
    return [watcher](int keyCode) { return watcher->IsDown(keyCode); };
}

}  // namespace quellbrook
