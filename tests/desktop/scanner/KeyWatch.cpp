#include "tests/desktop/scanner/KeyWatch.h"

#include <QCoreApplication>

#include <algorithm>

namespace quellbrook::testing {

namespace {

const char* KindOf(const QKeyEvent& event) {
    if (event.type() == QEvent::KeyPress) return "press";
    return event.type() == QEvent::KeyRelease ? "release" : "ask";
}

std::string LineOf(const QKeyEvent& event) {
    return QStringLiteral("%1 key %2 modifiers %3 text %4%5")
        .arg(QLatin1String(KindOf(event)))
        .arg(event.key(), 0, 16)
        .arg(event.modifiers().toInt(), 0, 16)
        .arg(QString::fromLatin1(event.text().toUtf8().toHex()), QLatin1String(event.isAutoRepeat() ? " repeated" : ""))
        .toStdString();
}

}  // namespace

KeyWatch::KeyWatch(QObject& watched) : m_ofWindows(false) { watched.installEventFilter(this); }

KeyWatch::KeyWatch() : m_ofWindows(true) { QCoreApplication::instance()->installEventFilter(this); }

int KeyWatch::Repeats() const {
    return static_cast<int>(std::count_if(
        m_seen.begin(), m_seen.end(), [](const Seen& seen) { return seen.type == QEvent::KeyPress && seen.isRepeat; }));
}

int KeyWatch::Count(QEvent::Type type, int key) const {
    return static_cast<int>(std::count_if(m_seen.begin(), m_seen.end(),
                                          [&](const Seen& seen) { return seen.type == type && seen.key == key; }));
}

bool KeyWatch::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       (event->type() == QEvent::ShortcutOverride && !m_ofWindows);
    if (!isKey || (m_ofWindows && !watched->isWindowType())) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    m_seen.push_back({key->type(), key->key(), key->isAutoRepeat()});
    m_lines.push_back(LineOf(*key));
    return false;
}

}  // namespace quellbrook::testing
