#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace quellbrook::fuzz {

// Reports the fault in the text and ends the run.
[[noreturn]] inline void Fail(const char* what, std::string_view text) {
    std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(text.size()), text.data());
    std::abort();
}

inline void Check(bool isRight, const char* otherwise, std::string_view text) {
    if (!isRight) Fail(otherwise, text);
}

}  // namespace quellbrook::fuzz
