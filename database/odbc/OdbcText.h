#pragma once

#include <string>
#include <string_view>

namespace quellbrook {

// Drivers take and return texts as UTF-16. What is malformed becomes U+FFFD.
std::u16string ToUtf16(std::string_view text);
std::string ToUtf8(std::u16string_view text);

}  // namespace quellbrook
