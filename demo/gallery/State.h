#pragma once

#include <QString>

namespace quellbrook::gallery {

// The states that a control can be seen in.
enum class State { Normal, Hover, Pressed, Focused, Disabled, Empty, Error };

// As a caption: "Normal", "Hover", ..., "With error".
QString NameOf(State state);

// Whether only the pointer or the focus puts a control into it, so that no two controls can have it at a time.
bool IsFleeting(State state);

}  // namespace quellbrook::gallery
