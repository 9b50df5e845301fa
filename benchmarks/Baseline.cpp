#include "benchmarks/Baseline.h"

#include <sqlite3.h>

#include <stdexcept>

namespace quellbrook::bench {

namespace {

const char* const PropertyColumns =
    "SELECT 1, p.PropertyNo, p.CategoryNo, p.CurrTrackSeq, t.StorageLocNo, p.PropertyID, p.Description, p.Quantity, "
    "p.PropertyValue, p.ManufacNbr, p.ModelNbr, p.SerialNbr, p.RecordTypeInd FROM Property p "
    "LEFT JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo AND t.SeqNo = p.CurrTrackSeq";

const char* const VehicleColumns =
    "SELECT 2, v.VehicleNo, v.CategoryNo, v.CurrTrackSeq, t.StorageLocNo, "
    "COALESCE(d.RegNumber, '[No Tag Number]') || ' (' || d.RegStateCode || ')', "
    "COALESCE(d.VehYear || ' ', '') || COALESCE(d.ColorCode || ' ', '') || COALESCE(d.MakeCode || ' ', '') || "
    "COALESCE(d.VehModel, ''), 1, NULL, COALESCE(d.MakeCode || ' ', ''), COALESCE(d.VehModel, ''), NULL, v.RecordTypeInd "
    "FROM Vehicle v INNER JOIN vwVehicleDisplayInfo d ON d.VehicleNo = v.VehicleNo "
    "LEFT JOIN VehicleTracking t ON t.VehicleNo = v.VehicleNo AND t.SeqNo = v.CurrTrackSeq";

void Check(int code, sqlite3* database) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(database));
}

std::string Text(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text ? std::string(text, static_cast<size_t>(sqlite3_column_bytes(statement, column))) : std::string();
}

std::unique_ptr<Baseline::Item> Read(sqlite3_stmt* s) {
    auto item = std::make_unique<Baseline::Item>();
    item->itemType = sqlite3_column_int(s, 0);
    item->id = sqlite3_column_int(s, 1);
    item->category = sqlite3_column_int(s, 2);
    item->trackSeq = sqlite3_column_int(s, 3);
    item->location = sqlite3_column_int(s, 4);
    item->displayId = Text(s, 5);
    item->description = Text(s, 6);
    item->quantity = sqlite3_column_double(s, 7);
    item->value = sqlite3_column_double(s, 8);
    item->make = Text(s, 9);
    item->model = Text(s, 10);
    item->serial = Text(s, 11);
    item->recordType = sqlite3_column_int(s, 12);
    return item;
}

}  // namespace

struct Baseline::Statements {
    sqlite3* database = nullptr;
    sqlite3_stmt* property = nullptr;
    sqlite3_stmt* vehicle = nullptr;
    sqlite3_stmt* contents = nullptr;
    sqlite3_stmt* insertProperty = nullptr;
    sqlite3_stmt* updateProperty = nullptr;
    sqlite3_stmt* insertVehicle = nullptr;
    sqlite3_stmt* updateVehicle = nullptr;

    void Run(const std::string& sql) { Check(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), database); }

    sqlite3_stmt* Prepare(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v3(database, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr), database);
        return statement;
    }

    ~Statements() {
        for (sqlite3_stmt* s :
             {property, vehicle, contents, insertProperty, updateProperty, insertVehicle, updateVehicle})
            sqlite3_finalize(s);
        sqlite3_close(database);
    }
};

