#pragma once

namespace quellbrook {

namespace MousePointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
}  // namespace MousePointer

// Sets the application's mouse pointer. Overrides do not stack: after two calls with the hourglass, one call with the
// default restores it.
void SetMousePointer(int pointer);
int GetMousePointer();

}  // namespace quellbrook
