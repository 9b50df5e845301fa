#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace quellbrook::fuzz {

// Says what does not hold of the text, and ends the run.
[[noreturn]] inline void Fail(const char* what, std::string_view text) {
    std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(text.size()), text.data());
    std::abort();
}

inline void Check(bool holds, const char* otherwise, std::string_view text) {
    if (!holds) Fail(otherwise, text);
}

}  // namespace quellbrook::fuzz
