#include "database/odbc/BoundedCalls.h"

#include "base/Error.h"
#include "database/LockWait.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <thread>

namespace quellbrook::testing {
namespace {

using std::chrono::milliseconds;

// A driver that returns only when it is released.
class StuckCall {
public:
    std::function<void()> Call() {
        return [released = m_released.get_future().share()] { released.wait(); };
    }
    void Release() { m_released.set_value(); }

private:
    std::promise<void> m_released;
};

class BoundedCallsTest : public ::testing::Test {
protected:
    ~BoundedCallsTest() override { SetLockPause(nullptr); }

    BoundedCalls m_calls;
};

TEST_F(BoundedCallsTest, ACallRunsOnAnotherThreadAndEndsFirst) {
    std::thread::id thread;
    m_calls.Run([&] { thread = std::this_thread::get_id(); }, milliseconds(10'000));
    EXPECT_NE(thread, std::thread::id());
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST_F(BoundedCallsTest, AFailureIsPassedOnAndTheNextCallRuns) {
    EXPECT_THROW(m_calls.Run([] { throw std::runtime_error("refused"); }, milliseconds(10'000)), std::runtime_error);
    bool hasRun = false;
    m_calls.Run([&] { hasRun = true; }, milliseconds(10'000));
    EXPECT_TRUE(hasRun);
}

TEST_F(BoundedCallsTest, ACallThatDoesNotReturnIsAbandonedAtTheLimit) {
    StuckCall stuck;
    const Error error = RaisedBy([&] { m_calls.Run(stuck.Call(), milliseconds(1)); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "The database server did not answer within 1 second.");
    EXPECT_TRUE(m_calls.IsAbandoned());
    EXPECT_EQ(RaisedBy([&] { m_calls.Run([] {}, milliseconds(1)); }).Description(),
              "The connection to the database server is no longer used.");
    stuck.Release();
}

TEST_F(BoundedCallsTest, ALongWaitRunsThePause) {
    StuckCall stuck;
    int pauses = 0;
    SetLockPause([&](milliseconds) {
        if (++pauses == 1) stuck.Release();
    });
    m_calls.Run(stuck.Call(), milliseconds(60'000));
    EXPECT_GE(pauses, 1);
}

TEST_F(BoundedCallsTest, APauseThatThrowsAbandonsTheCall) {
    StuckCall stuck;
    SetLockPause([](milliseconds) { throw std::runtime_error("The window is gone."); });
    EXPECT_THROW(m_calls.Run(stuck.Call(), milliseconds(60'000)), std::runtime_error);
    EXPECT_TRUE(m_calls.IsAbandoned());
    stuck.Release();
}

}  // namespace
}  // namespace quellbrook::testing
