#include "base/Error.h"
#include "host/HostDatabase.h"
#include "tests/database/schema/SchemaTest.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Type = StorageLocationTypes;

constexpr const char* containerGone =
    "Its container has been moved or deleted in the meantime. Refresh the locations and try again.";

// The statements of a move, like those of the model.
std::vector<std::string> Move(int id, const std::string& children, const std::string& proposed, int type,
                              const std::string& target) {
    const std::string change = "UPDATE StorageLocation SET Type = " + std::to_string(type) + ", Path = ";
    return {change + "REPLACE(Path, '" + children + "', '" + proposed + "') WHERE Path LIKE '" + children + "%'",
            change + "'" + target + "' WHERE IdNo = " + std::to_string(id)};
}

class LocationTreeGuardsTest : public SchemaTest {};

}  // namespace

TEST_F(LocationTreeGuardsTest, ALocationNeedsAnExistingContainerInTheSameCategory) {
    const std::string room = std::to_string(m_database.AddLocation("Room", Type::Internal));
    EXPECT_EQ(Raised(LocationInsert("Top", 8, "/0/")).Number(), 0);
    EXPECT_EQ(Raised(LocationInsert("Shelf", 2, "/0/" + room + "/")).Number(), 0);
    for (const std::string& wrong :
         {LocationInsert("A", 4, "/0/" + room + "/"), LocationInsert("A", 2, "/0/77/"), LocationInsert("A", 2, ""),
          LocationInsert("A", 2, "/0/77/" + room + "/"), LocationInsert("A", 2, "/0/" + room),
          LocationInsert("A", 2, "/"), LocationInsert("A", 2, "0/"), LocationInsert("A", 2, "/0/0/")}) {
        const Error error = Raised(wrong);
        EXPECT_EQ(error.Description(), containerGone) << wrong;
        EXPECT_NE(error.Number(), ErrorNumber::IntegrityViolation);
        EXPECT_NE(error.Number(), 0);
    }
    EXPECT_EQ(Raised("UPDATE StorageLocation SET Path = '/0/77/' WHERE Name = 'Shelf'").Description(), containerGone);
    EXPECT_EQ(Raised("UPDATE StorageLocation SET Path = '/0/" + room + "/' WHERE Name = 'Top'").Description(),
              containerGone);
}

TEST_F(LocationTreeGuardsTest, AWholeSubtreeMovesWithItsDescendantsFirst) {
    const int32_t a = m_database.AddLocation("A", Type::Internal);
    const int32_t b = m_database.AddLocation("B", Type::Internal);
    const int32_t x = m_database.AddLocation("X", Type::Internal, a);
    const int32_t y = m_database.AddLocation("Y", Type::Internal, x);
    const int32_t z = m_database.AddLocation("Z", Type::Internal, y);
    const std::string idA = std::to_string(a), idB = std::to_string(b), idX = std::to_string(x),
                      idY = std::to_string(y);
    GetHostDatabase().ExecuteBatch(
        Move(x, "/0/" + idA + "/" + idX + "/", "/0/" + idB + "/" + idX + "/", 2, "/0/" + idB + "/"));
    EXPECT_EQ(m_database.QueryValue("SELECT Path FROM StorageLocation WHERE Name = 'Z'"),
              TaggedValue("/0/" + idB + "/" + idX + "/" + idY + "/"));
    EXPECT_EQ(m_database.QueryValue("SELECT ContainerNo FROM StorageLocation WHERE IdNo = " + std::to_string(z)),
              TaggedValue(y));
}

TEST_F(LocationTreeGuardsTest, ASubtreeMovesToTheRootOfAnotherCategory) {
    const int32_t x = m_database.AddLocation("X", Type::Internal);
    m_database.AddLocation("Z", Type::Internal, m_database.AddLocation("Y", Type::Internal, x));
    const std::string children = "/0/" + std::to_string(x) + "/";
    GetHostDatabase().ExecuteBatch(Move(x, children, children, 8, "/0/"));
    EXPECT_EQ(Count("StorageLocation WHERE Type = 8"), 3);
}

