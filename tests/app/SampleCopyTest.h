#pragma once

#include "database/SqliteEngine.h"
#include "host/HostServices.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/ScratchFolder.h"

#include <memory>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// A copy of the sample department as the host's database. m_database is a second connection to it.
class SampleCopyTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = m_directory.In("copy.sqlite");
        CopySample(path);
        m_database = std::make_unique<SQLite::Database>(path, SQLite::OPEN_READWRITE);
        m_database->exec("PRAGMA foreign_keys = ON");
        HostServices::Current().SetEngine(SqliteEngine::Open(path));
    }

    void TearDown() override {
        HostServices::Current().SetSession(nullptr);
        HostServices::Current().SetEngine(nullptr);
    }

    ScratchFolder m_directory;
    std::unique_ptr<SQLite::Database> m_database;
};

}  // namespace quellbrook::testing
