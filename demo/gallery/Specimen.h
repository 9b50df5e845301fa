#pragma once

#include "demo/gallery/State.h"
#include "ui/controls/Control.h"

#include <QPoint>

#include <functional>
#include <vector>

namespace quellbrook::gallery {

// A control with sample content and the states to show.
struct Specimen {
    using Maker = std::function<Control*(QWidget* parent)>;
    using Change = std::function<void(Control&)>;

    QString control;  // class name
    QString variant;  // distinguishes it from others of its class; may be empty
    Maker make;       // creates it in its normal state and at its own size
    std::vector<State> states = {State::Normal};
    Change empty = {};                                   // removes the sample; required for State::Empty
    Change error = {};                                   // required for State::Error
    Change focused = {};                                 // applied when it has the focus
    std::function<QPoint(const Control&)> pointer = {};  // where the pointer goes; the center by default
};

// The states of a button.
inline const std::vector<State> PressableStates = {State::Normal, State::Hover, State::Pressed, State::Focused,
                                                   State::Disabled};
// The states of an input field.
inline const std::vector<State> FieldStates = {State::Normal,  State::Hover,    State::Pressed,
                                               State::Focused, State::Disabled, State::Empty};

}  // namespace quellbrook::gallery