TEST_F(LocationTreeGuardsTest, AMoveIntoAContainerThatMovedInTheMeantimeIsRefused) {
    const int32_t a = m_database.AddLocation("A", Type::Internal);
    const int32_t b = m_database.AddLocation("B", Type::Internal);
    const int32_t x = m_database.AddLocation("X", Type::Internal);
    m_database.AddLocation("Y", Type::Internal, x);
    const std::string idA = std::to_string(a), idB = std::to_string(b), idX = std::to_string(x);
    GetHostDatabase().ExecuteBatch(Move(b, "/0/" + idB + "/", "/0/" + idA + "/" + idB + "/", 2, "/0/" + idA + "/"));
    const std::string before = m_database.Snapshot();
    const Error error = RaisedBy([&] {
        GetHostDatabase().ExecuteBatch(Move(x, "/0/" + idX + "/", "/0/" + idB + "/" + idX + "/", 2, "/0/" + idB + "/"));
    });
    EXPECT_EQ(error.Description(), containerGone);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(LocationTreeGuardsTest, AMoveThatWouldLeaveSublocationsBehindIsRefused) {
    const int32_t a = m_database.AddLocation("A", Type::Internal);
    const int32_t x = m_database.AddLocation("X", Type::Internal);
    m_database.AddLocation("Y", Type::Internal, x);
    const std::string idA = std::to_string(a), idX = std::to_string(x);
    const std::string before = m_database.Snapshot();
    const Error moved = RaisedBy([&] {
        GetHostDatabase().ExecuteBatch(
            Move(x, "/0/99/" + idX + "/", "/0/" + idA + "/" + idX + "/", 2, "/0/" + idA + "/"));
    });
    EXPECT_NE(moved.Description().find("sublocations would be left behind"), std::string::npos) << moved.Description();
    EXPECT_NE(moved.Number(), ErrorNumber::IntegrityViolation);
    const Error recategorized = Raised("UPDATE StorageLocation SET Type = 4 WHERE IdNo = " + idX);
    EXPECT_NE(recategorized.Description().find("sublocations would be left behind"), std::string::npos);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(LocationTreeGuardsTest, ALocationWithSublocationsCannotBeDeletedAlone) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    m_database.AddLocation("Box", Type::Internal, m_database.AddLocation("Shelf", Type::Internal, room));
    const std::string id = std::to_string(room);
    EXPECT_EQ(Raised("DELETE FROM StorageLocation WHERE IdNo = " + id).Number(), ErrorNumber::IntegrityViolation);
    GetHostDatabase().ExecuteBatch({"DELETE FROM StorageLocation WHERE Path LIKE '/0/" + id + "/%'",
                                    "DELETE FROM StorageLocation WHERE IdNo = " + id});
    EXPECT_EQ(Count("StorageLocation"), 0);
}

TEST_F(LocationTreeGuardsTest, ALocationDeepInTheTreeKeepsItsContainerAndCategory) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    const int32_t shelf = m_database.AddLocation("Shelf", Type::Internal, room);
    const int32_t box = m_database.AddLocation("Box", Type::Internal, shelf);
    m_database.AddLocation("Bag", Type::Internal, box);
    const std::string before = m_database.Snapshot();
    const std::string shelfId = std::to_string(shelf), boxId = std::to_string(box);
    for (const std::string& change :
         {"Type = 4 WHERE IdNo = " + boxId, "Type = 4 WHERE IdNo = " + shelfId,
          std::string("Type = 4 WHERE Name = 'Bag'"), "Path = '/0/99/" + shelfId + "/' WHERE IdNo = " + boxId,
          "Path = '/0/" + shelfId + "/' WHERE IdNo = " + boxId, "Path = '/0//" + shelfId + "' WHERE IdNo = " + boxId,
          "Path = Path || '/' WHERE IdNo = " + boxId, "Path = REPLACE(Path, '/" + shelfId + "/', '/0" + shelfId + "/')",
          "Type = 4, Path = '/0/" + shelfId + "/' WHERE IdNo = " + boxId}) {
        EXPECT_NE(Raised("UPDATE StorageLocation SET " + change).Number(), 0) << change;
        EXPECT_NE(RaisedBy([&] { GetHostDatabase().ExecuteBatch({"UPDATE StorageLocation SET " + change}); }).Number(),
                  0)
            << change;
    }
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(LocationTreeGuardsTest, HalfAMoveIsNotCommitted) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    const int32_t shelf = m_database.AddLocation("Shelf", Type::Internal, room);
    const int32_t box = m_database.AddLocation("Box", Type::Internal, shelf);
    const int32_t annex = m_database.AddLocation("Annex", Type::Internal);
    m_database.AddLocation("Bag", Type::Internal, box);
    const std::string before = m_database.Snapshot();
    const std::string id = std::to_string(shelf), target = "/0/" + std::to_string(annex) + "/";
    const std::string children = "/0/" + std::to_string(room) + "/" + id + "/";
    const std::vector<std::string> move = Move(shelf, children, target + id + "/", 2, target);
    EXPECT_NE(RaisedBy([&] { GetHostDatabase().ExecuteBatch({move[0]}); }).Number(), 0);
    EXPECT_EQ(m_database.Snapshot(), before);
    GetHostDatabase().ExecuteBatch(move);
    EXPECT_EQ(Count("StorageLocation WHERE Path LIKE '" + target + "%'"), 3);
}

