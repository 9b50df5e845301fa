#include "tests/sql/query/PlannerDepartment.h"

#include "base/Text.h"
#include "database/schema/SqliteSchema.h"

namespace quellbrook::testing {

namespace {

std::string Quoted(const std::string& text) { return text == "NULL" ? text : "'" + Replace(text, "'", "''") + "'"; }

std::string OrNull(std::mt19937& random, const std::string& value) { return Below(random, 4) == 0 ? "NULL" : value; }

void AddCustody(PlannerDepartment& department, std::mt19937& random, const std::string& kind, int item) {
    const std::string no = std::to_string(item);
    const int rows = Below(random, 4);
    for (int sequence = 1; sequence <= rows; ++sequence)
        department.Execute("INSERT INTO " + kind + "Tracking (" + kind +
                           "No, SeqNo, StorageLocNo, LastUpdated) VALUES (" + no + ", " + std::to_string(sequence) +
                           ", " + OrNull(random, std::to_string(1 + Below(random, 3))) +
                           ", '2026-01-01T00:00:00.000')");
    std::string current = rows == 0 ? "NULL" : std::to_string(rows);
    if (Below(random, 8) == 0) current = std::to_string(1 + Below(random, 5));
    department.Execute("UPDATE " + kind + " SET CurrTrackSeq = " + current + " WHERE " + kind + "No = " + no);
}

void AddLinks(PlannerDepartment& department, std::mt19937& random, const std::string& kind, int item) {
    for (int link = Below(random, 4); link > 0; --link)
        department.Execute("INSERT INTO Incd" + kind + " (IncidentNo, " + kind + "No) VALUES (" +
                           std::to_string(1 + Below(random, 5)) + ", " + std::to_string(item) + ")");
}

}  // namespace

Dialect SqliteDialect(bool hasCurrentPlace, bool hasDescriptionIndex) {
    Dialect dialect;
    dialect.concatenation = "||";
    dialect.hasCurrentPlace = hasCurrentPlace;
    dialect.hasDescriptionIndex = hasDescriptionIndex;
    return dialect;
}

Dialect WithKeys(Dialect dialect) {
    dialect.keys = {{"Property", {"PropertyNo"}},
                    {"PropertyTracking", {"PropertyNo", "SeqNo"}},
                    {"Vehicle", {"VehicleNo"}},
                    {"vwVehicleDisplayInfo", {"VehicleNo"}},
                    {"VehicleTracking", {"VehicleNo", "SeqNo"}}};
    return dialect;
}

int Below(std::mt19937& random, int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

std::string AnyOf(std::mt19937& random, const std::vector<std::string>& choices) {
    return choices[static_cast<size_t>(Below(random, static_cast<int>(choices.size())))];
}

PlannerDepartment::PlannerDepartment() : m_database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
    for (const SchemaScript& script : SqliteSchemaScripts())
        for (const std::string& statement : script.statements) m_database.exec(statement);
}

void PlannerDepartment::Fill(std::mt19937& random) {
    for (const char* name : {"Shelf", "Counter", "Court"})
        Execute("INSERT INTO StorageLocation (Name, Type, Path, DateEntered, LastUpdated) VALUES ('" +
                std::string(name) + "', 2, '/0/', '2026-01-01T00:00:00.000', '2026-01-01T00:00:00.000')");
    for (int incident = 1; incident <= 5; ++incident)
        Execute("INSERT INTO Incident (IncidentId, CaseNbr) VALUES (" +
                Quoted(AnyOf(random, {"I-1", "I-12", "i-12", "50%", "I_1", "NULL"})) + ", " +
                Quoted(AnyOf(random, {"C1", "C12", "[C1]", "NULL", "NULL"})) + ")");
    for (int item = 1; item <= 10; ++item) {
        Execute(
            "INSERT INTO Property (PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, "
            "RecordTypeInd) VALUES (" +
            Quoted(AnyOf(random, {"P-1", "P-10", "p-1", "P_1", "NULL", ""})) + ", " +
            Quoted(AnyOf(random,
                         {"blue bicycle", "BLUE", "100% wool", "it's _[x]_ \\", "NULL", "", "b*e", "gr\xC3\xBCn"})) +
            ", " + OrNull(random, "3") + ", " + AnyOf(random, {"1", "2.5", "NULL"}) + ", " +
            AnyOf(random, {"12.50", "NULL"}) + ", " + Quoted(AnyOf(random, {"Acme", "NULL"})) + ", " +
            AnyOf(random, {"1", "0", "NULL"}) + ")");
        AddCustody(*this, random, "Property", item);
        AddLinks(*this, random, "Property", item);
    }
    for (int item = 1; item <= 7; ++item) {
        Execute(
            "INSERT INTO Vehicle (RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel, RecordTypeInd) "
            "VALUES (" +
            Quoted(AnyOf(random, {"ABC 1", "ABC 12", "abc 1", "NULL"})) + ", " +
            Quoted(AnyOf(random, {"NY", "CA", "NULL"})) + ", " + Quoted(AnyOf(random, {"1999", "NULL"})) + ", " +
            Quoted(AnyOf(random, {"blue", "NULL"})) + ", " + Quoted(AnyOf(random, {"Ford", "NULL"})) + ", " +
            Quoted(AnyOf(random, {"100%", "it's _[x]_", "NULL"})) + ", " + AnyOf(random, {"1", "0", "NULL"}) + ")");
        AddCustody(*this, random, "Vehicle", item);
        AddLinks(*this, random, "Vehicle", item);
    }
}

std::vector<std::string> PlannerDepartment::Rows(const std::string& sql) {
    SQLite::Statement statement(m_database, sql);
    std::vector<std::string> rows;
    while (statement.executeStep()) {
        std::string row;
        for (int i = 0; i < statement.getColumnCount(); ++i) {
            const SQLite::Column column = statement.getColumn(i);
            if (column.isNull())
                row += "NULL|";
            else if (column.isText())
                row += "'" + column.getString() + "'|";
            else
                row += std::to_string(column.getDouble()) + "|";
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::set<std::string> PlannerDepartment::DistinctRows(const std::string& sql) {
    const std::vector<std::string> rows = Rows(sql);
    return {rows.begin(), rows.end()};
}

std::vector<std::string> PlannerDepartment::ColumnNames(const std::string& sql) {
    SQLite::Statement statement(m_database, sql);
    std::vector<std::string> names;
    for (int i = 0; i < statement.getColumnCount(); ++i) names.emplace_back(statement.getColumnName(i));
    return names;
}

std::vector<std::string> PlannerDepartment::PlanLines(const std::string& sql) {
    SQLite::Statement statement(m_database, "EXPLAIN QUERY PLAN " + sql);
    std::vector<std::string> lines;
    while (statement.executeStep()) lines.push_back(statement.getColumn(3).getString());
    return lines;
}

}  // namespace quellbrook::testing
