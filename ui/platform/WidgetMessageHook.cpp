#include "ui/platform/WidgetMessageHook.h"

#include "ui/platform/Guard.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <optional>

namespace quellbrook {

namespace {

constexpr uint32_t AltKey = 18;

uint32_t CodeOf(const QKeyEvent& event) {
    return event.key() == Qt::Key_Alt ? AltKey : static_cast<uint32_t>(event.key());
}

class ApplicationHook : public QObject, public MessageHook {
public:
    ApplicationHook() { QCoreApplication::instance()->installEventFilter(this); }

protected:
    // Qt sends a press first as a ShortcutOverride, to the focused widget and then to its parents, and then as a
    // KeyPress, to the window and then to the widgets.
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::ShortcutOverride: return OnShortcutOverride(*static_cast<QKeyEvent*>(event));
        case QEvent::KeyPress: return watched->isWindowType() && OnPress(*static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease: return watched->isWindowType() && OnRelease(*static_cast<QKeyEvent*>(event));
        default: return false;
        }
    }

private:
    // The decision about a press, made when its ShortcutOverride arrives.
    struct Verdict {
        int key;
        quint64 time;
        bool swallow;
    };

    bool OnShortcutOverride(QKeyEvent& event) {
        const bool isNew = !m_verdict || m_verdict->key != event.key() || m_verdict->time != event.timestamp();
        if (isNew) m_verdict = Verdict{event.key(), event.timestamp(), Feed(event)};
        if (m_verdict->swallow) event.accept();
        return m_verdict->swallow;
    }

    bool OnPress(const QKeyEvent& event) {
        const std::optional<Verdict> verdict = std::exchange(m_verdict, std::nullopt);
        if (verdict && verdict->key == event.key() && verdict->time == event.timestamp()) return verdict->swallow;
        return Feed(event);
    }

    // There is no KeyPress for a press that a shortcut consumed.
    bool OnRelease(const QKeyEvent& event) {
        m_verdict.reset();
        return IsCancelled(KeyMessageNumber::KeyUp, CodeOf(event));
    }

    bool Feed(const QKeyEvent& event) {
        bool swallow = IsCancelled(KeyMessageNumber::KeyDown, CodeOf(event));
        if (event.key() == Qt::Key_Delete) return swallow;
        for (const uint character : event.text().toUcs4())
            swallow = IsCancelled(KeyMessageNumber::Char, character) || swallow;
        return swallow;
    }

    bool IsCancelled(uint32_t number, uint32_t wParam) {
        KeyMessage message{number, wParam};
        Guard([&] {
            if (OnMessage) OnMessage(message);
        });
        return message.number == KeyMessageNumber::Cancelled;
    }

    std::optional<Verdict> m_verdict;
};

}  // namespace

std::unique_ptr<MessageHook> MakeWidgetMessageHook() { return std::make_unique<ApplicationHook>(); }

}  // namespace quellbrook
