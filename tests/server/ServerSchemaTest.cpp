#include "base/Error.h"
#include "database/odbc/ServerDatabase.h"
#include "sql/tsql/TransactSqlRewriter.h"
#include "tests/server/ServerTest.h"

namespace quellbrook::testing {
namespace {

class ServerDepartment : public ServerTest {
protected:
    Dialect Learn() { return OdbcEngine::Open(TestServer())->GetDialect(); }
};

TEST_F(ServerDepartment, ADatabaseThatIsNotEmptyIsRefusedUnchanged) {
    const std::string before = m_database.Snapshot();
    const Error error = RaisedBy([] { CreateServerDatabase(TestServer()); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_TRUE(error.Description().starts_with("The department can't be created: the database is not empty. It has '"))
        << error.Description();
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(ServerDepartment, EverythingThatOurSchemaOffersIsUsed) {
    const Dialect dialect = Learn();
    EXPECT_EQ(dialect.concatenation, "||");
    EXPECT_TRUE(dialect.hasCurrentPlace);
    EXPECT_TRUE(dialect.itemsAreDistinct);
}

TEST_F(ServerDepartment, CurrentPlacesAreNotUsedWithoutAllTheirTriggers) {
    m_database.Execute("ALTER TABLE Vehicle DISABLE TRIGGER VehiclePlace");
    EXPECT_FALSE(Learn().hasCurrentPlace);
    m_database.Execute("ALTER TABLE Vehicle ENABLE TRIGGER VehiclePlace");
    EXPECT_TRUE(Learn().hasCurrentPlace);
    m_database.Execute("DROP TRIGGER PropertyTrackingPlace ON PropertyTracking");
    EXPECT_FALSE(Learn().hasCurrentPlace);
}

TEST_F(ServerDepartment, AFactThatIsDeletedIsNotReliedOn) {
    m_database.Execute("DELETE FROM SchemaFact");
    EXPECT_FALSE(Learn().itemsAreDistinct);
}

TEST_F(ServerDepartment, ALaterVersionIsRefused) {
    m_database.Execute("UPDATE SchemaVersion SET Version = Version + 1");
    const Error error = RaisedBy([&] { Learn(); });
    EXPECT_EQ(error.Description(),
              "The database was created by a later version of this program. Install that version.");
}

TEST_F(ServerDepartment, CurrentPlacesFollowChangesByHand) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const int32_t court = m_database.AddLocation("Court", StorageLocationTypes::External);
    const int32_t item = m_database.AddStored(PropertyFields{}, shelf);
    const auto places = [&] {
        std::string text;
        for (const Row& row : m_database.QueryRows("SELECT StorageLocNo, ItemNo FROM CurrentPlace ORDER BY 1, 2"))
            text += ToText(row.At(0)) + ":" + ToText(row.At(1)) + " ";
        return text;
    };
    const std::string number = std::to_string(item);
    const auto at = [&](int32_t place) { return std::to_string(place) + ":" + number + " "; };
    EXPECT_EQ(places(), at(shelf));
    m_database.AddCustodyRow(StoredItemTypes::Property, item, court);
    EXPECT_EQ(places(), at(court));
    m_database.Execute("UPDATE Property SET CurrTrackSeq = 1");
    EXPECT_EQ(places(), at(shelf));
    m_database.Execute("ALTER TABLE PropertyTracking DISABLE TRIGGER PropertyTrackingGuard");
    m_database.Execute("UPDATE PropertyTracking SET StorageLocNo = " + std::to_string(court) + " WHERE SeqNo = 1");
    EXPECT_EQ(places(), at(court));
    m_database.Execute("UPDATE Property SET CurrTrackSeq = NULL");
    EXPECT_EQ(places(), "");
}

TEST_F(ServerDepartment, CustodyRowsCannotBeTruncated) {
    const Error error = RaisedBy([&] { m_database.Execute("TRUNCATE PropertyTracking CASCADE"); });
    EXPECT_EQ(error.Description(), "A custody row cannot be deleted.");
}

TEST_F(ServerDepartment, EachCriterionUsesItsIndex) {
    m_database.Execute("SET enable_seqscan = off");
    const auto plan = [&](const std::string& condition) {
        std::string text;
        for (const sql::RewrittenStatement& statement :
             sql::RewriteWithoutCase("SELECT 1 FROM Property WHERE " + condition, {}))
            for (const Row& row : m_database.QueryRows("EXPLAIN " + statement.text)) text += ToText(row.At(0)) + "\n";
        return text;
    };
    EXPECT_NE(plan("PropertyID = '2026-0388'").find("propertybypropertyid"), std::string::npos);
    EXPECT_NE(plan("PropertyID LIKE '2026-0388%'").find("Index Cond: ((lower("), std::string::npos);
    EXPECT_NE(plan("Description LIKE '%bicycle%'").find("propertybydescription"), std::string::npos);
}

}  // namespace
}  // namespace quellbrook::testing
