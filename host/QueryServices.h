#pragma once

#include "sql/query/QueryFactory.h"

namespace quellbrook {

class QueryServices {
public:
    // Writes queries for the engine in use. Error 5 while no database is open.
    static QueryFactory& Factory();
};

}  // namespace quellbrook
