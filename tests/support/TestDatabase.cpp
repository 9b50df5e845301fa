#include "tests/support/TestDatabase.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "host/HostServices.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace quellbrook::testing {

namespace {

using Cells = std::vector<std::pair<std::string, TaggedValue>>;

std::string ScratchPath() {
    static std::atomic<int> count = 0;
    const std::string name = "quellbrook-" + std::to_string(getpid()) + "-" + std::to_string(++count) + ".db";
    return (std::filesystem::temp_directory_path() / name).string();
}

void RemoveDatabase(const std::string& path) {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path + suffix);
}

// The bytes of an empty department database, created once per process.
const std::string& EmptyDatabase() {
    static const std::string bytes = [] {
        const std::string path = ScratchPath();
        CreateDatabase(path);
        std::ifstream file(path, std::ios::binary);
        std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        file.close();
        RemoveDatabase(path);
        return content;
    }();
    return bytes;
}

const char* ItemTable(StoredItemTypes kind) { return kind == StoredItemTypes::Property ? "Property" : "Vehicle"; }
std::string KeyColumn(StoredItemTypes kind) { return ItemTable(kind) + std::string("No"); }

void Bind(SQLite::Statement& statement, int position, const TaggedValue& value) {
    if (const auto* number = value.If<int32_t>())
        statement.bind(position, *number);
    else if (const auto* flag = value.If<bool>())
        statement.bind(position, *flag ? 1 : 0);
    else if (const auto* fraction = value.If<double>())
        statement.bind(position, *fraction);
    else if (const auto* exact = value.If<Decimal>())
        statement.bind(position, exact->ToDouble());
    else if (value.HasNoValue())
        statement.bind(position);
    else
        statement.bind(position, ToText(value));
}

TaggedValue ValueOf(const SQLite::Column& column) {
    if (column.isNull()) return Null();
    if (column.isInteger()) return TaggedValue::FromInteger(column.getInt64());
    if (column.isFloat()) return column.getDouble();
    return column.getString();
}

}  // namespace

struct TestDatabase::Raw {
    explicit Raw(const std::string& path) : database(path, SQLite::OPEN_READWRITE, SqliteEngine::BusyMilliseconds) {
        database.exec("PRAGMA foreign_keys = ON");
        database.exec("PRAGMA recursive_triggers = ON");
        database.exec("PRAGMA synchronous = OFF");
    }
    SQLite::Database database;
};

