#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "host/DatabaseSession.h"
#include "host/HostServices.h"
#include "tests/demo/sample/SampleFile.h"

#include <map>
#include <set>

#include <gmock/gmock.h>

namespace quellbrook::testing {

namespace {

class SampleAccountsTest : public ::testing::Test {
protected:
    void SetUp() override { HostServices::Current().SetEngine(SqliteEngine::Open(TheSample().Path())); }
    void TearDown() override { HostServices::Current().SetEngine(nullptr); }

    static std::set<std::string> RightsOf(const SampleAccount& account) {
        static const std::map<std::string, std::pair<const char*, int16_t>> known = {
            {"view property", {"MIProperty", 0}},  {"view vehicle", {"MIVehicle", 0}},
            {"view chain", {"Storage", 0}},        {"append chain", {"Storage", 1}},
            {"add location", {"Storage", 11}},     {"edit location", {"Storage", 12}},
            {"delete location", {"Storage", 13}},  {"dispose", {"Storage", 15}},
            {"print", {"EvidenceManagement", 11}}, {"secured 5", {"Incident", 5}},
            {"secured 6", {"Incident", 6}},
        };
        DatabaseSession session;
        session.Login(account.username, account.password, "");
        EXPECT_EQ(session.Username(), account.username);
        std::set<std::string> rights;
        for (const auto& [name, right] : known) {
            if (session.HasPermission(right.first, right.second)) rights.insert(name);
        }
        return rights;
    }
};

}  // namespace

TEST_F(SampleAccountsTest, ThreeAccountsLogInWithThePasswordsShownAndHaveTheirRights) {
    ASSERT_EQ(SampleAccounts().size(), 3u);
    using Rights = std::set<std::string>;
    EXPECT_EQ(RightsOf(SampleAccounts()[0]).size(), 11u) << "the custodian has every right";
    EXPECT_EQ(RightsOf(SampleAccounts()[1]), (Rights{"view property", "view vehicle", "view chain", "append chain"}));
    EXPECT_EQ(RightsOf(SampleAccounts()[2]), (Rights{"view property", "view vehicle", "view chain", "secured 5"}));
}

TEST_F(SampleAccountsTest, PasswordsAreStoredHashed) {
    for (const SampleAccount& account : SampleAccounts()) {
        const auto hash =
            TheSample().Rows("SELECT PasswordHash FROM Account WHERE Username = '" + account.username + "'");
        ASSERT_EQ(hash.size(), 1u);
        EXPECT_EQ(hash[0].find(account.password), std::string::npos);
        EXPECT_GT(hash[0].size(), 40u);
    }
}

TEST_F(SampleAccountsTest, APasswordDoesNotOpenAnotherAccount) {
    DatabaseSession session;
    EXPECT_THROW(session.Login(SampleAccounts()[0].username, SampleAccounts()[1].password, ""), Error);
    EXPECT_EQ(session.Username(), "");
}

TEST_F(SampleAccountsTest, TheSampleHasTheAccountsMarkerAndItsAgency) {
    EXPECT_EQ(
        TheSample().Rows("SELECT Value FROM Setting WHERE Name = '" + std::string(SampleNames::MarkerSetting) + "'"),
        std::vector<std::string>{"1"});
    EXPECT_EQ(DatabaseSession().AgencyName(), SampleNames::AgencyName);
}

}  // namespace quellbrook::testing
