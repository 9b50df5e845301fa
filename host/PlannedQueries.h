#pragma once

#include "host/HostServices.h"
#include "sql/Dialect.h"

#include <map>

namespace quellbrook {

// Queries composed once for each shape and kept as long as the database in use is asked in the same way.
template <typename Shape, typename Query>
class PlannedQueries {
public:
    template <typename Compose>
    const Query& Get(const Shape& shape, const Compose& compose) {
        const Dialect& dialect = HostServices::Current().Pool().GetDialect();
        if (dialect != m_dialect) {
            m_queries.clear();
            m_dialect = dialect;
        }
        const auto found = m_queries.find(shape);
        return found != m_queries.end() ? found->second : m_queries.emplace(shape, compose()).first->second;
    }

private:
    Dialect m_dialect;
    std::map<Shape, Query> m_queries;
};

}  // namespace quellbrook
