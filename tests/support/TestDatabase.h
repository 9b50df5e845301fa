#pragma once

#include "base/DateTime.h"
#include "data/Types.h"
#include "database/Connection.h"
#include "sql/Row.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::testing {

class RawDatabase;

// Columns of a property row that tests set by name: AddProperty({.PropertyID = "E-1", .Description = "blue bicycle"}).
struct PropertyFields {
    TaggedValue PropertyID = Null();
    TaggedValue Description = Null();
    TaggedValue CategoryNo = Null();
    TaggedValue Quantity = 1;
    TaggedValue PropertyValue = Null();
    TaggedValue ManufacNbr = Null();
    TaggedValue ModelNbr = Null();
    TaggedValue SerialNbr = Null();
    TaggedValue RecordTypeInd = 1;
    TaggedValue CurrImageSeq = Null();
};

struct VehicleFields {
    TaggedValue RegNumber = Null();
    TaggedValue RegStateCode = Null();
    TaggedValue VehYear = Null();
    TaggedValue ColorCode = Null();
    TaggedValue MakeCode = Null();
    TaggedValue VehModel = Null();
    TaggedValue CategoryNo = Null();
    TaggedValue RecordTypeInd = 1;
    TaggedValue CurrImageSeq = Null();
};

struct CustodyFields {
    TaggedValue ReceivedBy = Null();
    TaggedValue ReceivedFrom = Null();
    TaggedValue DateReceived = DateTime::FromParts({2026, 1, 2, 9, 30, 0, 0});
    TaggedValue CustodyReasonNo = Null();
    TaggedValue LastUpdated = DateTime::FromParts({2026, 1, 2, 9, 31, 0, 0});
};

// An empty department database in our schema, in a temporary file, or on the server that QUELLBROOK_TEST_ODBC names.
// Its engine is installed in HostServices for its own lifetime. The builders and raw helpers use a separate connection.
// They raise Errors with the engine's messages.
class TestDatabase {
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    // Empty on a server.
    const std::string& Path() const { return m_path; }
    std::shared_ptr<Engine> GetEngine() const { return m_engine; }
    // Another engine, which reads the facts of the schema again.
    std::shared_ptr<Engine> OpenEngine();
    // Installs another engine instead, such as one that wraps GetEngine().
    void Install(std::shared_ptr<Engine> engine);

    // Each returns the key of the new row. A location without an `enabled` has ActiveFlag NULL; its parent must exist,
    // with the same type. LastUpdated and DateEntered are the same fixed moment for all.
    int32_t AddLocation(const std::string& name, StorageLocationTypes type, int32_t parentId = 0,
                        std::optional<bool> enabled = true);
    int32_t AddProperty(const PropertyFields& fields = {});
    int32_t AddVehicle(const VehicleFields& fields = {});
    // Adds the item's next custody row and makes it the current one. Returns its SeqNo. The location may be Null.
    int32_t AddCustodyRow(StoredItemTypes kind, int32_t item, const TaggedValue& location,
                          const CustodyFields& fields = {});
    // An item with one custody row. Returns its key.
    int32_t AddStored(const PropertyFields& fields, const TaggedValue& location, const CustodyFields& custody = {});
    int32_t AddStored(const VehicleFields& fields, const TaggedValue& location, const CustodyFields& custody = {});
    // Numbers the vehicles from 101, so that they share no number with property: a batch accepts only one item with the
    // same number. Call it before the first vehicle.
    void NumberVehiclesApart();
    int32_t AddIncident(const TaggedValue& incidentId, const TaggedValue& caseNumber = Null(), bool secured = false);
    void LinkIncident(StoredItemTypes kind, int32_t item, int32_t incidentNo);
    void AddCode(int16_t table, int32_t code, const std::string& name);  // the description is the same text
    void AddCode(int16_t table, int32_t code, const TaggedValue& name, const TaggedValue& description,
                 bool active = true);
    void AddPerson(int32_t personNo, const std::string& displayName, bool active = true);
    void AddSetting(const std::string& name, const std::string& value);
    // Adds the attachment in folder path as the item's main one.
    void AddAttachment(StoredItemTypes kind, int32_t item, const std::string& path, const std::string& fileName);

    // The engine's own SQL. Values are returned by storage class: integers, doubles, texts, NULL.
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters = {});
    RowList QueryRows(const std::string& sql);
    void CheckForeignKeys(bool checks);              // see RawDatabase
    void Reconnect();                                // see RawDatabase
    TaggedValue QueryValue(const std::string& sql);  // first column of the first row; Empty without a row

    // Every row of every table as text, in a fixed order, to compare databases. Without the trigram index and the
    // marks of batches.
    std::string Snapshot();

private:
    int32_t Insert(const std::string& table, const std::vector<std::pair<std::string, TaggedValue>>& cells);

    std::string m_path;
    std::unique_ptr<RawDatabase> m_raw;
    std::shared_ptr<Engine> m_engine;
};

}  // namespace quellbrook::testing
