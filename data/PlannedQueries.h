#pragma once

#include "host/HostServices.h"
#include "host/QueryServices.h"
#include "sql/query/QueryFactory.h"

#include <map>

namespace quellbrook {

// Caches the planned queries of one kind for the database in use. The composing function sees only the shape, and all
// members of a shape are compared, so different queries never share a text.
template <typename Shape>
class PlannedQueries {
public:
    using Compose = QuerySource (*)(const Shape&);
    explicit PlannedQueries(Compose compose) : m_compose(compose) {}

    // The reference is valid until the next call.
    const ParameterizedQuery& Get(const Shape& shape) {
        const Dialect& dialect = HostServices::Current().Pool().GetDialect();
        if (dialect != m_dialect) {
            m_queries.clear();
            m_dialect = dialect;
        }
        const auto found = m_queries.find(shape);
        if (found != m_queries.end()) return found->second;
        if (m_queries.size() >= limit) m_queries.clear();  // shapes may contain the user's patterns
        return m_queries.emplace(shape, QueryServices::Factory().ToParameterizedSql(m_compose(shape))).first->second;
    }

private:
    static constexpr size_t limit = 64;

    Compose m_compose;
    Dialect m_dialect;
    std::map<Shape, ParameterizedQuery> m_queries;
};

}  // namespace quellbrook
