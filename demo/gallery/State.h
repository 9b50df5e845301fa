#pragma once

#include <QString>

namespace quellbrook::gallery {

// The visible states of a control.
enum class State { Normal, Hover, Pressed, Focused, Disabled, Empty, Error };

// The caption: "Normal", "Hover", ..., "With error".
QString NameOf(State state);

// Whether the state depends on the pointer or the focus, so that only one control can have it at a time.
bool IsFleeting(State state);

}  // namespace quellbrook::gallery
