#pragma once

#include <QKeyEvent>
#include <QObject>

#include <string>
#include <vector>

namespace quellbrook::testing {

// Records the key events of an object, or of all windows of the application.
class KeyWatch : public QObject {
public:
    // Records all events of the object that pass the application's event filters.
    explicit KeyWatch(QObject& watched);
    // Records presses and releases at the windows, ahead of all hooks installed so far.
    KeyWatch();

    // One line per event: kind, key, modifiers, text, auto-repeat.
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
