#pragma once

#include "benchmarks/Statement.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::bench {

// The same work written by hand: minimal SQL that returns the same rows, prepared once on a separate connection with
// the same file, schema and settings, and rows read into plain structs.
class Baseline {
public:
    explicit Baseline(const std::string& path);

    struct Item {
        int itemType;
        int32_t id;
        int32_t category;
        int32_t trackSeq;
        int32_t location;
        std::string displayId, description, make, model, serial;
        double quantity, value;
        int recordType;
    };
    using Items = std::vector<std::unique_ptr<Item>>;

    // The two halves of every query for items, with thirteen columns. Append conditions on p, v, t and d.
    static const char* const PropertyColumns;
    static const char* const VehicleColumns;
    static const char* const VehicleDescription;

    Statement Prepare(const std::string& sql) { return Statement(m_database.get(), sql); }
    void Run(const std::string& sql);
    std::vector<int32_t> Integers(const std::string& sql);
    std::vector<std::string> Texts(const std::string& sql);

    // All rows of a bound statement with these columns.
    static Items ReadItems(Statement& statement);

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

}  // namespace quellbrook::bench
