#include "database/SqliteKeys.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SqliteKeysTest : public ::testing::Test {
protected:
    std::vector<RowKey> KeysOf(const char* schema) {
        m_database.exec(schema);
        return ReadKeys(m_database.getHandle());
    }

    SQLite::Database m_database{":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE};
};

TEST_F(SqliteKeysTest, APrimaryKeyThatIsTheNumberOfTheRowCounts) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (IdNo INTEGER PRIMARY KEY, Name TEXT)"),
                ElementsAre(RowKey{"Item", {"IdNo"}}));
}

TEST_F(SqliteKeysTest, TheColumnsOfAKeyComeTogether) {
    EXPECT_THAT(KeysOf("CREATE TABLE Step (Item INTEGER, Number INTEGER, PRIMARY KEY (Item, Number)) WITHOUT ROWID"),
                ElementsAre(RowKey{"Step", {"Item", "Number"}}));
}

TEST_F(SqliteKeysTest, AUniqueIndexCounts) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (Number INTEGER NOT NULL); CREATE UNIQUE INDEX ByNumber ON Item (Number)"),
                ElementsAre(RowKey{"Item", {"Number"}}));
}

TEST_F(SqliteKeysTest, AnIndexOfSomeRowsDoesNotCount) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (Number INTEGER NOT NULL);"
                       "CREATE UNIQUE INDEX ByNumber ON Item (Number) WHERE Number > 5"),
                IsEmpty());
}

TEST_F(SqliteKeysTest, AnIndexThatIsNotUniqueDoesNotCount) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (Number INTEGER NOT NULL); CREATE INDEX ByNumber ON Item (Number)"),
                IsEmpty());
}

TEST_F(SqliteKeysTest, AKeyThatMayBeNullDoesNotCount) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (Number INTEGER UNIQUE)"), IsEmpty());
}

TEST_F(SqliteKeysTest, AKeyWithATextDoesNotCount) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (Place INTEGER NOT NULL, Name TEXT NOT NULL, UNIQUE (Place, Name))"),
                IsEmpty());
}

TEST_F(SqliteKeysTest, AnIndexOnAnExpressionDoesNotCount) {
    EXPECT_THAT(KeysOf("CREATE TABLE Item (Number INTEGER NOT NULL); CREATE UNIQUE INDEX ByHalf ON Item (Number / 2)"),
                IsEmpty());
}

TEST_F(SqliteKeysTest, AnotherViewOfTheVehiclesHasNoKey) {
    EXPECT_THAT(KeysOf("CREATE TABLE Vehicle (VehicleNo INTEGER PRIMARY KEY);"
                       "CREATE VIEW vwVehicleDisplayInfo AS SELECT a.VehicleNo FROM Vehicle a, Vehicle b"),
                ElementsAre(RowKey{"Vehicle", {"VehicleNo"}}));
}

}  // namespace
}  // namespace quellbrook::testing
