#pragma once

#include <string_view>
#include <vector>

namespace quellbrook {

// The strokes of an icon on the 24 px grid, as SVG path data; empty for an unknown name.
std::string_view IconPath(std::string_view name);

// All names with strokes.
std::vector<std::string_view> IconPathNames();

}  // namespace quellbrook
