#pragma once

class QKeyEvent;
class QWidget;

namespace quellbrook {

// Whether this key press activates a button or a link: Space or either Enter key without modifiers, not a repeat.
bool IsActivation(const QKeyEvent& event);

namespace KeyCode {
inline constexpr int Enter = 13, Left = 37, Up = 38, Right = 39, Down = 40, A = 65;
}
// The code of a key in our events: 13 for both Enter keys, 37 to 40 for the arrows, also those of the keypad, the code
// of the capital letter or digit, 8, 9, 27, 32, 46; 0 for any other.
int KeyCodeOf(const QKeyEvent& event);

// Shift+F10 acts as the menu key, which not every platform does by itself: sends the widget a context menu event and
// returns true. Returns false for any other key.
bool SendMenuKey(QWidget& widget, const QKeyEvent& event);

}  // namespace quellbrook
