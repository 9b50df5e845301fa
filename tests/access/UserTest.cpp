#include "access/User.h"

#include "tests/support/FakeSession.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

using testing::RaisedBy;

class User : public ::testing::Test {
protected:
    testing::SessionScope m_session;
};

class FailingSession : public HostSession {
public:
    std::string Username() const override { return "jdoe"; }
    std::string AgencyName() const override { return ""; }
    void Login(const std::string&, const std::string&, const std::string&) override {
        Raise(17, "Host.Login", "The account is locked.");
    }
    bool HasPermission(const std::string&, int16_t) override {
        Raise(18, "Host.HasPermission", "The session has ended.");
    }
};

}  // namespace

TEST_F(User, UsernameIsReadFromTheSessionAtEachCall) {
    m_session->username = "alice";
    EXPECT_EQ(GetUser().Username(), "alice");
    m_session->username = "bob";
    EXPECT_EQ(GetUser().Username(), "bob");
}

TEST_F(User, WithAnEmptyUserNameNoUserIsAuthenticatedAndEveryRightIsGranted) {
    m_session->username = "";
    m_session->GrantNothing();

    EXPECT_FALSE(GetUser().IsAuthenticated());
    EXPECT_TRUE(GetUser().Can(GetPermissions().VIEW_PROPERTY()));
    EXPECT_TRUE(GetUser().Can(GetPermissions().ADD_FINAL_DISPOSITION()));
    EXPECT_TRUE(GetUser().Can(PermissionDefinition{"NoSuchModule", 99}));
    EXPECT_EQ(m_session->questions, 0);
}

TEST_F(User, AskingForARightAsksTheHostWithItsModuleAndNumber) {
    m_session->GrantNothing();
    m_session->Grant("Storage", 12);

    EXPECT_TRUE(GetUser().IsAuthenticated());
    EXPECT_TRUE(GetUser().Can(GetPermissions().EDIT_STORAGE_LOCATIONS()));
    EXPECT_FALSE(GetUser().Can(GetPermissions().ADD_STORAGE_LOCATIONS()));
    EXPECT_EQ(m_session->questions, 2);
}

TEST_F(User, ARevokedRightTakesEffectOnTheNextCall) {
    EXPECT_TRUE(GetUser().Can(GetPermissions().VIEW_VEHICLE()));
    m_session->Revoke(GetPermissions().VIEW_VEHICLE());
    EXPECT_FALSE(GetUser().Can(GetPermissions().VIEW_VEHICLE()));
}

TEST_F(User, AuthenticateLogsInToTheSession) {
    m_session->username = "";
    GetUser().Authenticate("carol", "right");
    EXPECT_EQ(GetUser().Username(), "carol");
    EXPECT_EQ(m_session->domains, std::vector<std::string>{""});
    EXPECT_TRUE(GetUser().IsAuthenticated());
}

TEST(UserWithAFailingSession, FailuresReachTheCallerUnchanged) {
    HostServices::Current().SetSession(std::make_shared<FailingSession>());

    const Error login = RaisedBy([] { GetUser().Authenticate("jdoe", "secret"); });
    EXPECT_EQ(login.Number(), 17);
    EXPECT_EQ(login.Source(), "Host.Login");
    EXPECT_EQ(login.Description(), "The account is locked.");
    const Error right = RaisedBy([] { GetUser().Can(GetPermissions().VIEW_PROPERTY()); });
    EXPECT_EQ(right.Number(), 18);
    EXPECT_EQ(right.Description(), "The session has ended.");

    HostServices::Current().SetSession(nullptr);
}

}  // namespace quellbrook
