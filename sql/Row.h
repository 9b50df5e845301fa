#pragma once

#include "base/TaggedValue.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quellbrook {

// The column names of one result, shared by all of its rows. Lookup is case-insensitive; with duplicate names the first
// column wins.
class ColumnSet {
public:
    explicit ColumnSet(std::vector<std::string> names);

    const std::vector<std::string>& Names() const { return m_names; }
    // Position of the column, or -1.
    int Find(std::string_view name) const;

private:
    struct NoCaseHash {
        using is_transparent = void;
        size_t operator()(std::string_view name) const;
    };
    struct NoCaseEqual {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };

    std::vector<std::string> m_names;
    std::unordered_map<std::string, int, NoCaseHash, NoCaseEqual> m_positions;
};

// One row of a result: its values by column name. A value type; copies share the names.
class Row {
public:
    Row(std::shared_ptr<const ColumnSet> columns, std::vector<TaggedValue> values)
        : m_columns(std::move(columns)), m_values(std::move(values)) {}

    // Builds a row with its own column names, for tests and fakes.
    static Row Of(std::vector<std::pair<std::string, TaggedValue>> cells);

    bool Has(std::string_view column) const { return m_columns->Find(column) >= 0; }
    // Error 5 with the column's name if the result has no such column.
    const TaggedValue& Value(std::string_view column) const;
    const TaggedValue& At(int position) const { return m_values[static_cast<size_t>(position)]; }
    const ColumnSet& Columns() const { return *m_columns; }

    // For engines, which reuse one row object. The number of values is the number of columns.
    std::vector<TaggedValue>& MutableValues() { return m_values; }

private:
    std::shared_ptr<const ColumnSet> m_columns;
    std::vector<TaggedValue> m_values;
};

using RowList = std::vector<Row>;

}  // namespace quellbrook
