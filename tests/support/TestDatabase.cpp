#include "tests/support/TestDatabase.h"

#include "base/Text.h"
#include "host/HostServices.h"
#include "tests/support/RawDatabase.h"

#include <algorithm>

namespace quellbrook::testing {

namespace {

const char* ItemTable(StoredItemTypes kind) { return kind == StoredItemTypes::Property ? "Property" : "Vehicle"; }
std::string KeyColumn(StoredItemTypes kind) { return ItemTable(kind) + std::string("No"); }

}  // namespace

TestDatabase::TestDatabase() : m_raw(TestServer().empty() ? MakeSqliteDatabase() : MakeServerDatabase()) {
    m_path = m_raw->Path();
    m_engine = m_raw->OpenEngine();
    HostServices::Current().SetEngine(m_engine);
}

TestDatabase::~TestDatabase() { HostServices::Current().SetEngine(nullptr); }

std::shared_ptr<Engine> TestDatabase::OpenEngine() { return m_raw->OpenEngine(); }

void TestDatabase::CheckForeignKeys(bool checks) { m_raw->CheckForeignKeys(checks); }

void TestDatabase::Reconnect() { m_raw->Reconnect(); }

void TestDatabase::Install(std::shared_ptr<Engine> engine) { HostServices::Current().SetEngine(std::move(engine)); }

int32_t TestDatabase::Insert(const std::string& table, const std::vector<std::pair<std::string, TaggedValue>>& cells) {
    return m_raw->Insert(table, cells);
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

void TestDatabase::NumberVehiclesApart() { m_raw->NumberVehiclesFrom(101); }

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
    m_raw->Execute(sql, parameters);
}

RowList TestDatabase::QueryRows(const std::string& sql) { return m_raw->QueryRows(sql); }

TaggedValue TestDatabase::QueryValue(const std::string& sql) {
    const RowList rows = QueryRows(sql);
    return rows.empty() ? TaggedValue() : rows.front().At(0);
}

std::string TestDatabase::Snapshot() {
    std::string text;
    std::vector<std::string> names = m_raw->TableNames();
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) {
        if (EqualsNoCase(name, "BatchMark")) continue;
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
