#pragma once

#include <functional>

namespace quellbrook {

// Whether a key is held down at this moment: 37 to 40 are Left, Up, Right and Down, by their last press and release.
using KeyStateProbe = std::function<bool(int keyCode)>;

bool IsKeyDown(int keyCode);  // false while no probe is installed
void SetKeyStateProbe(KeyStateProbe probe);

}  // namespace quellbrook
