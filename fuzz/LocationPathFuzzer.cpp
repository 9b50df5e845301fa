// Any text is refused with an Error, or it is exactly the text of the path that it gives. Two texts of paths keep what
// the database's LIKE and REPLACE build on. The first byte is where the second text begins.

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
        Check(path.ToText() == text, "Another text came back", text);
        Check(path.Append(7).ToText().starts_with(text), "An extension begins in another way", text);
        return path;
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", text);
        return std::nullopt;
    }
}

// As in a department: from the sentinel down, which stands nowhere else.
bool IsUsual(const LocationPath& path) {
    const auto& ids = path.Ids();
    return !ids.empty() && ids[0] == 0 && std::count(ids.begin(), ids.end(), 0) == 1;
}

void CheckPair(const LocationPath& p, const LocationPath& q) {
    const bool isExtension =
        p.Ids().size() <= q.Ids().size() && std::equal(p.Ids().begin(), p.Ids().end(), q.Ids().begin());
    const std::string text = p.ToText(), other = q.ToText();
    Check(other.starts_with(text) == isExtension, "The text begins another than its extensions", text + " " + other);
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

// Bytes as digits and slashes, so that paths are found soon.
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
