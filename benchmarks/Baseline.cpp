#include "benchmarks/Baseline.h"

#include <stdexcept>

namespace quellbrook::bench {

const char* const Baseline::PropertyColumns =
    "SELECT 1, p.PropertyNo, p.CategoryNo, p.CurrTrackSeq, t.StorageLocNo, p.PropertyID, p.Description, p.Quantity, "
    "p.PropertyValue, p.ManufacNbr, p.ModelNbr, p.SerialNbr, p.RecordTypeInd FROM Property p "
    "LEFT JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo AND t.SeqNo = p.CurrTrackSeq";

const char* const Baseline::VehicleColumns =
    "SELECT 2, v.VehicleNo, v.CategoryNo, v.CurrTrackSeq, t.StorageLocNo, "
    "COALESCE(d.RegNumber, '[No Tag Number]') || ' (' || d.RegStateCode || ')', "
    "COALESCE(d.VehYear || ' ', '') || COALESCE(d.ColorCode || ' ', '') || COALESCE(d.MakeCode || ' ', '') || "
    "COALESCE(d.VehModel, ''), 1, NULL, COALESCE(d.MakeCode || ' ', ''), COALESCE(d.VehModel, ''), NULL, "
    "v.RecordTypeInd FROM Vehicle v INNER JOIN vwVehicleDisplayInfo d ON d.VehicleNo = v.VehicleNo "
    "LEFT JOIN VehicleTracking t ON t.VehicleNo = v.VehicleNo AND t.SeqNo = v.CurrTrackSeq";

const char* const Baseline::VehicleDescription =
    "COALESCE(d.VehYear || ' ', '') || COALESCE(d.ColorCode || ' ', '') || COALESCE(d.MakeCode || ' ', '') || "
    "COALESCE(d.VehModel, '')";

Baseline::Baseline(const std::string& path) {
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    m_database.reset(database);
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
    Run("PRAGMA synchronous=FULL; PRAGMA foreign_keys=ON; PRAGMA recursive_triggers=ON; PRAGMA temp_store=MEMORY; "
        "PRAGMA cache_size=-65536; PRAGMA busy_timeout=5000");
}

void Baseline::Run(const std::string& sql) {
    if (sqlite3_exec(m_database.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_database.get()));
}

std::vector<int32_t> Baseline::Integers(const std::string& sql) {
    std::vector<int32_t> numbers;
    Statement statement = Prepare(sql);
    while (statement.Step()) numbers.push_back(statement.Integer(0));
    return numbers;
}

std::vector<std::string> Baseline::Texts(const std::string& sql) {
    std::vector<std::string> texts;
    Statement statement = Prepare(sql);
    while (statement.Step()) texts.push_back(statement.Text(0));
    return texts;
}

Baseline::Items Baseline::ReadItems(Statement& s) {
    Items items;
    while (s.Step()) {
        auto item = std::make_unique<Item>();
        item->itemType = s.Integer(0);
        item->id = s.Integer(1);
        item->category = s.Integer(2);
        item->trackSeq = s.Integer(3);
        item->location = s.Integer(4);
        item->displayId = s.Text(5);
        item->description = s.Text(6);
        item->quantity = s.Number(7);
        item->value = s.Number(8);
        item->make = s.Text(9);
        item->model = s.Text(10);
        item->serial = s.Text(11);
        item->recordType = s.Integer(12);
        items.push_back(std::move(item));
    }
    return items;
}

}  // namespace quellbrook::bench
