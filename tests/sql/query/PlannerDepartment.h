#pragma once

#include "sql/Dialect.h"
#include "tests/sql/query/ComposedSearch.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <random>
#include <set>
#include <string>
#include <vector>

namespace quellbrook::testing {

// A department in memory, in the reference schema, asked by SQL text without an engine between.
class PlannerDepartment {
public:
    PlannerDepartment();

    // Fills the department with a handful of items, their custody rows and incidents, in all the states that tables
    // allow: no custody row, a current row without a place, a pointer to a row that is not there, two links to one
    // incident.
    void Fill(std::mt19937& random);

    void Execute(const std::string& sql) { m_database.exec(sql); }
    // Each row as one text of its values; numbers by value, so that 1 and 1.0 are the same.
    std::vector<std::string> Rows(const std::string& sql);
    std::set<std::string> DistinctRows(const std::string& sql);
    std::vector<std::string> ColumnNames(const std::string& sql);
    // The lines of EXPLAIN QUERY PLAN.
    std::vector<std::string> PlanLines(const std::string& sql);

private:
    SQLite::Database m_database;
};

// SQLite's way of writing, with or without the side tables.
Dialect SqliteDialect(bool hasCurrentPlace, bool hasDescriptionIndex);
// The same, told the keys of the reference schema.
Dialect WithKeys(Dialect dialect);

// One value that some row of a filled department may well match.
std::string AnyOf(std::mt19937& random, const std::vector<std::string>& choices);
int Below(std::mt19937& random, int limit);

}  // namespace quellbrook::testing
