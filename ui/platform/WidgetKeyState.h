#pragma once

namespace quellbrook {

// From now on IsKeyDown answers for the arrow keys (37 to 40, those of the keypad too) by their last press and release
// anywhere in the application. Losing the active window releases all.
void InstallWidgetKeyState();

}  // namespace quellbrook
