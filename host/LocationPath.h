#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quellbrook {

// A materialised path: the identifiers of the containers from the sentinel 0 down. Its text, as the column Path holds
// it, is "/" + the identifiers in decimal joined by "/" + "/"; the empty path has the empty text. The text of
// p.Append(n) begins with the text of p, and begins no other text than those of p's extensions; it can stand nowhere in
// another text but at its start.
class LocationPath {
public:
    LocationPath() = default;
    explicit LocationPath(std::vector<int32_t> ids) : m_ids(std::move(ids)) {}

    LocationPath Append(int32_t id) const;
    const std::vector<int32_t>& Ids() const { return m_ids; }
    std::string ToText() const;
    // The path that has this text; Error 5 with a sentence for a text that no path has.
    LocationPath Parse(std::string_view text) const;
    bool HasRepeatedId() const;
    bool Equals(const LocationPath& other) const { return m_ids == other.m_ids; }

private:
    std::vector<int32_t> m_ids;
};

}  // namespace quellbrook
