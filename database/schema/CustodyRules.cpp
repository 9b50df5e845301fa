#include "database/schema/CustodyRules.h"

#include "base/Text.h"

#include <set>
#include <utility>

namespace quellbrook {

namespace {

constexpr size_t examplesKept = 10;

std::string Value(const Cells& cells, size_t position) { return cells[position].value_or("none"); }

// The first two values are the item's kind and number.
std::string Item(const Cells& cells) { return Value(cells, 0) + " " + Value(cells, 1); }

const CustodyRule itemRules[] = {
    {"The custody rows of an item are numbered from 1 without gaps.",
     "SELECT '{0}' AS Kind, {0}No, COUNT(*) AS Number, MIN(SeqNo) AS First, MAX(SeqNo) AS Last FROM {0}Tracking "
     "GROUP BY {0}No HAVING MIN(SeqNo) <> 1 OR MAX(SeqNo) <> COUNT(*) ORDER BY {0}No",
     [](const Cells& fault) {
         return Item(fault) + " has " + Value(fault, 2) + " custody rows, numbered from " + Value(fault, 3) + " to " +
                Value(fault, 4);
     }},
    {"Custody rows belong to an item and a location that exist.",
     "SELECT '{0}' AS Kind, t.{0}No, t.SeqNo, t.StorageLocNo FROM {0}Tracking t LEFT JOIN {0} i ON i.{0}No = t.{0}No "
     "LEFT JOIN StorageLocation l ON l.IdNo = t.StorageLocNo WHERE i.{0}No IS NULL "
     "OR (t.StorageLocNo IS NOT NULL AND l.IdNo IS NULL) ORDER BY t.{0}No, t.SeqNo",
     [](const Cells& fault) {
         return Item(fault) + ", custody row " + Value(fault, 2) + (fault[3] ? ", location " + *fault[3] : "");
     }},
    {"The current custody row of an item is its latest one.",
     "SELECT '{0}' AS Kind, i.{0}No, i.CurrTrackSeq, t.Latest FROM {0} i LEFT JOIN (SELECT {0}No, MAX(SeqNo) AS Latest "
     "FROM {0}Tracking GROUP BY {0}No) t ON t.{0}No = i.{0}No WHERE i.CurrTrackSeq <> t.Latest OR (i.CurrTrackSeq IS "
     "NULL AND t.Latest IS NOT NULL) OR (i.CurrTrackSeq IS NOT NULL AND t.Latest IS NULL) ORDER BY i.{0}No",
     [](const Cells& fault) {
         return Item(fault) + " names custody row " + Value(fault, 2) + ", and its latest is " + Value(fault, 3);
     }},
    {"An item with a final disposition has a current custody row.",
     "SELECT '{0}' AS Kind, {0}No FROM {0} WHERE HasFinalDisposition = 1 AND CurrTrackSeq IS NULL ORDER BY {0}No",
     [](const Cells& fault) { return Item(fault) + " has a final disposition and no current custody row"; }},
    {"The flag of a final disposition is 0 or 1.",
     // With COALESCE a server returns a whole number instead of a boolean.
     "SELECT '{0}' AS Kind, {0}No, COALESCE(HasFinalDisposition, 0) AS Flag FROM {0} WHERE HasFinalDisposition "
     "NOT IN (0, 1) ORDER BY {0}No",
     [](const Cells& fault) { return Item(fault) + " has the flag " + Value(fault, 2); }},
};

const CustodyRule placeRule = {
    "The side table CurrentPlace lists every item at its location.",
    "SELECT '{0}' AS Kind, i.{0}No, t.StorageLocNo FROM {0} i INNER JOIN {0}Tracking t ON t.{0}No = i.{0}No "
    "AND t.SeqNo = i.CurrTrackSeq LEFT JOIN CurrentPlace c ON c.StorageLocNo = t.StorageLocNo AND c.ItemType = {1} "
    "AND c.ItemNo = i.{0}No WHERE t.StorageLocNo IS NOT NULL AND c.ItemNo IS NULL ORDER BY i.{0}No",
    [](const Cells& fault) { return Item(fault) + " is missing at location " + Value(fault, 2); }};

struct Location {
    std::string number, name, path, type;

    std::string Title() const { return "Location " + number + " (" + name + ")"; }
    std::string PathOfContents() const { return path + number + "/"; }
};

std::vector<Location> AllLocations(const CellReader& read) {
    std::vector<Location> locations;
    read("SELECT IdNo, Name, Path, Type FROM StorageLocation ORDER BY IdNo", [&](const Cells& row) {
        locations.push_back({Value(row, 0), Value(row, 1), Value(row, 2), Value(row, 3)});
    });
    return locations;
}

RuleCheck CheckTree(const std::vector<Location>& locations) {
    RuleCheck check{"Every location is in the tree, in the category of its container.", 0, {}};
    std::set<std::pair<std::string, std::string>> containers;
    for (const Location& location : locations) containers.emplace(location.PathOfContents(), location.type);
    for (const Location& location : locations)
        if (location.path != "/0/" && !containers.contains({location.path, location.type}))
            check.Add(location.Title() + " has the path " + location.path + " and the category " + location.type);
    return check;
}

RuleCheck CheckNames(const std::vector<Location>& locations) {
    RuleCheck check{"No two locations of one container and category have the same name.", 0, {}};
    std::set<std::vector<std::string>> names;
    for (const Location& location : locations)
        if (!names.insert({location.path, location.type, FoldCase(location.name)}).second)
            check.Add(location.Title() + " has the name of another location");
    return check;
}

}  // namespace

void RuleCheck::Add(const std::string& fault) {
    if (++faults <= static_cast<int64_t>(examplesKept)) examples.push_back(fault);
}

RuleCheck CheckRule(const CustodyRule& rule, const CellReader& read) {
    RuleCheck check{rule.sentence, 0, {}};
    const auto collect = [&](const std::string& select) {
        read(select, [&](const Cells& fault) { check.Add(rule.describe(fault)); });
    };
    if (rule.faults.find("{0}") == std::string::npos) {
        collect(rule.faults);
        return check;
    }
    for (const auto& [kind, type] : {std::pair("Property", "1"), std::pair("Vehicle", "2")})
        collect(Replace(Replace(rule.faults, "{0}", kind), "{1}", type));
    return check;
}

std::vector<RuleCheck> CheckCustodyRules(const CellReader& read) {
    std::vector<RuleCheck> checks;
    for (const CustodyRule& rule : itemRules) checks.push_back(CheckRule(rule, read));
    const std::vector<Location> locations = AllLocations(read);
    checks.push_back(CheckTree(locations));
    checks.push_back(CheckNames(locations));
    return checks;
}

RuleCheck CheckCurrentPlace(bool exists, const CellReader& read) {
    if (exists) return CheckRule(placeRule, read);
    return {placeRule.sentence, 1, {"There is no such table"}};
}

}  // namespace quellbrook
