#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

// One rule of the data, and what breaks it.
struct RuleCheck {
    std::string rule;  // a sentence
    int64_t faults = 0;
    std::vector<std::string> examples;  // the first ten faults, a line each

    void Add(const std::string& fault);
};

// The values of one row as texts, empty for NULL.
using Cells = std::vector<std::optional<std::string>>;

// Runs a SELECT and calls the receiver for each row.
using CellReader = std::function<void(const std::string& select, const std::function<void(const Cells&)>& receiver)>;

// A rule that is broken by each row of its SELECT. "{0}" in it is Property and Vehicle in turn, "{1}" the item type.
struct CustodyRule {
    const char* sentence;
    std::string faults;
    std::string (*describe)(const Cells& fault);
};

RuleCheck CheckRule(const CustodyRule& rule, const CellReader& read);

// Checks what holds in the database of every engine: custody rows, items and locations. The statements are in SQL that
// SQLite, PostgreSQL and SQL Server understand. Each rule is checked by one statement for each kind of item, so that
// changes meanwhile break no rule.
std::vector<RuleCheck> CheckCustodyRules(const CellReader& read);

// The rule of the side table CurrentPlace, if that exists. It may have extra rows.
RuleCheck CheckCurrentPlace(bool exists, const CellReader& read);

}  // namespace quellbrook
