#pragma once

#include "sql/Row.h"
#include "sql/SelectStatement.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pugi {
class xml_node;
}

namespace quellbrook {

// The host's database. Instances have no state; all of them use the pool of HostServices. No connection is kept across
// calls. Errors have the database's description and number; ErrorNumber::IntegrityViolation means a violated unique or
// foreign key constraint.
class HostDatabase {
public:
    // All rows of a SELECT in the database's order. The query functions take one value for each "?" in order.
    RowList QueryRows(const std::string& sql, const std::vector<TaggedValue>& parameters = {});
    // The first row, or nothing.
    std::optional<Row> QueryRow(const std::string& sql, const std::vector<TaggedValue>& parameters = {});
    // Passes one row after another to the receiver, without keeping them, until it returns false.
    void ForEachRow(const std::string& sql, const std::function<bool(const Row&)>& receiver,
                    const std::vector<TaggedValue>& parameters = {});

    // The first column of the first row of SELECT expression FROM table WHERE the conditions joined by AND; NULL if
    // no row matches.
    TaggedValue LookupValue(const std::string& table, const std::string& expression,
                            const std::vector<std::string>& conditions);

    // Each function that writes does so in one transaction: a failure rolls it back. After a failed commit, it returns
    // if the transaction was committed all the same, and raises UnknownOutcome if that can't be found out.
    void Execute(const std::string& sql);
    void ExecuteWithParameters(const std::string& sql, const std::vector<TaggedValue>& parameters);

    // Returns all rows of a SELECT, which it runs on the connection of a batch.
    using BatchQuery = std::function<RowList(const std::string& sql, const std::vector<TaggedValue>& parameters)>;
    // What runs in the transaction of a batch before its first statement. An error that the check throws ends the
    // batch. What is read stays unchanged until the end of the batch.
    struct BatchCheck {
        std::vector<SelectStatement> queries;
        // Gets the rows of the queries, and may read more.
        std::function<void(const std::vector<RowList>& results, const BatchQuery& query)> check;
    };
    // All statements in order, in one transaction.
    void ExecuteBatch(const std::vector<std::string>& statements, const BatchCheck& before = {});

    // Inserts the row document's children that have isPersistable; returns the identity assigned to keyColumn. Error 5
    // if the table has no such column.
    int32_t InsertRow(const std::string& table, const std::string& keyColumn, const pugi::xml_node& row);

    // Finished SQL literals. Error 5 for a text that contains NUL.
    std::string PrepareText(const std::string& text) const;
    // For the right side of LIKE: "*" matches any run of characters, all others match themselves. If the text contains
    // a special character of LIKE, an ESCAPE clause follows the literal.
    std::string PrepareLike(const std::string& pattern) const;
    // For a text in the format of DateTime::ToText; Error 13 for any other text.
    std::string PrepareDate(const std::string& text) const;
};

// The module's shared instance.
HostDatabase& GetHostDatabase();

}  // namespace quellbrook
