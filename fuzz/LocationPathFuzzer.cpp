#include "base/Error.h"
#include "host/LocationPath.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

// A text is refused with an Error, or it is exactly the text of the path that it gives.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const quellbrook::LocationPath path = quellbrook::LocationPath().Parse(text);
        if (path.ToText() != text) std::abort();
        if (!path.Append(7).ToText().starts_with(text)) std::abort();
    } catch (const quellbrook::Error&) {
    }
    return 0;
}
