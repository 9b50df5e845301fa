#pragma once

#include "demo/gallery/State.h"
#include "ui/controls/Control.h"

#include <QPoint>

#include <functional>
#include <vector>

namespace quellbrook::gallery {

// A control with a sample in it, and the states to show it in.
struct Specimen {
    using Maker = std::function<Control*(QWidget* parent)>;
    using Change = std::function<void(Control&)>;

    QString control;  // its class
    QString variant;  // what tells it from the others of its class; may be empty
    Maker make;       // in its normal state, at its own size
    std::vector<State> states = {State::Normal};
    Change empty = {};                                   // takes the sample out; needed where Empty is listed
    Change error = {};                                   // needed where Error is listed
    Change focused = {};                                 // what is done to it once it has the focus
    std::function<QPoint(const Control&)> pointer = {};  // where the pointer goes; the middle where none is given
};

// The states of what can be pressed.
inline const std::vector<State> PressableStates = {State::Normal, State::Hover, State::Pressed, State::Focused,
                                                   State::Disabled};
// The states of what can be filled in.
inline const std::vector<State> FieldStates = {State::Normal,  State::Hover,    State::Pressed,
                                               State::Focused, State::Disabled, State::Empty};

}  // namespace quellbrook::gallery