Baseline::Baseline(const std::string& path) : m_statements(std::make_unique<Statements>()) {
    Statements& s = *m_statements;
    Check(sqlite3_open_v2(path.c_str(), &s.database, SQLITE_OPEN_READWRITE, nullptr), s.database);
    s.Run("PRAGMA synchronous=FULL; PRAGMA foreign_keys=ON; PRAGMA cache_size=-65536; PRAGMA busy_timeout=5000");
    s.property = s.Prepare(std::string(PropertyColumns) + " WHERE p.PropertyNo = ?1 AND t.StorageLocNo IS NOT NULL");
    s.vehicle = s.Prepare(std::string(VehicleColumns) + " WHERE v.VehicleNo = ?1 AND t.StorageLocNo IS NOT NULL");
    s.contents = s.Prepare(std::string(PropertyColumns) +
                           " WHERE p.PropertyNo IN (SELECT ItemNo FROM CurrentPlace WHERE StorageLocNo = ?1 AND "
                           "ItemType = 1) AND +t.StorageLocNo = ?1 UNION ALL " +
                           VehicleColumns +
                           " WHERE v.VehicleNo IN (SELECT ItemNo FROM CurrentPlace WHERE StorageLocNo = ?1 AND "
                           "ItemType = 2) AND +t.StorageLocNo = ?1");
    const auto insertInto = [](const std::string& kind) {
        return "INSERT INTO " + kind + "Tracking (" + kind + "No, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, " +
               "CustodyReasonNo, StorageLocNo, LastUpdated) SELECT ?1, COALESCE(MAX(SeqNo), 0) + 1, ?2, ?3, ?4, ?5, ?6, ?4 " +
               "FROM " + kind + "Tracking WHERE " + kind + "No = ?1";
    };
    const auto update = [](const std::string& kind) {
        return "UPDATE " + kind + " SET CurrTrackSeq = (SELECT MAX(SeqNo) FROM " + kind + "Tracking WHERE " + kind +
               "No = ?1) WHERE " + kind + "No = ?1";
    };
    s.insertProperty = s.Prepare(insertInto("Property"));
    s.updateProperty = s.Prepare(update("Property"));
    s.insertVehicle = s.Prepare(insertInto("Vehicle"));
    s.updateVehicle = s.Prepare(update("Vehicle"));
}

Baseline::~Baseline() = default;

namespace {

std::unique_ptr<Baseline::Item> ReadOne(sqlite3_stmt* statement, int32_t key) {
    sqlite3_bind_int(statement, 1, key);
    std::unique_ptr<Baseline::Item> item;
    if (sqlite3_step(statement) == SQLITE_ROW) item = Read(statement);
    sqlite3_reset(statement);
    return item;
}

}  // namespace

std::unique_ptr<Baseline::Item> Baseline::Property(int32_t propertyNo) {
    return ReadOne(m_statements->property, propertyNo);
}

std::unique_ptr<Baseline::Item> Baseline::Vehicle(int32_t vehicleNo) { return ReadOne(m_statements->vehicle, vehicleNo); }

std::vector<std::unique_ptr<Baseline::Item>> Baseline::Contents(int32_t location) {
    std::vector<std::unique_ptr<Item>> items;
    sqlite3_bind_int(m_statements->contents, 1, location);
    while (sqlite3_step(m_statements->contents) == SQLITE_ROW) items.push_back(Read(m_statements->contents));
    sqlite3_reset(m_statements->contents);
    return items;
}

void Baseline::Transfer(const std::vector<Key>& items, int32_t location, int32_t by, int32_t from, int32_t reason,
                        const std::string& moment) {
    Statements& s = *m_statements;
    s.Run("BEGIN IMMEDIATE");
    for (const Key& item : items) {
        sqlite3_stmt* insert = item.isVehicle ? s.insertVehicle : s.insertProperty;
        sqlite3_stmt* update = item.isVehicle ? s.updateVehicle : s.updateProperty;
        sqlite3_bind_int(insert, 1, item.id);
        sqlite3_bind_int(insert, 2, by);
        sqlite3_bind_int(insert, 3, from);
        sqlite3_bind_text(insert, 4, moment.c_str(), static_cast<int>(moment.size()), SQLITE_STATIC);
        sqlite3_bind_int(insert, 5, reason);
        sqlite3_bind_int(insert, 6, location);
        Check(sqlite3_step(insert), s.database);
        sqlite3_reset(insert);
        sqlite3_bind_int(update, 1, item.id);
        Check(sqlite3_step(update), s.database);
        sqlite3_reset(update);
    }
    s.Run("COMMIT");
}

std::vector<int32_t> Baseline::Integers(const std::string& sql) {
    std::vector<int32_t> numbers;
    sqlite3_stmt* statement = m_statements->Prepare(sql);
    while (sqlite3_step(statement) == SQLITE_ROW) numbers.push_back(sqlite3_column_int(statement, 0));
    sqlite3_finalize(statement);
    return numbers;
}

}  // namespace quellbrook::bench
