#pragma once

namespace quellbrook {

// Paints all visible windows at once, without running any other event.
void RepaintWindows();

}  // namespace quellbrook
