#include "base/DateTime.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

// A text gives nothing, or a moment whose own text gives the same moment.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto moment = quellbrook::DateTime::Parse(text);
    if (moment && quellbrook::DateTime::Parse(moment->ToText()) != moment) std::abort();
    return 0;
}
