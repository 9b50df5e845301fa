#pragma once

class QKeyEvent;

namespace quellbrook {

// Whether a press of this key acts on a button, a link or a tab: Space or either Enter key, once a press.
bool IsActivation(const QKeyEvent& event);

// The code by which a key goes in our events: 13 for both Enter keys, 37 to 40 for the arrows, those of the keypad too,
// the capital letter's or digit's code for these, 8, 9, 27, 32, 46; 0 for any other.
int KeyCodeOf(const QKeyEvent& event);

}  // namespace quellbrook
