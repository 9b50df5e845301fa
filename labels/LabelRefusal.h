#pragma once

#include <string>
#include <string_view>

namespace quellbrook {

// Error 5 for a template that can't be used: "The label template " and why.
[[noreturn]] void RefuseTemplate(const std::string& why);
// Error 5 for one of its fields: "The field 'name' of the label template " and why.
[[noreturn]] void RefuseField(const std::string& name, const std::string& why);

// What the template says, in quotes, shortened where it is long.
std::string Quoted(std::string_view text);

}  // namespace quellbrook
