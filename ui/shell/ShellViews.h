#pragma once

#include "ui/controls/Control.h"

#include <QString>

#include <functional>
#include <vector>

namespace quellbrook {

// One of the shell's views, and its page in the shell's parking place.
struct ShellView {
    const char* name;     // by which the view store asks for it; becomes the control's name
    const char* caption;  // of its page
    std::function<Control*(QWidget* parent)> make;
};

using ShellViews = std::vector<ShellView>;

ShellViews StandardShellViews();

}  // namespace quellbrook
