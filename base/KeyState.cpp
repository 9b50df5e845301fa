#include "base/KeyState.h"

namespace quellbrook {

namespace {

KeyStateProbe& Installed() {
    static KeyStateProbe probe;
    return probe;
}

}  // namespace

bool IsKeyDown(int keyCode) { return Installed() && Installed()(keyCode); }
void SetKeyStateProbe(KeyStateProbe probe) { Installed() = std::move(probe); }

}  // namespace quellbrook
