#include "host/DatabaseSession.h"

#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/TestEnvironment.h"

#include <gtest/gtest.h>

#include <sodium.h>

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

    ~DatabaseSessionTest() override { m_environment.log.Verify(); }

    // A failed attempt, which is logged, a minute after the previous one.
    Error FailureOf(const std::string& username, const std::string& password) {
        m_environment.clock.Advance(60'000);
        m_environment.log.Announce("DatabaseSession.Login");
        return RaisedBy([&] { m_session.Login(username, password, ""); });
    }
    std::string LoggedLast() const { return m_environment.log.Entries().back().message; }
    std::string StoredHash() {
        return ToText(m_database.QueryValue("SELECT PasswordHash FROM Account WHERE Username = 'Custodian'"));
    }

    TestEnvironment m_environment;
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

TEST_F(DatabaseSessionTest, AFailedLoginIsLoggedWithoutWhatWasTyped) {
    FailureOf("CUSTODIAN", "pencil");
    EXPECT_EQ(LoggedLast(), "A login as 'Custodian' failed.");
    FailureOf("lantern", "");
    EXPECT_EQ(LoggedLast(), "A login with an unknown user name failed.");
}

TEST_F(DatabaseSessionTest, AfterThreeFailuresTheRightPasswordHasToWaitToo) {
    for (int i = 0; i < 3; ++i) FailureOf("custodian", "wrong");
    const auto login = [&] { return RaisedBy([&] { m_session.Login("custodian", "lantern", ""); }); };
    const Error refusal = login();
    EXPECT_EQ(refusal.Number(), ErrorNumber::General);
    EXPECT_EQ(refusal.Description(), "Too many logins have failed. Wait 2 seconds and try again.");
    EXPECT_EQ(m_session.Username(), "");
    m_environment.clock.Advance(2000);
    EXPECT_EQ(login().Number(), 0);
    FailureOf("custodian", "wrong");
    EXPECT_EQ(login().Number(), 0) << "a success ends the count";
}

TEST_F(DatabaseSessionTest, SessionsOfOneProgramShareTheLimit) {
    const auto limit = std::make_shared<LoginLimit>();
    for (int i = 0; i < 3; ++i) limit->Failed();
    EXPECT_NE(RaisedBy([&] { DatabaseSession(limit).Login("custodian", "lantern", ""); }).Number(), 0);
}

TEST_F(DatabaseSessionTest, AHashOfAnotherCostIsRenewedAtALogin) {
    char weak[crypto_pwhash_STRBYTES];
    ASSERT_EQ(crypto_pwhash_str(weak, "lantern", 7, crypto_pwhash_OPSLIMIT_MIN, crypto_pwhash_MEMLIMIT_MIN), 0);
    m_database.Execute("UPDATE Account SET PasswordHash = ?", {std::string(weak)});
    FailureOf("custodian", "wrong");
    EXPECT_EQ(StoredHash(), weak);
    m_session.Login("custodian", "lantern", "");
    const std::string renewed = StoredHash();
    EXPECT_NE(renewed, weak);
    EXPECT_TRUE(renewed.starts_with("$argon2id$v=19$m=65536,t=2,p=1$")) << renewed;
    m_session.Login("custodian", "lantern", "");
    EXPECT_EQ(StoredHash(), renewed);
}

TEST_F(DatabaseSessionTest, AHashThatCannotBeRenewedDoesNotKeepTheUserOut) {
    char weak[crypto_pwhash_STRBYTES];
    ASSERT_EQ(crypto_pwhash_str(weak, "lantern", 7, crypto_pwhash_OPSLIMIT_MIN, crypto_pwhash_MEMLIMIT_MIN), 0);
    m_database.Execute("UPDATE Account SET PasswordHash = ?", {std::string(weak)});
    m_database.Execute("CREATE TRIGGER Frozen BEFORE UPDATE ON Account BEGIN SELECT RAISE(ABORT, 'Frozen.'); END");
    m_environment.log.Announce("DatabaseSession.Login");
    m_session.Login("custodian", "lantern", "");
    EXPECT_EQ(m_session.Username(), "Custodian");
    EXPECT_EQ(LoggedLast(), "Frozen.");
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
    m_database.AddSetting("AgencyName", "Harbor Police");
    EXPECT_EQ(m_session.AgencyName(), "Harbor Police");
}

TEST(HashPassword, UsesANewSaltEachTimeAndHidesThePassword) {
    const std::string first = HashPassword("lantern");
    EXPECT_NE(first, HashPassword("lantern"));
    EXPECT_EQ(first.find("lantern"), std::string::npos);
    EXPECT_TRUE(first.starts_with("$argon2id$v=19$m=65536,t=2,p=1$")) << "64 MiB and 2 passes: " << first;
}

}  // namespace
}  // namespace quellbrook::testing