TestDatabase::TestDatabase() : m_path(ScratchPath()) {
    const std::string& bytes = EmptyDatabase();
    std::ofstream(m_path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    m_raw = std::make_unique<Raw>(m_path);
    m_engine = SqliteEngine::Open(m_path);
    HostServices::Current().SetEngine(m_engine);
}

TestDatabase::~TestDatabase() {
    HostServices::Current().SetEngine(nullptr);
    m_raw.reset();
    RemoveDatabase(m_path);
}

void TestDatabase::Install(std::shared_ptr<Engine> engine) { HostServices::Current().SetEngine(std::move(engine)); }

int32_t TestDatabase::Insert(const std::string& table, const Cells& cells) {
    std::vector<std::string> names, marks;
    std::vector<TaggedValue> values;
    for (const auto& [name, value] : cells) {
        names.push_back(name);
        marks.push_back("?");
        values.push_back(value);
    }
    Execute("INSERT INTO " + table + " (" + Join(names, ", ") + ") VALUES (" + Join(marks, ", ") + ")", values);
    return static_cast<int32_t>(m_raw->database.getLastInsertRowid());
}

int32_t TestDatabase::AddLocation(const std::string& name, StorageLocationTypes type, int32_t parentId,
                                  std::optional<bool> enabled) {
    const DateTime moment = DateTime::FromParts({2026, 1, 1, 8, 0, 0, 0});
    std::string path = "/0/";
    if (parentId != 0)
        path = ToText(
            QueryValue("SELECT Path || IdNo || '/' FROM StorageLocation WHERE IdNo = " + std::to_string(parentId)));
    return Insert("StorageLocation", {{"Name", name},
                                      {"Type", static_cast<int32_t>(type)},
                                      {"Path", path},
                                      {"ActiveFlag", enabled ? TaggedValue(*enabled) : TaggedValue(Null())},
                                      {"DateEntered", moment},
                                      {"LastUpdated", moment}});
}

int32_t TestDatabase::AddProperty(const PropertyFields& fields) {
    return Insert("Property", {{"PropertyID", fields.PropertyID},
                               {"Description", fields.Description},
                               {"CategoryNo", fields.CategoryNo},
                               {"Quantity", fields.Quantity},
                               {"PropertyValue", fields.PropertyValue},
                               {"ManufacNbr", fields.ManufacNbr},
                               {"ModelNbr", fields.ModelNbr},
                               {"SerialNbr", fields.SerialNbr},
                               {"RecordTypeInd", fields.RecordTypeInd},
                               {"CurrImageSeq", fields.CurrImageSeq}});
}

int32_t TestDatabase::AddVehicle(const VehicleFields& fields) {
    return Insert("Vehicle", {{"RegNumber", fields.RegNumber},
                              {"RegStateCode", fields.RegStateCode},
                              {"VehYear", fields.VehYear},
                              {"ColorCode", fields.ColorCode},
                              {"MakeCode", fields.MakeCode},
                              {"VehModel", fields.VehModel},
                              {"CategoryNo", fields.CategoryNo},
                              {"RecordTypeInd", fields.RecordTypeInd},
                              {"CurrImageSeq", fields.CurrImageSeq}});
}

int32_t TestDatabase::AddCustodyRow(StoredItemTypes kind, int32_t item, const TaggedValue& location,
                                    const CustodyFields& fields) {
    const std::string table = ItemTable(kind), key = KeyColumn(kind), id = std::to_string(item);
    const int32_t sequence =
        ToInt32(QueryValue("SELECT COALESCE(MAX(SeqNo), 0) + 1 FROM " + table + "Tracking WHERE " + key + " = " + id));
    Insert(table + "Tracking", {{key, item},
                                {"SeqNo", sequence},
                                {"ReceivedBy", fields.ReceivedBy},
                                {"ReceivedFrom", fields.ReceivedFrom},
                                {"DateReceived", fields.DateReceived},
                                {"CustodyReasonNo", fields.CustodyReasonNo},
                                {"StorageLocNo", location},
                                {"LastUpdated", fields.LastUpdated}});
    Execute("UPDATE " + table + " SET CurrTrackSeq = ? WHERE " + key + " = ?", {sequence, item});
    return sequence;
}

int32_t TestDatabase::AddStored(const PropertyFields& fields, const TaggedValue& location,
                                const CustodyFields& custody) {
    const int32_t id = AddProperty(fields);
    AddCustodyRow(StoredItemTypes::Property, id, location, custody);
    return id;
}

int32_t TestDatabase::AddStored(const VehicleFields& fields, const TaggedValue& location,
                                const CustodyFields& custody) {
    const int32_t id = AddVehicle(fields);
    AddCustodyRow(StoredItemTypes::vehicle, id, location, custody);
    return id;
}

void TestDatabase::NumberVehiclesApart() { Execute("INSERT INTO sqlite_sequence (name, seq) VALUES ('Vehicle', 100)"); }

int32_t TestDatabase::AddIncident(const TaggedValue& incidentId, const TaggedValue& caseNumber, bool secured) {
    return Insert("Incident", {{"IncidentId", incidentId}, {"CaseNbr", caseNumber}, {"IsSecured", secured}});
}

void TestDatabase::LinkIncident(StoredItemTypes kind, int32_t item, int32_t incidentNo) {
    Insert(std::string("Incd") + ItemTable(kind), {{"IncidentNo", incidentNo}, {KeyColumn(kind), item}});
}

void TestDatabase::AddCode(int16_t table, int32_t code, const std::string& name) { AddCode(table, code, name, name); }

void TestDatabase::AddCode(int16_t table, int32_t code, const TaggedValue& name, const TaggedValue& description,
                           bool active) {
    Insert("CodeTable", {{"TableNumber", static_cast<int32_t>(table)},
                         {"Code", code},
                         {"Name", name},
                         {"Description", description},
                         {"IsActive", active}});
}

void TestDatabase::AddPerson(int32_t personNo, const std::string& displayName, bool active) {
    Insert("Person", {{"PersonNo", personNo}, {"LastName", displayName}, {"IsActive", active}});
}

void TestDatabase::AddSetting(const std::string& name, const std::string& value) {
    Insert("Setting", {{"Name", name}, {"Value", value}});
}

void TestDatabase::AddAttachment(StoredItemTypes kind, int32_t item, const std::string& path,
                                 const std::string& fileName) {
    const int32_t folder = Insert("AttachmentFolder", {{"Path", path}});
    const int32_t ownerKind = kind == StoredItemTypes::Property ? 6 : 7;
    const int32_t sequence = ToInt32(
        QueryValue("SELECT COALESCE(MAX(SeqNo), 0) + 1 FROM AttachmentIndex WHERE IdNo = " + std::to_string(item) +
                   " AND ObjTypeInd = " + std::to_string(ownerKind)));
    Insert(
        "AttachmentIndex",
        {{"IdNo", item}, {"ObjTypeInd", ownerKind}, {"SeqNo", sequence}, {"FolderNo", folder}, {"FileName", fileName}});
    Execute("UPDATE " + std::string(ItemTable(kind)) + " SET CurrImageSeq = ? WHERE " + KeyColumn(kind) + " = ?",
            {sequence, item});
}

void TestDatabase::Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    try {
        SQLite::Statement statement(m_raw->database, sql);
        for (size_t i = 0; i < parameters.size(); ++i) Bind(statement, static_cast<int>(i) + 1, parameters[i]);
        while (statement.executeStep()) {
        }
    } catch (const SQLite::Exception& failure) {
        Raise(failure.getExtendedErrorCode(), "TestDatabase.Execute", failure.what());
    }
}

