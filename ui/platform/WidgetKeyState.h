#pragma once

#include <functional>

namespace quellbrook {

// Whether an arrow key (37 to 40, the keypad's too) is down, by its last press and release anywhere in the application
// since this call. When no window is active, no key is down.
std::function<bool(int keyCode)> WidgetKeyState();

}  // namespace quellbrook
