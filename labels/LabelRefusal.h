#pragma once

#include <string>
#include <string_view>

namespace quellbrook {

// Raises error 5 for an unusable template: "The label template " and the reason.
[[noreturn]] void RefuseTemplate(const std::string& why);
// Raises error 5 for a field: "The template field 'name' " and the reason.
[[noreturn]] void RefuseField(const std::string& name, const std::string& why);

// A text of the template in quotes; a long one is shortened.
std::string Quoted(std::string_view text);

}  // namespace quellbrook
