#include "database/schema/DatabaseVerification.h"

#include "base/Error.h"
#include "base/FormatCount.h"
#include "base/Text.h"
#include "database/schema/SchemaTriggers.h"
#include "database/schema/SideTables.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace quellbrook {

namespace {

constexpr size_t examplesKept = 10;

// Each row of the query describes one fault. "{0}" is Property and Vehicle in turn.
struct Rule {
    const char* sentence;
    const char* faults;
};

const Rule custodyRules[] = {
    {"The custody rows of an item are numbered from 1 without gaps.",
     "SELECT '{0} ' || {0}No || ' has ' || COUNT(*) || ' custody rows, numbered from ' || MIN(SeqNo) || ' to ' || "
     "MAX(SeqNo) FROM {0}Tracking GROUP BY {0}No HAVING MIN(SeqNo) <> 1 OR MAX(SeqNo) <> COUNT(*)"},
    {"Custody rows contain whole numbers and dates.",
     "SELECT '{0} ' || {0}No || ', custody row ' || SeqNo FROM {0}Tracking WHERE {wrong values}"},
    {"Custody rows belong to an item and a location that exist.",
     "SELECT '{0} ' || {0}No || ', custody row ' || SeqNo || COALESCE(', location ' || StorageLocNo, '') FROM "
     "{0}Tracking t WHERE NOT EXISTS (SELECT 1 FROM {0} i WHERE i.{0}No = t.{0}No) OR (StorageLocNo IS NOT NULL "
     "AND NOT EXISTS (SELECT 1 FROM StorageLocation l WHERE l.IdNo = t.StorageLocNo))"},
    {"The current custody row of an item is its latest one.",
     "SELECT '{0} ' || No || ' names custody row ' || COALESCE(Current, 'none') || ', and its latest is ' || "
     "COALESCE(Latest, 'none') FROM (SELECT i.{0}No AS No, i.CurrTrackSeq AS Current, (SELECT MAX(t.SeqNo) FROM "
     "{0}Tracking t WHERE t.{0}No = i.{0}No) AS Latest FROM {0} i) WHERE Current IS NOT Latest"},
    {"An item with a final disposition has a current custody row.",
     "SELECT '{0} ' || {0}No || ' has a final disposition and no current custody row' FROM {0} WHERE "
     "HasFinalDisposition = 1 AND CurrTrackSeq IS NULL"},
    {"The flag of a final disposition is 0 or 1.",
     "SELECT '{0} ' || {0}No || ' has the flag ' || HasFinalDisposition FROM {0} WHERE HasFinalDisposition "
     "NOT IN (0, 1)"},
};

const Rule otherRules[] = {
    {"Every location is in the tree, in the category of its container.",
     "SELECT 'Location ' || IdNo || ' (' || Name || ') has the path ' || Path || ' and the category ' || Type FROM "
     "StorageLocation l WHERE Path <> '/0/' AND NOT EXISTS (SELECT 1 FROM StorageLocation c WHERE c.IdNo = "
     "l.ContainerNo AND c.Path || c.IdNo || '/' = l.Path AND c.Type = l.Type)"},
    {"Locations have a name, a flag and dates.",
     "SELECT 'Location ' || IdNo || ' (' || Name || ')' FROM StorageLocation WHERE {wrong values}"},
    {"Every reference leads to a record.",
     "SELECT DISTINCT \"table\" || COALESCE(' ' || rowid, '') || ' refers to a record of ' || parent || ' that does "
     "not exist' FROM pragma_foreign_key_check ORDER BY 1"},
    {"The pages, indexes and constraints of the file are sound.",
     "SELECT integrity_check FROM pragma_integrity_check WHERE integrity_check <> 'ok'"},
};

void Add(RuleCheck& check, const std::string& fault) {
    if (++check.faults <= static_cast<int64_t>(examplesKept)) check.examples.push_back(fault);
}

void Collect(SQLite::Database& database, const std::string& query, RuleCheck& check) {
    SQLite::Statement faults(database, query);
    while (faults.executeStep()) Add(check, faults.getColumn(0).getString());
}

RuleCheck CheckForBothKinds(SQLite::Database& database, const Rule& rule) {
    RuleCheck check{rule.sentence, 0, {}};
    for (const char* kind : {"Property", "Vehicle"}) {
        const std::string query = Replace(rule.faults, "{wrong values}", WrongCustodyValues());
        Collect(database, Replace(query, "{0}", kind), check);
    }
    return check;
}

RuleCheck CheckOnce(SQLite::Database& database, const Rule& rule) {
    RuleCheck check{rule.sentence, 0, {}};
    Collect(database, Replace(rule.faults, "{wrong values}", WrongLocationValues()), check);
    return check;
}

// Compares with a new database. A host may have changed its tables and its view of vehicles, but not a trigger.
RuleCheck CheckObjects(const std::string& path, int busyMilliseconds) {
    RuleCheck check{"All tables, indexes, views and triggers of the schema are there.", 0, {}};
    SQLite::Database created(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, busyMilliseconds);
    for (const std::string& statement : SqliteSchemaStatements()) created.exec(statement);
    SQLite::Statement attach(created, "ATTACH ? AS examined");
    attach.bind(1, path);
    attach.exec();
    Collect(created,
            "SELECT 'The ' || n.type || ' ' || n.name || IIF(e.name IS NULL, ' is missing', ' has been changed') "
            "FROM main.sqlite_schema n LEFT JOIN examined.sqlite_schema e ON e.type = n.type AND e.name = n.name "
            "WHERE e.name IS NULL OR (n.type = 'trigger' AND e.sql <> n.sql)",
            check);
    return check;
}

RuleCheck CheckCurrentPlace(SQLite::Database& database) {
    RuleCheck check{"The side table CurrentPlace lists every item at its location.", 0, {}};
    if (!database.tableExists("CurrentPlace"))
        Add(check, "There is no such table");
    else if (const int64_t missing = ItemsMissingInCurrentPlace(database); missing > 0)
        Add(check, FormatCount(missing, "%d item is missing", "%d items are missing"));
    return check;
}

RuleCheck CheckDescriptions(SQLite::Database& database) {
    RuleCheck check{"The side table PropertyDescription agrees with the descriptions of the items.", 0, {}};
    if (!database.tableExists("PropertyDescription"))
        Add(check, "There is no such table");
    else if (!IsDescriptionIndexRight(database))
        Add(check, "It does not agree");
    return check;
}

}  // namespace

std::vector<RuleCheck> VerifyDatabase(const std::string& path, int busyMilliseconds) {
    try {
        SQLite::Database database(path, SQLite::OPEN_READWRITE, busyMilliseconds);
        std::vector<RuleCheck> checks;
        for (const Rule& rule : custodyRules) checks.push_back(CheckForBothKinds(database, rule));
        for (const Rule& rule : otherRules) checks.push_back(CheckOnce(database, rule));
        checks.push_back(CheckObjects(path, busyMilliseconds));
        checks.push_back(CheckCurrentPlace(database));
        checks.push_back(CheckDescriptions(database));
        return checks;
    } catch (const SQLite::Exception& failure) {
        Raise(ErrorNumber::General, "VerifyDatabase",
              "The database '" + path + "' can't be verified: " + std::string(failure.what()) + ".");
    }
}

}  // namespace quellbrook
