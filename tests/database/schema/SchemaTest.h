#pragma once

#include "base/Error.h"
#include "host/HostDatabase.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <string>

namespace quellbrook::testing {

// A new department, changed by statements.
class SchemaTest : public ::testing::Test {
protected:
    static std::string LocationInsert(const std::string& name, int type, const std::string& path) {
        return "INSERT INTO StorageLocation (Name,Type,Path,DateEntered,LastUpdated) VALUES ('" + name + "'," +
               std::to_string(type) + ",'" + path + "','2026-01-01T00:00:00.000','2026-01-01T00:00:00.000')";
    }

    void Execute(const std::string& sql) { GetHostDatabase().Execute(sql); }
    int32_t Count(const std::string& what) { return ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM " + what)); }
    Error Raised(const std::string& sql) {
        return RaisedBy([&] { Execute(sql); });
    }

    TestDatabase m_database;
};

}  // namespace quellbrook::testing
