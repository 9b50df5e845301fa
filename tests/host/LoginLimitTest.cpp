#include "host/LoginLimit.h"

#include "tests/support/RaisedBy.h"
#include "tests/support/TestEnvironment.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class LoginLimitTest : public ::testing::Test {
protected:
    void Fail(int times) {
        for (int i = 0; i < times; ++i) m_limit.Failed();
    }
    // The seconds until an attempt is allowed.
    int Wait() {
        FixedClock& clock = m_environment.clock;
        const DateTime start = clock.Now();
        while (RaisedBy([&] { m_limit.RequireTurn(); }).Number() != 0) clock.Advance(1000);
        const int64_t waited = clock.Now().milliseconds - start.milliseconds;
        clock.Set(start);
        return static_cast<int>(waited / 1000);
    }

    TestEnvironment m_environment;
    LoginLimit m_limit;
};

TEST_F(LoginLimitTest, TheWaitDoublesUpToAMinute) {
    for (const int seconds : {0, 0, 0, 2, 4, 8, 16, 32, 60, 60, 60}) {
        EXPECT_EQ(Wait(), seconds);
        Fail(1);
    }
    Fail(1000);
    EXPECT_EQ(Wait(), 60);
}

TEST_F(LoginLimitTest, ASuccessEndsTheWait) {
    Fail(5);
    m_limit.Succeeded();
    EXPECT_EQ(Wait(), 0);
}

TEST_F(LoginLimitTest, TheMessageNamesTheRestOfTheWait) {
    Fail(4);
    m_environment.clock.Advance(3500);
    EXPECT_EQ(RaisedBy([&] { m_limit.RequireTurn(); }).Description(),
              "Too many logins have failed. Wait 1 second and try again.");
}

TEST_F(LoginLimitTest, AClockThatIsSetBackDoesNotLockUsersOut) {
    Fail(9);
    m_environment.clock.Advance(-3'600'000);
    EXPECT_EQ(Wait(), 0);
}

}  // namespace
}  // namespace quellbrook::testing
