#pragma once

#include "base/MessageHook.h"

#include <memory>

namespace quellbrook {

// A hook on the keys of the whole application. Each press causes a key-down message and, for a key with a text, a
// character message; each release causes a key-up message. The hook precedes all shortcuts and widgets. wParam of a key
// is 18 for Alt and Qt's key code otherwise; of a character it is the code point. Delete has no character message.
// Input methods are not hooked.
std::unique_ptr<MessageHook> MakeWidgetMessageHook();

}  // namespace quellbrook
