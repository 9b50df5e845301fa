#include "host/HostServices.h"

#include "host/HostDatabase.h"
#include "tests/support/FakeSession.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

using namespace quellbrook;
using namespace quellbrook::testing;

TEST(HostServices, WithoutADatabaseEveryQuestionFailsWithASentence) {
    ASSERT_FALSE(HostServices::Current().HasEngine());
    const Error error = RaisedBy([] { GetHostDatabase().QueryRows("SELECT 1"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Source(), "HostServices.Pool");
    EXPECT_EQ(error.Description(), "No database has been opened.");
}

TEST(HostServices, WithoutADatabaseLiteralsCanStillBePrepared) {
    EXPECT_EQ(GetHostDatabase().PrepareText("it's"), "'it''s'");
}

TEST(HostServices, WithoutASessionAskingForItIsError91) {
    HostServices::Current().SetSession(nullptr);
    EXPECT_EQ(RaisedBy([] { HostServices::Current().Session(); }).Number(), ErrorNumber::NullObject);
}

TEST(HostServices, ReturnsTheSessionThatWasSet) {
    const SessionScope session;
    EXPECT_EQ(&HostServices::Current().Session(), &*session);
}

TEST(HostServices, ADatabaseIsInUseUntilAnotherOneIsSet) {
    TestDatabase first;
    first.AddSetting("where", "first");
    EXPECT_EQ(GetHostDatabase().LookupValue("Setting", "Value", {"Name='where'"}), TaggedValue("first"));
    {
        TestDatabase second;
        EXPECT_TRUE(GetHostDatabase().LookupValue("Setting", "Value", {"Name='where'"}).IsNull());
    }
    EXPECT_FALSE(HostServices::Current().HasEngine());
    first.Install(first.GetEngine());
    EXPECT_EQ(GetHostDatabase().LookupValue("Setting", "Value", {"Name='where'"}), TaggedValue("first"));
}
