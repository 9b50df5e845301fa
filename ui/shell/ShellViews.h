#pragma once

#include "ui/controls/Control.h"

#include <QString>

#include <functional>
#include <vector>

namespace quellbrook {

// One of the shell's views. While hidden it is on a page of viewHolder.
struct ShellView {
    const char* name;     // its name in the view store, and the control's name
    const char* caption;  // of the page
    std::function<Control*(QWidget* parent)> make;
};

using ShellViews = std::vector<ShellView>;

ShellViews StandardShellViews();

}  // namespace quellbrook
