#include "database/LockWait.h"

#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace quellbrook;
using namespace quellbrook::testing;
using std::chrono::milliseconds;

namespace {

// Another workstation writes; time passes only here.
class LockWaitTest : public ::testing::Test {
protected:
    LockWaitTest() {
        SetLockPause([this](milliseconds time) {
            m_waited += time;
            if (m_waited >= m_end) m_database.Execute("COMMIT");
        });
        m_database.Execute("BEGIN IMMEDIATE");
    }
    ~LockWaitTest() override { SetLockPause(nullptr); }

    Error Begin(int limit = SqliteEngine::BusyMilliseconds) {
        const auto connection = SqliteEngine::Open(m_database.Path(), limit)->Open();
        return RaisedBy([&] { connection->Begin(); });
    }

    TestDatabase m_database;
    milliseconds m_waited{0};
    milliseconds m_end = milliseconds::max();
};

}  // namespace

TEST_F(LockWaitTest, ABatchBeginsAsSoonAsTheOtherOneEnds) {
    m_end = milliseconds(30'000);
    EXPECT_EQ(Begin().Number(), 0);
    EXPECT_EQ(m_waited, m_end);
}

TEST_F(LockWaitTest, ABatchGivesUpAfterAMinute) {
    EXPECT_EQ(Begin().Number(), 5);
    EXPECT_EQ(m_waited, milliseconds(60'000));
}

TEST_F(LockWaitTest, TheFirstPausesAreShort) {
    EXPECT_EQ(Begin(50).Number(), 5);
    EXPECT_EQ(m_waited, milliseconds(50));
    m_waited = {};
    m_end = milliseconds(5);
    EXPECT_EQ(Begin().Number(), 0);
    EXPECT_EQ(m_waited, milliseconds(5));
}

TEST_F(LockWaitTest, AFailingPauseEndsTheWait) {
    SetLockPause([](milliseconds) { throw std::runtime_error("The window is gone."); });
    EXPECT_EQ(Begin().Number(), 5);
}
