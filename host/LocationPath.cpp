#include "host/LocationPath.h"

#include "base/Error.h"

#include <algorithm>
#include <charconv>

namespace quellbrook {

namespace {

constexpr size_t mostDigits = 11;  // with the sign

[[noreturn]] void RaiseNoPath(std::string_view text) {
    Raise(ErrorNumber::General, "LocationPath.Parse",
          "'" + std::string(text) + "' is not the path of a storage location.");
}

// Whether the digits are those that ToText writes for the number.
bool IsCanonical(std::string_view digits, int32_t id) {
    char buffer[mostDigits];
    const char* end = std::to_chars(buffer, buffer + mostDigits, id).ptr;
    return digits == std::string_view(buffer, end);
}

}  // namespace

LocationPath LocationPath::Append(int32_t id) const {
    std::vector<int32_t> ids;
    ids.reserve(m_ids.size() + 1);
    ids = m_ids;
    ids.push_back(id);
    return LocationPath(std::move(ids));
}

std::string LocationPath::ToText() const {
    if (m_ids.empty()) return {};
    std::string text = "/";
    text.reserve(1 + m_ids.size() * (mostDigits + 1));
    char digits[mostDigits];
    for (const int32_t id : m_ids) {
        text.append(digits, std::to_chars(digits, digits + mostDigits, id).ptr);
        text += '/';
    }
    return text;
}

LocationPath LocationPath::Parse(std::string_view text) const {
    std::vector<int32_t> ids;
    if (text.empty()) return LocationPath();
    ids.reserve(static_cast<size_t>(std::count(text.begin(), text.end(), '/')));
    std::string_view rest = text;
    if (rest.front() != '/' || rest.size() == 1) RaiseNoPath(text);
    rest.remove_prefix(1);
    while (!rest.empty()) {
        int32_t id = 0;
        const auto [end, failure] = std::from_chars(rest.data(), rest.data() + rest.size(), id);
        const auto length = static_cast<size_t>(end - rest.data());
        if (failure != std::errc() || length == rest.size() || *end != '/') RaiseNoPath(text);
        if (!IsCanonical(rest.substr(0, length), id)) RaiseNoPath(text);
        ids.push_back(id);
        rest.remove_prefix(length + 1);
    }
    return LocationPath(std::move(ids));
}

bool LocationPath::HasRepeatedId() const {
    std::vector<int32_t> sorted = m_ids;
    std::sort(sorted.begin(), sorted.end());
    return std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end();
}

}  // namespace quellbrook
