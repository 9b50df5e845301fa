#include "host/DatabaseSession.h"

#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class DatabaseSessionTest : public ::testing::Test {
protected:
    DatabaseSessionTest() {
        static const std::string hash = HashPassword("lantern");
        m_database.Execute("INSERT INTO Account (Username, PasswordHash) VALUES ('Custodian', ?)", {hash});
        m_database.Execute("INSERT INTO Account (Username, PasswordHash, IsActive) VALUES ('closed', ?, 0)", {hash});
        m_database.Execute("INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('Custodian', 'Storage', 11)");
    }

    Error FailureOf(const std::string& username, const std::string& password) {
        return RaisedBy([&] { m_session.Login(username, password, ""); });
    }

    TestDatabase m_database;
    DatabaseSession m_session;
};

TEST_F(DatabaseSessionTest, NoUserIsLoggedInAtFirst) {
    EXPECT_EQ(m_session.Username(), "");
    EXPECT_FALSE(m_session.HasPermission("Storage", 11));
}

TEST_F(DatabaseSessionTest, LoginIgnoresTheCaseOfTheNameButNotOfThePassword) {
    m_session.Login("custodian", "lantern", "");
    EXPECT_EQ(m_session.Username(), "Custodian");
    EXPECT_NE(FailureOf("custodian", "Lantern").Number(), 0);
}

TEST_F(DatabaseSessionTest, AFailureDoesNotRevealWhichPartWasWrong) {
    const Error wrongPassword = FailureOf("custodian", "pencil");
    EXPECT_EQ(wrongPassword.Number(), ErrorNumber::General);
    EXPECT_EQ(wrongPassword.Description(), "Incorrect user name or password.");
    for (const Error& other : {FailureOf("nobody", "lantern"), FailureOf("closed", "lantern"), FailureOf("", ""),
                               FailureOf("' OR 1=1 --", "lantern"), FailureOf("nobody", "")}) {
        EXPECT_EQ(other.Number(), wrongPassword.Number());
        EXPECT_EQ(other.Description(), wrongPassword.Description());
    }
}

TEST_F(DatabaseSessionTest, AFailedLoginLogsOutThePreviousUser) {
    m_session.Login("custodian", "lantern", "");
    FailureOf("custodian", "wrong");
    EXPECT_EQ(m_session.Username(), "");
    EXPECT_FALSE(m_session.HasPermission("Storage", 11));
}

TEST_F(DatabaseSessionTest, RightsAreModuleAndNumberTogether) {
    m_session.Login("custodian", "lantern", "");
    EXPECT_TRUE(m_session.HasPermission("Storage", 11));
    EXPECT_FALSE(m_session.HasPermission("Storage", 12));
    EXPECT_FALSE(m_session.HasPermission("Incident", 11));
    EXPECT_FALSE(m_session.HasPermission("NoSuchModule", 0));
}

TEST_F(DatabaseSessionTest, RevokedAndGrantedRightsTakeEffectAtOnce) {
    m_session.Login("custodian", "lantern", "");
    m_database.Execute("DELETE FROM AccountRight");
    EXPECT_FALSE(m_session.HasPermission("Storage", 11));
    m_database.Execute("INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('Custodian', 'Storage', 12)");
    EXPECT_TRUE(m_session.HasPermission("Storage", 12));
    m_database.Execute("UPDATE Account SET IsActive = 0");
    EXPECT_FALSE(m_session.HasPermission("Storage", 12));
}

TEST_F(DatabaseSessionTest, TheAgencyIsASetting) {
    EXPECT_EQ(m_session.AgencyName(), "");
    m_database.AddSetting("AgencyName", "Harbour Police");
    EXPECT_EQ(m_session.AgencyName(), "Harbour Police");
}

TEST(HashPassword, UsesANewSaltEachTimeAndHidesThePassword) {
    const std::string first = HashPassword("lantern");
    EXPECT_NE(first, HashPassword("lantern"));
    EXPECT_EQ(first.find("lantern"), std::string::npos);
    EXPECT_TRUE(first.starts_with("$argon2id$")) << first;
}

}  // namespace
}  // namespace quellbrook::testing