// As with the command line program of SQLite, where foreign keys are off.
TEST_F(LocationTreeGuardsTest, WithoutForeignKeysLocationsAreNotMovedDeletedOrReplaced) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    const int32_t shelf = m_database.AddLocation("Shelf", Type::Internal, room);
    m_database.AddLocation("Box", Type::Internal, shelf);
    const std::string before = m_database.Snapshot();
    const std::string id = std::to_string(shelf);
    SQLite::Database byHand(m_database.Path(), SQLite::OPEN_READWRITE);
    byHand.exec("PRAGMA foreign_keys = OFF; PRAGMA recursive_triggers = OFF");
    const std::string dates = "'2026-01-01T00:00:00.000', '2026-01-01T00:00:00.000')";
    const std::string insert = "INTO StorageLocation (IdNo, Name, Type, Path, DateEntered, LastUpdated) VALUES ";
    for (const std::string& change :
         {std::string("UPDATE StorageLocation SET Type = 4 WHERE Name = 'Box'"),
          std::string("UPDATE StorageLocation SET Path = '/0/'"),
          "UPDATE StorageLocation SET IdNo = 77 WHERE IdNo = " + id, "DELETE FROM StorageLocation WHERE IdNo = " + id,
          "INSERT OR REPLACE " + insert + "(" + id + ", 'Shelf', 2, '/0/', " + dates,
          "REPLACE " + insert + "(NULL, 'SHELF', 2, '/0/" + std::to_string(room) + "/', " + dates}) {
        try {
            byHand.exec(change);
            ADD_FAILURE() << change;
        } catch (const SQLite::Exception& refusal) {
            EXPECT_STREQ(refusal.what(),
                         "Locations are moved, deleted and replaced only where foreign keys are checked (PRAGMA "
                         "foreign_keys = ON).")
                << change;
        }
    }
    EXPECT_EQ(m_database.Snapshot(), before);
    byHand.exec("UPDATE StorageLocation SET Name = Name || ' 1', Type = Type, Path = Path");
    byHand.exec("INSERT " + insert + "(77, 'Annex', 2, '/0/', " + dates);
}

TEST_F(LocationTreeGuardsTest, ALocationHasANameAFlagAndDates) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    for (const char* wrong :
         {"ActiveFlag = 'maybe'", "ActiveFlag = 2", "Name = x'41'", "DateEntered = '2026-01-01'", "LastUpdated = ''",
          "LastUpdated = '2026-02-30T00:00:00.000'", "LastUpdated = 5", "DateEntered = '2026-01-01 00:00:00.000'"}) {
        const auto raised = [&](const std::string& sql) { return RaisedBy([&] { m_database.Execute(sql); }); };
        const Error error = raised(std::string("UPDATE StorageLocation SET ") + wrong);
        EXPECT_EQ(error.Description(),
                  "A storage location has a name, a flag that is 0 or 1, and dates like 2026-11-20T13:14:15.123.")
            << wrong;
        std::string insert =
            "INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) "
            "SELECT Name || ' 2', Type, Path, ActiveFlag, DateEntered, LastUpdated FROM StorageLocation";
        const std::string column = std::string(wrong).substr(0, std::string(wrong).find(' '));
        const size_t at = insert.find(column, insert.find("SELECT"));
        insert.replace(at, column.size() + (column == "Name" ? 8 : 0), std::string(wrong).substr(column.size() + 3));
        EXPECT_EQ(raised(insert).Description(), error.Description()) << insert;
    }
    EXPECT_EQ(Raised("UPDATE StorageLocation SET ActiveFlag = NULL, Name = 'Hall'").Number(), 0);
    EXPECT_EQ(m_database.QueryValue("SELECT Name FROM StorageLocation WHERE IdNo = " + std::to_string(room)),
              TaggedValue("Hall"));
}
