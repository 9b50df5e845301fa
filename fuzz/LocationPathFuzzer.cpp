// Any text is refused with an Error, or is exactly the text of its path. Two paths have the properties that LIKE and
// REPLACE in the database rely on. The first byte is the position of the second text.

#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/Fail.h"
#include "host/LocationPath.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

using namespace quellbrook;
using quellbrook::fuzz::Check;

namespace {

std::optional<LocationPath> Read(const std::string& text) {
    try {
        const LocationPath path = LocationPath().Parse(text);
        Check(path.ToText() == text, "The text of the path differs", text);
        Check(path.Append(7).ToText().starts_with(text), "An extension begins differently", text);
        return path;
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", text);
        return std::nullopt;
    }
}

// Whether the path begins with the sentinel, which occurs nowhere else, as in a department.
bool IsUsual(const LocationPath& path) {
    const auto& ids = path.Ids();
    return !ids.empty() && ids[0] == 0 && std::count(ids.begin(), ids.end(), 0) == 1;
}

void CheckPair(const LocationPath& p, const LocationPath& q) {
    const bool isExtension =
        p.Ids().size() <= q.Ids().size() && std::equal(p.Ids().begin(), p.Ids().end(), q.Ids().begin());
    const std::string text = p.ToText(), other = q.ToText();
    Check(other.starts_with(text) == isExtension, "The text is a prefix of another path", text + " " + other);
    if (!IsUsual(p) || !IsUsual(q)) return;
    const std::string moved = Replace(other, text, "/0/77/");
    std::string expected = other;
    if (isExtension) {
        LocationPath target({0, 77});
        for (size_t i = p.Ids().size(); i < q.Ids().size(); ++i) target = target.Append(q.Ids()[i]);
        expected = target.ToText();
    }
    Check(moved == expected, "REPLACE changes something else", text + " " + other);
}

// Maps bytes to digits and slashes, to reach valid paths quickly.
std::string AsPathText(const uint8_t* data, size_t size) {
    std::string text;
    for (size_t i = 0; i < size; ++i) text += "0123456789//-0/5"[data[i] % 16];
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    Read(std::string(reinterpret_cast<const char*>(data), size));
    const size_t middle = 1 + data[0] % size;
    const auto p = Read(AsPathText(data + 1, middle - 1)), q = Read(AsPathText(data + middle, size - middle));
    if (p && q) CheckPair(*p, *q);
    const auto below = Read("/0/" + AsPathText(data + 1, middle - 1) + "/");
    if (p && below) CheckPair(*p, *below);
    if (q && below) CheckPair(*below, *q);
    return 0;
}
