#pragma once

namespace quellbrook {

namespace MousePointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
}  // namespace MousePointer

// The pointer of the whole screen. At most one override at a time: two calls with the hourglass and one with the
// default leave none.
void SetMousePointer(int pointer);
int GetMousePointer();

}  // namespace quellbrook
