#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// One rule of the data, and what breaks it.
struct RuleCheck {
    std::string rule;  // a sentence
    int64_t faults = 0;
    std::vector<std::string> examples;  // the first ten faults, a line each
};

// Checks every rule that the schema and the transfers keep, also for rows that are older than a rule: the file itself,
// references, the objects of the schema, custody rows, items, locations and side tables. Reads the whole database;
// changes nothing, but needs a write lock for one check. Raises error 5 with a message for the user if the database
// cannot be read.
std::vector<RuleCheck> VerifyDatabase(const std::string& path, int busyMilliseconds);

}  // namespace quellbrook
