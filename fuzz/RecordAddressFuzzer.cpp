// Any text is refused with a short printable message that quotes it, or is an address. The text of the address is
// within the length limit, parses to the same address, and differs from the input only in case and a trailing slash.

#include "app/records/RecordAddress.h"
#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/Fail.h"

#include <algorithm>
#include <cstdint>
#include <string>

using namespace quellbrook;
using quellbrook::fuzz::Check;

namespace {

bool IsPrintable(const std::string& sentence) {
    return std::all_of(sentence.begin(), sentence.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

void Read(const std::string& text) {
    try {
        const RecordAddress address = ParseRecordAddress(text);
        const std::string own = address.ToText();
        Check(address.number >= 1, "The number is out of its range", text);
        Check(text.size() <= LongestRecordAddress, "The text is too long", text);
        Check(ParseRecordAddress(own) == address, "The text of the address parses differently", own);
        Check(EqualsNoCase(text, own) || EqualsNoCase(text, own + "/"), "Another address was read", text);
        Check(HasRecordScheme(text), "It does not begin with the scheme", text);
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", text);
        const std::string& sentence = error.Description();
        Check(sentence.size() < 300 && IsPrintable(sentence), "The message cannot be shown", text);
    }
}

// Parts of addresses in any order, with bytes of the input between them, to reach valid addresses quickly.
std::string AsAddressText(const uint8_t* data, size_t size) {
    static const std::string parts[] = {"tessarine://", "TESSARINE://", "miproperty", "mivehicle", "/open/", "/", "1",
                                        "2147483647",   "2147483648",   "0",          "42",        "%34"};
    std::string text;
    for (size_t i = 0; i < size; ++i)
        text += data[i] < std::size(parts) * 16 ? parts[data[i] / 16] : std::string(1, static_cast<char>(data[i]));
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Read(std::string(reinterpret_cast<const char*>(data), size));
    Read(AsAddressText(data, size));
    Read("tessarine://miproperty/open/" + std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
