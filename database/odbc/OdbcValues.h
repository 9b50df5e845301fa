#pragma once

#include "base/TaggedValue.h"

#include <string>
#include <string_view>
#include <vector>

namespace quellbrook {

enum class ServerKind { PostgreSql, SqlServer, Other };

// The values of the parameters of a statement, in the form that a driver reads. Must live until the statement has run.
class OdbcParameters {
public:
    OdbcParameters();
    ~OdbcParameters();
    OdbcParameters(const OdbcParameters&) = delete;
    OdbcParameters& operator=(const OdbcParameters&) = delete;

    // Binds the values to the markers of a statement, in order. A boolean is a bit, on PostgreSQL a small integer. A
    // text with a NUL character raises error 5, an object error 13.
    void Bind(void* statement, const std::vector<TaggedValue>& values, ServerKind server);

private:
    struct Value;
    std::vector<Value> m_values;
};

// The types with which the values are bound, as a text. A statement that was prepared for other types must be prepared
// again.
std::string BoundTypes(const std::vector<TaggedValue>& values);

// Reads "-12.50" as a whole number or an exact decimal, without trailing zeros; as a floating point number if it has
// too many digits.
TaggedValue NumberFromText(std::string_view text);

}  // namespace quellbrook
