#include "database/schema/DatabaseVerification.h"

#include "base/Error.h"
#include "database/schema/SchemaTriggers.h"
#include "database/schema/SideTables.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace quellbrook {

namespace {

std::string Text(const Cells& fault, size_t position) { return fault[position].value_or(""); }

// What only a file must be examined for: a server refuses such rows.
std::vector<CustodyRule> ValueRules() {
    return {
        {"Custody rows contain whole numbers and dates.",
         "SELECT '{0}', {0}No, SeqNo FROM {0}Tracking WHERE " + WrongCustodyValues(),
         [](const Cells& fault) { return Text(fault, 0) + " " + Text(fault, 1) + ", custody row " + Text(fault, 2); }},
        {"Locations have a name, a flag and dates.",
         "SELECT IdNo, Name FROM StorageLocation WHERE " + WrongLocationValues(),
         [](const Cells& fault) { return "Location " + Text(fault, 0) + " (" + Text(fault, 1) + ")"; }},
    };
}

std::vector<CustodyRule> FileRules() {
    return {
        {"Every reference leads to a record.",
         "SELECT DISTINCT \"table\", rowid, parent FROM pragma_foreign_key_check ORDER BY 1, 2, 3",
         [](const Cells& fault) {
             return Text(fault, 0) + (fault[1] ? " " + *fault[1] : "") + " refers to a record of " + Text(fault, 2) +
                    " that does not exist";
         }},
        {"The pages, indexes and constraints of the file are sound.",
         "SELECT integrity_check FROM pragma_integrity_check WHERE integrity_check <> 'ok'",
         [](const Cells& fault) { return Text(fault, 0); }},
    };
}

CellReader ReaderOf(SQLite::Database& database) {
    return [&database](const std::string& select, const std::function<void(const Cells&)>& receiver) {
        SQLite::Statement statement(database, select);
        while (statement.executeStep()) {
            Cells cells;
            for (int i = 0; i < statement.getColumnCount(); ++i) {
                const SQLite::Column column = statement.getColumn(i);
                cells.push_back(column.isNull() ? std::nullopt : std::optional(column.getString()));
            }
            receiver(cells);
        }
    };
}

// Compares with a new database. A host may have changed its tables and its view of vehicles, but not a trigger.
RuleCheck CheckObjects(const std::string& path, int busyMilliseconds) {
    SQLite::Database created(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, busyMilliseconds);
    for (const std::string& statement : SqliteSchemaStatements()) created.exec(statement);
    SQLite::Statement attach(created, "ATTACH ? AS examined");
    attach.bind(1, path);
    attach.exec();
    return CheckRule(
        {"All tables, indexes, views and triggers of the schema are there.",
         "SELECT n.type, n.name, IIF(e.name IS NULL, 'is missing', 'has been changed') "
         "FROM main.sqlite_schema n LEFT JOIN examined.sqlite_schema e ON e.type = n.type AND e.name = n.name "
         "WHERE e.name IS NULL OR (n.type = 'trigger' AND e.sql <> n.sql)",
         [](const Cells& fault) { return "The " + Text(fault, 0) + " " + Text(fault, 1) + " " + Text(fault, 2); }},
        ReaderOf(created));
}

RuleCheck CheckDescriptions(SQLite::Database& database) {
    RuleCheck check{"The side table PropertyDescription agrees with the descriptions of the items.", 0, {}};
    if (!database.tableExists("PropertyDescription"))
        check.Add("There is no such table");
    else if (!IsDescriptionIndexRight(database))
        check.Add("It does not agree");
    return check;
}

void Append(std::vector<RuleCheck>& checks, const std::vector<CustodyRule>& rules, const CellReader& read) {
    for (const CustodyRule& rule : rules) checks.push_back(CheckRule(rule, read));
}

template <typename Work>
std::vector<RuleCheck> Verify(const std::string& path, int busyMilliseconds, const char* source, Work work) {
    try {
        SQLite::Database database(path, SQLite::OPEN_READWRITE, busyMilliseconds);
        return work(database, ReaderOf(database));
    } catch (const SQLite::Exception& failure) {
        Raise(ErrorNumber::General, source,
              "The database '" + path + "' can't be verified: " + std::string(failure.what()) + ".");
    }
}

}  // namespace

std::vector<RuleCheck> VerifyDatabase(const std::string& path, int busyMilliseconds) {
    return Verify(path, busyMilliseconds, "VerifyDatabase", [&](SQLite::Database& database, const CellReader& read) {
        std::vector<RuleCheck> checks = CheckCustodyRules(read);
        Append(checks, ValueRules(), read);
        Append(checks, FileRules(), read);
        checks.push_back(CheckObjects(path, busyMilliseconds));
        checks.push_back(CheckCurrentPlace(database.tableExists("CurrentPlace"), read));
        checks.push_back(CheckDescriptions(database));
        return checks;
    });
}

std::vector<RuleCheck> VerifyHostSchema(const std::string& path, int busyMilliseconds) {
    return Verify(path, busyMilliseconds, "VerifyHostSchema", [](SQLite::Database&, const CellReader& read) {
        std::vector<RuleCheck> checks = CheckCustodyRules(read);
        Append(checks, FileRules(), read);
        return checks;
    });
}

}  // namespace quellbrook
