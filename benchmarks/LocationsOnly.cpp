#include "benchmarks/LocationsOnly.h"

#include "benchmarks/Baseline.h"
#include "database/schema/SqliteSchema.h"

#include <cstdio>
#include <vector>

namespace quellbrook::bench {

void CreateLocationsOnly(const std::string& path, int count) {
    constexpr int toAContainer = 10;
    constexpr int32_t category = 2;
    const std::string unfinished = path + ".new";
    std::remove(unfinished.c_str());
    CreateDatabase(unfinished);
    {
        Baseline database(unfinished);
        database.Run("BEGIN");
        Statement insert = database.Prepare(
            "INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) "
            "VALUES (?1, ?2, ?3, ?4, 1, '2026-01-02T03:04:05.000', '2026-01-02T03:04:05.000')");
        std::vector<std::string> paths = {"/0/"};
        for (int32_t id = 1; id <= count; ++id) {
            const std::string name = "Shelf " + std::to_string(id);
            const std::string container = paths.at(static_cast<size_t>((id - 1) / toAContainer));
            insert.Bind(1, id).Bind(2, name).Bind(3, category).Bind(4, container).Step();
            paths.push_back(container + std::to_string(id) + "/");
        }
        database.Run("COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    }
    std::rename(unfinished.c_str(), path.c_str());
}

}  // namespace quellbrook::bench
