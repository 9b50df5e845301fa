#include "sql/Row.h"

#include "base/Error.h"
#include "base/Text.h"

namespace quellbrook {

size_t ColumnSet::NoCaseHash::operator()(std::string_view name) const {
    size_t hash = 0;
    for (const char c : name) {
        const bool isUpper = c >= 'A' && c <= 'Z';
        hash = hash * 31 + static_cast<unsigned char>(isUpper ? c - 'A' + 'a' : c);
    }
    return hash;
}

bool ColumnSet::NoCaseEqual::operator()(std::string_view a, std::string_view b) const { return EqualsNoCase(a, b); }

ColumnSet::ColumnSet(std::vector<std::string> names) : m_names(std::move(names)) {
    for (size_t i = 0; i < m_names.size(); ++i) m_positions.emplace(m_names[i], static_cast<int>(i));
}

int ColumnSet::Find(std::string_view name) const {
    const auto found = m_positions.find(name);
    return found == m_positions.end() ? -1 : found->second;
}

Row Row::Of(std::vector<std::pair<std::string, TaggedValue>> cells) {
    std::vector<std::string> names;
    std::vector<TaggedValue> values;
    for (auto& [name, value] : cells) {
        names.push_back(std::move(name));
        values.push_back(std::move(value));
    }
    return Row(std::make_shared<const ColumnSet>(std::move(names)), std::move(values));
}

const TaggedValue& Row::Value(std::string_view column) const {
    const int position = m_columns->Find(column);
    if (position < 0)
        Raise(ErrorNumber::General, "Row.Value", "The result has no column '" + std::string(column) + "'.");
    return At(position);
}

}  // namespace quellbrook