RowList TestDatabase::QueryRows(const std::string& sql) {
    try {
        SQLite::Statement statement(m_raw->database, sql);
        std::vector<std::string> names;
        for (int i = 0; i < statement.getColumnCount(); ++i) names.emplace_back(statement.getColumnName(i));
        const auto columns = std::make_shared<const ColumnSet>(std::move(names));
        RowList rows;
        while (statement.executeStep()) {
            std::vector<TaggedValue> values;
            for (int i = 0; i < statement.getColumnCount(); ++i) values.push_back(ValueOf(statement.getColumn(i)));
            rows.emplace_back(columns, std::move(values));
        }
        return rows;
    } catch (const SQLite::Exception& failure) {
        Raise(failure.getExtendedErrorCode(), "TestDatabase.QueryRows", failure.what());
    }
}

TaggedValue TestDatabase::QueryValue(const std::string& sql) {
    const RowList rows = QueryRows(sql);
    return rows.empty() ? TaggedValue() : rows.front().At(0);
}

std::string TestDatabase::Snapshot() {
    std::string text;
    for (const Row& table : QueryRows("SELECT name FROM sqlite_schema WHERE type = 'table' AND "
                                      "name NOT LIKE 'PropertyDescription%' AND name <> 'BatchMark' "
                                      "ORDER BY name")) {
        const std::string name = ToText(table.At(0));
        text += name + "\n";
        std::vector<std::string> lines;
        for (const Row& row : QueryRows("SELECT * FROM \"" + name + "\"")) {
            std::string line;
            for (size_t i = 0; i < row.Columns().Names().size(); ++i) {
                const TaggedValue& value = row.At(static_cast<int>(i));
                line += (value.IsNull() ? "NULL" : "'" + ToText(value) + "'") + "|";
            }
            lines.push_back(line);
        }
        std::sort(lines.begin(), lines.end());
        for (const std::string& line : lines) text += "  " + line + "\n";
    }
    return text;
}

}  // namespace quellbrook::testing
