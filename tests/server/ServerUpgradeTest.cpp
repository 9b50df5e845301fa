#include "base/Error.h"
#include "database/odbc/ServerVerification.h"
#include "database/schema/ServerSchema.h"
#include "tests/server/ServerTest.h"

#include <future>

namespace quellbrook::testing {
namespace {

// A database of the first version, which had no marks of batches.
class ServerUpgrade : public ServerTest {
protected:
    void SetUp() override {
        m_database.Execute("DROP TABLE BatchMark");
        m_database.Execute("UPDATE SchemaVersion SET Version = 1");
    }
    int32_t Version() { return ToInt32(m_database.QueryValue("SELECT Version FROM SchemaVersion")); }
};

TEST_F(ServerUpgrade, OpeningGivesAnOlderSchemaWhatItLacks) {
    const auto engine = OdbcEngine::Open(TestServer());
    EXPECT_EQ(Version(), ServerSchemaVersion);
    for (const RuleCheck& check : VerifyServerDatabase(TestServer())) EXPECT_EQ(check.faults, 0) << check.rule;
    const auto connection = engine->Open();
    connection->Begin();
    connection->Execute(insert);
    connection->Commit();
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM BatchMark"), TaggedValue(1));
}

TEST_F(ServerUpgrade, ItsRowsStay) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_database.AddStored(PropertyFields{}, shelf);
    const std::string before = m_database.Snapshot();
    OdbcEngine::Open(TestServer());
    m_database.Execute("UPDATE SchemaVersion SET Version = 1");
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(ServerUpgrade, WorkstationsThatOpenItAtOnceUpgradeItOnce) {
    const auto first = std::make_unique<OdbcConnection>(TestServer(), ServerLimits{});
    first->Begin();
    first->ExecuteNative("LOCK TABLE SchemaVersion IN SHARE MODE");
    std::future<void> second = std::async(std::launch::async, [] { OdbcEngine::Open(TestServer()); });
    std::future<void> third = std::async(std::launch::async, [] { OdbcEngine::Open(TestServer()); });
    first->Commit();
    EXPECT_NO_THROW(second.get());
    EXPECT_NO_THROW(third.get());
    EXPECT_EQ(Version(), ServerSchemaVersion);
}

TEST_F(ServerUpgrade, OneThatFailsChangesNothingAndSaysWhatToDo) {
    m_database.Execute("CREATE TABLE Obstacle (Name INT)");
    m_database.Execute("CREATE INDEX BatchMark ON Obstacle (Name)");
    m_log.Announce("OdbcStatement.Execute");
    const Error error = RaisedBy([] { OdbcEngine::Open(TestServer()); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    const std::string sentence =
        "The schema of the database can't be upgraded from version 1 to version 2. Open the database once with an "
        "account that may create tables.\r\n\r\n";
    EXPECT_TRUE(error.Description().starts_with(sentence)) << error.Description();
    EXPECT_GT(error.Description().size(), sentence.size());
    EXPECT_EQ(Version(), 1);
    m_database.Execute("DROP TABLE Obstacle");
    OdbcEngine::Open(TestServer());
    EXPECT_EQ(Version(), ServerSchemaVersion);
}

}  // namespace
}  // namespace quellbrook::testing
