#pragma once

#include "tests/support/ModelTest.h"
#include "tests/support/TestDatabase.h"

namespace quellbrook::testing {

// A ModelTest with the database of an empty department.
class DatabaseTest : public ModelTest {
protected:
    TestDatabase m_database;
};

}  // namespace quellbrook::testing
