#pragma once

#include <functional>

namespace quellbrook {

// Whether an arrow key (37 to 40, also on the keypad) is down, based on its presses and releases anywhere in the
// application since this call. When no window is active, no key is down.
std::function<bool(int keyCode)> WidgetKeyState();

}  // namespace quellbrook
