#include "database/schema/SchemaTriggers.h"

#include "base/Text.h"

#include <SQLiteCpp/Database.h>

namespace quellbrook {

namespace {

// "{0}" is Property or Vehicle, and "{1}" is the item type. The other names in braces are texts of Filled().
struct TriggerText {
    const char* name;
    const char* event;  // what follows the name
    const char* body;
};

// A move writes the descendants first. When such a row is written, its container is still at the old location or has
// just been written. The deferred foreign key of the table checks the finished tree. It does nothing on connections
// without foreign keys, so that they may not change the tree.
const TriggerText locationTriggers[] = {
    {"StorageLocationInsertGuard",
     "BEFORE INSERT ON StorageLocation WHEN NEW.Path <> '/0/' AND NOT EXISTS (SELECT 1 FROM StorageLocation c "
     "WHERE c.IdNo = NEW.ContainerNo AND c.Path || c.IdNo || '/' = NEW.Path AND c.Type = NEW.Type)",
     "SELECT RAISE(ABORT, '{container gone}');"},
    {"StorageLocationUpdateGuard",
     "BEFORE UPDATE OF Path, Type ON StorageLocation WHEN (NEW.Path <> OLD.Path OR NEW.Type <> OLD.Type) "
     "AND NEW.Path <> '/0/' AND (NEW.Path <> NEW.ContainerPath || NEW.ContainerNo || '/' "
     "OR NOT EXISTS (SELECT 1 FROM StorageLocation c WHERE c.IdNo = NEW.ContainerNo "
     "AND ((c.Path || c.IdNo || '/' = NEW.Path AND c.Type = NEW.Type) "
     "OR (c.Path || c.IdNo || '/' = OLD.Path AND c.Type = OLD.Type))))",
     "SELECT RAISE(ABORT, '{container gone}');"},
    // For the moved location itself, not a descendant: it gets another container, or another category at the top level.
    {"StorageLocationMoveGuard",
     "BEFORE UPDATE OF Path, Type ON StorageLocation WHEN (NEW.ContainerNo IS NOT OLD.ContainerNo "
     "OR (NEW.Path = '/0/' AND NEW.Type <> OLD.Type)) AND EXISTS (SELECT 1 FROM StorageLocation d "
     "WHERE d.Path >= OLD.Path || OLD.IdNo || '/' AND d.Path < OLD.Path || OLD.IdNo || '0' "
     "AND (NEW.Path <> OLD.Path OR d.Type <> NEW.Type))",
     "SELECT RAISE(ABORT, '{left behind}');"},
    {"StorageLocationTreeGuard",
     "BEFORE UPDATE OF IdNo, Path, Type ON StorageLocation WHEN (NEW.IdNo <> OLD.IdNo OR NEW.Path <> OLD.Path "
     "OR NEW.Type <> OLD.Type) AND {no foreign keys}",
     "SELECT RAISE(ABORT, '{needs foreign keys}');"},
    {"StorageLocationDeleteGuard", "BEFORE DELETE ON StorageLocation WHEN {no foreign keys}",
     "SELECT RAISE(ABORT, '{needs foreign keys}');"},
    {"StorageLocationReplaceGuard",
     "BEFORE INSERT ON StorageLocation WHEN {no foreign keys} AND (EXISTS (SELECT 1 FROM StorageLocation "
     "WHERE IdNo = NEW.IdNo) OR EXISTS (SELECT 1 FROM StorageLocation WHERE Path = NEW.Path AND Type = NEW.Type "
     "AND Name = NEW.Name))",
     "SELECT RAISE(ABORT, '{needs foreign keys}');"},
    {"StorageLocationInsertValues", "BEFORE INSERT ON StorageLocation WHEN {wrong location values}",
     "SELECT RAISE(ABORT, '{location values}');"},
    {"StorageLocationUpdateValues",
     "BEFORE UPDATE OF Name, ActiveFlag, DateEntered, LastUpdated ON StorageLocation "
     "WHEN (NEW.Name IS NOT OLD.Name AND typeof(NEW.Name) <> 'text') "
     "OR (NEW.ActiveFlag IS NOT OLD.ActiveFlag AND NEW.ActiveFlag NOT IN (0, 1)) "
     "OR (NEW.DateEntered IS NOT OLD.DateEntered AND {bad NEW.DateEntered}) "
     "OR (NEW.LastUpdated IS NOT OLD.LastUpdated AND {bad NEW.LastUpdated})",
     "SELECT RAISE(ABORT, '{location values}');"},
};

// The existing row is also looked for since REPLACE runs no delete trigger on a connection without recursive triggers.
const TriggerText custodyTriggers[] = {
    {"{0}TrackingUpdateGuard", "BEFORE UPDATE ON {0}Tracking",
     "SELECT RAISE(ABORT, 'A custody row cannot be changed.');"},
    {"{0}TrackingDeleteGuard", "BEFORE DELETE ON {0}Tracking",
     "SELECT RAISE(ABORT, 'A custody row cannot be deleted.');"},
    {"{0}TrackingInsertGuard", "BEFORE INSERT ON {0}Tracking WHEN {row exists} OR {wrong custody values}",
     "SELECT RAISE(ABORT, '{row exists text}') WHERE {row exists};\n    SELECT RAISE(ABORT, '{custody values}');"},
};

// Only a change of the item's current custody row deletes a row of CurrentPlace, not one of an older row at the same
// location.
const TriggerText currentPlaceTriggers[] = {
    {"{0}PlaceAfterInsert", "AFTER INSERT ON {0} WHEN NEW.CurrTrackSeq IS NOT NULL", "{item enters}"},
    {"{0}PlaceAfterUpdate", "AFTER UPDATE OF {0}No, CurrTrackSeq ON {0}", "{item leaves}\n    {item enters}"},
    {"{0}PlaceAfterDelete", "AFTER DELETE ON {0} WHEN OLD.CurrTrackSeq IS NOT NULL", "{item leaves}"},
    {"{0}TrackingPlaceAfterInsert", "AFTER INSERT ON {0}Tracking WHEN NEW.StorageLocNo IS NOT NULL", "{row enters}"},
    {"{0}TrackingPlaceAfterUpdate", "AFTER UPDATE OF {0}No, SeqNo, StorageLocNo ON {0}Tracking",
     "{row leaves}\n    {row enters}"},
    {"{0}TrackingPlaceAfterDelete", "AFTER DELETE ON {0}Tracking", "{row leaves}"},
};

const TriggerText descriptionTriggers[] = {
    {"PropertyDescriptionAfterInsert", "AFTER INSERT ON Property", "{description enters}"},
    {"PropertyDescriptionAfterUpdate", "AFTER UPDATE OF PropertyNo, Description ON Property",
     "{description leaves}\n    {description enters}"},
    {"PropertyDescriptionAfterDelete", "AFTER DELETE ON Property", "{description leaves}"},
};

const std::pair<const char*, const char*> fragments[] = {
    {"{container gone}",
     "Its container has been moved or deleted in the meantime. Refresh the locations and try again."},
    {"{left behind}",
     "This location has been changed in the meantime, and sublocations would be left behind. Refresh the locations "
     "and try again."},
    {"{no foreign keys}", "(SELECT foreign_keys FROM pragma_foreign_keys) = 0"},
    {"{needs foreign keys}",
     "Locations are moved, deleted and replaced only where foreign keys are checked (PRAGMA foreign_keys = ON)."},
    {"{location values}",
     "A storage location has a name, a flag that is 0 or 1, and dates like 2026-11-20T13:14:15.123."},
    {"{row exists}", "EXISTS (SELECT 1 FROM {0}Tracking WHERE {0}No = NEW.{0}No AND SeqNo = NEW.SeqNo)"},
    {"{row exists text}", CustodyRowExistsText},
    {"{custody values}", "A custody row takes whole numbers, and dates like 2026-11-20T13:14:15.123."},
    {"{item leaves}",
     "DELETE FROM CurrentPlace WHERE ItemType = {1} AND ItemNo = OLD.{0}No AND StorageLocNo =\n"
     "        (SELECT StorageLocNo FROM {0}Tracking WHERE {0}No = OLD.{0}No AND SeqNo = OLD.CurrTrackSeq);"},
    {"{item enters}",
     "INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)\n"
     "    SELECT StorageLocNo, {1}, {0}No FROM {0}Tracking\n"
     "    WHERE {0}No = NEW.{0}No AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;"},
    {"{row leaves}",
     "DELETE FROM CurrentPlace WHERE ItemType = {1} AND ItemNo = OLD.{0}No AND StorageLocNo = OLD.StorageLocNo\n"
     "        AND EXISTS (SELECT 1 FROM {0} WHERE {0}No = OLD.{0}No AND CurrTrackSeq = OLD.SeqNo);"},
    {"{row enters}",
     "INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)\n"
     "    SELECT NEW.StorageLocNo, {1}, {0}No FROM {0}\n"
     "    WHERE {0}No = NEW.{0}No AND CurrTrackSeq = NEW.SeqNo AND NEW.StorageLocNo IS NOT NULL;"},
    {"{description leaves}",
     "INSERT INTO PropertyDescription (PropertyDescription, rowid, Description)\n"
     "    VALUES ('delete', OLD.PropertyNo, OLD.Description);"},
    {"{description enters}",
     "INSERT INTO PropertyDescription (rowid, Description) VALUES (NEW.PropertyNo, NEW.Description);"},
};

// Replaces "{prefix COLUMN}" by the condition, in which "{column}" is the column.
std::string FillConditions(std::string text, const std::string& prefix, const std::string& condition) {
    const std::string start = "{" + prefix + " ";
    for (size_t at = text.find(start); at != std::string::npos; at = text.find(start)) {
        const size_t end = text.find('}', at);
        const std::string column = text.substr(at + start.size(), end - at - start.size());
        text.replace(at, end + 1 - at, Replace(condition, "{column}", column));
    }
    return text;
}

// `row` is "NEW." or empty.
std::string FillValues(std::string text, const std::string& row) {
    const std::string values[][2] = {
        {"{wrong custody values}",
         "typeof({row}{0}No) <> 'integer' OR typeof({row}SeqNo) <> 'integer' OR {not whole {row}ReceivedBy} "
         "OR {not whole {row}ReceivedFrom} OR {not whole {row}CustodyReasonNo} OR {not whole {row}StorageLocNo} "
         "OR ({row}DateReceived IS NOT NULL AND {bad {row}DateReceived}) OR {bad {row}LastUpdated}"},
        {"{wrong location values}",
         "typeof({row}Name) <> 'text' OR {row}ActiveFlag NOT IN (0, 1) OR {bad {row}DateEntered} "
         "OR {bad {row}LastUpdated}"}};
    for (const auto& [name, condition] : values) text = Replace(text, name, Replace(condition, "{row}", row));
    // Adding no days turns a day such as February 30 into another one.
    text = FillConditions(text, "bad", "strftime('%Y-%m-%dT%H:%M:%f', {column}, '+0 days') IS NOT {column}");
    return FillConditions(text, "not whole",
                          "typeof({column}) NOT IN ('integer', 'null') "
                          "OR {column} NOT BETWEEN -2147483648 AND 2147483647");
}

std::string Filled(std::string text, const char* kind, const char* itemType) {
    for (const auto& [name, fragment] : fragments) text = Replace(text, name, fragment);
    return Replace(Replace(FillValues(text, "NEW."), "{0}", kind), "{1}", itemType);
}

template <typename Texts>
void Append(std::vector<SchemaTrigger>& triggers, const Texts& texts, const char* kind = "", const char* type = "") {
    for (const TriggerText& trigger : texts) {
        const std::string name = Filled(trigger.name, kind, type);
        std::string sql = "CREATE TRIGGER " + name + " ";
        sql += Filled(trigger.event, kind, type) + "\nBEGIN\n    ";
        sql += Filled(trigger.body, kind, type) + "\nEND";
        triggers.push_back({name, sql});
    }
}

constexpr std::pair<const char*, const char*> itemKinds[] = {{"Property", "1"}, {"Vehicle", "2"}};

std::vector<SchemaTrigger> AllTriggers() {
    std::vector<SchemaTrigger> triggers;
    Append(triggers, locationTriggers);
    for (const auto& [kind, type] : itemKinds) {
        Append(triggers, custodyTriggers, kind, type);
        Append(triggers, currentPlaceTriggers, kind, type);
    }
    Append(triggers, descriptionTriggers);
    return triggers;
}

std::vector<std::string> NamesOf(const std::vector<SchemaTrigger>& triggers) {
    std::vector<std::string> names;
    for (const SchemaTrigger& trigger : triggers) names.push_back(trigger.name);
    return names;
}

}  // namespace

std::string WrongCustodyValues() { return FillValues("{wrong custody values}", ""); }
std::string WrongLocationValues() { return FillValues("{wrong location values}", ""); }

const std::vector<SchemaTrigger>& SchemaTriggers() {
    static const std::vector<SchemaTrigger> triggers = AllTriggers();
    return triggers;
}

const std::vector<std::string>& CurrentPlaceTriggers() {
    static const std::vector<std::string> names = [] {
        std::vector<SchemaTrigger> triggers;
        for (const auto& [kind, type] : itemKinds) Append(triggers, currentPlaceTriggers, kind, type);
        return NamesOf(triggers);
    }();
    return names;
}

const std::vector<std::string>& DescriptionIndexTriggers() {
    static const std::vector<std::string> names = [] {
        std::vector<SchemaTrigger> triggers;
        Append(triggers, descriptionTriggers);
        return NamesOf(triggers);
    }();
    return names;
}

void RestoreTriggers(SQLite::Database& database) {
    for (const SchemaTrigger& trigger : SchemaTriggers()) {
        database.exec("DROP TRIGGER IF EXISTS " + trigger.name);
        database.exec(trigger.sql);
    }
}

}  // namespace quellbrook
