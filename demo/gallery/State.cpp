#include "demo/gallery/State.h"

namespace quellbrook::gallery {

QString NameOf(State state) {
    switch (state) {
    case State::Normal: return QStringLiteral("Normal");
    case State::Hover: return QStringLiteral("Hover");
    case State::Pressed: return QStringLiteral("Pressed");
    case State::Focused: return QStringLiteral("Focused");
    case State::Disabled: return QStringLiteral("Disabled");
    case State::Empty: return QStringLiteral("Empty");
    case State::Error: return QStringLiteral("With error");
    }
    return QString();
}

bool IsFleeting(State state) { return state == State::Hover || state == State::Pressed || state == State::Focused; }

}  // namespace quellbrook::gallery
