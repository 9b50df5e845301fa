#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quellbrook {

// A materialized path: the identifiers of the containers from the sentinel 0 down. Its text, as in the column Path, is
// "/" + the decimal identifiers joined by "/" + "/"; the empty path has the empty text. The text of p is a prefix of
// the texts of p's extensions and of no others, and occurs in them only at the start.
class LocationPath {
public:
    LocationPath() = default;
    explicit LocationPath(std::vector<int32_t> ids) : m_ids(std::move(ids)) {}

    LocationPath Append(int32_t id) const;
    const std::vector<int32_t>& Ids() const { return m_ids; }
    std::string ToText() const;
    // Error 5 with a sentence if the text is not that of a path.
    LocationPath Parse(std::string_view text) const;
    bool HasRepeatedId() const;
    bool Equals(const LocationPath& other) const { return m_ids == other.m_ids; }

private:
    std::vector<int32_t> m_ids;
};

}  // namespace quellbrook
