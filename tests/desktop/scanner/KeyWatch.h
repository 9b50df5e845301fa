#pragma once

#include <QKeyEvent>
#include <QObject>

#include <string>
#include <vector>

namespace quellbrook::testing {

// Keeps the key events that come to an object, or to the windows of the whole application.
class KeyWatch : public QObject {
public:
    // Everything that is asked of or sent to the object: what event filters of the application have left.
    explicit KeyWatch(QObject& watched);
    // Presses and releases as they come to the windows; before any hook that is in place by now.
    KeyWatch();

    // One line an event: kind, key, modifiers, text, whether it is a repeated one.
    const std::vector<std::string>& Lines() const { return m_lines; }
    int Presses(int key) const { return Count(QEvent::KeyPress, key); }
    int Releases(int key) const { return Count(QEvent::KeyRelease, key); }
    int Repeats() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Seen {
        QEvent::Type type;
        int key;
        bool isRepeat;
    };
    int Count(QEvent::Type type, int key) const;

    const bool m_ofWindows;
    std::vector<Seen> m_seen;
    std::vector<std::string> m_lines;
};

}  // namespace quellbrook::testing
