// Any text is refused or is a time on an existing day. Its text has the fixed format and parses to the same time.
// Times and their texts have the same order. The first byte is the position of a second text.

#include "base/DateTime.h"
#include "fuzz/Fail.h"

#include <algorithm>
#include <cstdint>
#include <string>

using quellbrook::DateTime;
using quellbrook::fuzz::Check;

namespace {

std::optional<DateTime> Read(const std::string& text) {
    const auto moment = DateTime::Parse(text);
    if (!moment) return moment;
    const std::string own = moment->ToText();
    Check(own.size() == 23 && own[4] == '-' && own[7] == '-' && own[10] == 'T' && own[13] == ':' && own[16] == ':' &&
              own[19] == '.' && own.find_first_not_of("0123456789-T:.") == std::string::npos,
          "The text has another form", own);
    Check(DateTime::Parse(own) == moment, "The text parses to another time", own);
    Check(DateTime::FromParts(moment->ToParts()) == *moment, "The parts are another time", own);
    const size_t kept = std::min<size_t>(text.size(), 10);
    Check(own.compare(0, kept, text, 0, kept) == 0, "Another day was read", text);
    return moment;
}

// Maps bytes to the characters of a time, to reach valid times quickly.
std::string AsMomentText(const uint8_t* data, size_t size) {
    constexpr const char* form = "0000-00-00T00:00:00.000";
    std::string text;
    for (size_t i = 0; i < size && i < 30; ++i) {
        char c = form[std::min<size_t>(i, 22)];
        if (c == '0') c = static_cast<char>('0' + data[i] % 10);
        text += data[i] >= 250 ? static_cast<char>(data[i] / 2) : c;
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    Read(std::string(reinterpret_cast<const char*>(data), size));
    const size_t middle = 1 + data[0] % size;
    const auto first = Read(AsMomentText(data + 1, middle - 1));
    const auto second = Read(AsMomentText(data + middle, size - middle));
    if (first && second)
        Check((*first < *second) == (first->ToText() < second->ToText()), "Texts sort differently", first->ToText());
    return 0;
}
