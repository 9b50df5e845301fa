#pragma once

#include "data/StorageLocationStatic.h"
#include "tests/support/TestDatabase.h"

#include <cstdint>
#include <string>

namespace quellbrook::testing {

// The locations of a small department, in an empty database:
// Internal: Room > Shelf > Box, Room > Bin; and Annex.  External: Court.
struct TestLocations {
    explicit TestLocations(TestDatabase& database) : m_database(database) {
        using Type = StorageLocationTypes;
        room = database.AddLocation("Room", Type::Internal);
        shelf = database.AddLocation("Shelf", Type::Internal, room);
        box = database.AddLocation("Box", Type::Internal, shelf);
        bin = database.AddLocation("Bin", Type::Internal, room);
        annex = database.AddLocation("Annex", Type::Internal);
        court = database.AddLocation("Court", Type::External);
    }

    static StorageLocationRef Find(int32_t id) { return GetStorageLocationStatic().FindByID(id); }
    static StorageLocationRef Root(StorageLocationTypes type) { return GetStorageLocationStatic().GetRoot(type); }

    // "Name Type Path" from the database; empty if there is no such row.
    std::string Row(int32_t id) const {
        return ToTextOrEmpty(
            m_database.QueryValue("SELECT Name || ' ' || Type || ' ' || Path FROM StorageLocation "
                                  "WHERE IdNo = " +
                                  std::to_string(id)));
    }
    std::string Cell(int32_t id, const std::string& column) const {
        return ToTextOrEmpty(
            m_database.QueryValue("SELECT " + column + " FROM StorageLocation WHERE IdNo = " + std::to_string(id)));
    }
    int32_t Count() const { return ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM StorageLocation")); }

    int32_t room = 0, shelf = 0, box = 0, bin = 0, annex = 0, court = 0;  // 1 to 6

private:
    TestDatabase& m_database;
};

}  // namespace quellbrook::testing
