#include "base/Environment.h"
#include "component/Quellbrook.h"
#include "core/Dispatcher.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingErrorLog.h"
#include "ui/common/Dialogs.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

bool IsRunning() { return GetEnvironment().screen != nullptr; }

TEST(StartupTest, ShutdownRestoresWhatWasThereBefore) {
    Startup();
    EXPECT_TRUE(IsRunning());
    EXPECT_NE(MakeTimer(), nullptr);
    Shutdown();
    EXPECT_FALSE(IsRunning());
    EXPECT_THROW(MakeTimer(), Error);
}

TEST(StartupTest, TheComponentCanStartAgainAfterShutdown) {
    for (int run = 0; run < 2; ++run) {
        Startup();
        EXPECT_TRUE(IsRunning());
        Shutdown();
        EXPECT_FALSE(IsRunning());
    }
}

TEST(StartupTest, TwoStartupsNeedTwoShutdowns) {
    Startup();
    const auto dispatcher = GetDispatcher();
    Startup();
    Shutdown();
    EXPECT_TRUE(IsRunning());
    EXPECT_EQ(GetDispatcher(), dispatcher);
    Shutdown();
    EXPECT_FALSE(IsRunning());
    EXPECT_NE(GetDispatcher(), dispatcher);
    DiscardDispatcher();
}

TEST(StartupTest, AShutdownWithoutAStartupHasNoEffect) {
    Shutdown();
    Startup();
    EXPECT_TRUE(IsRunning());
    Shutdown();
    EXPECT_FALSE(IsRunning());
}

TEST(StartupTest, ShutdownForgetsTheDialogParent) {
    QWidget window;
    Startup();
    SetDialogParent(&window);
    EXPECT_EQ(GetDialogs().GetParent(), &window);
    Shutdown();
    EXPECT_EQ(GetDialogs().GetParent(), nullptr);
}

TEST(StartupTest, TheClockAndTheErrorLogOfTheHostAreKept) {
    const FixedClock clock;
    RecordingErrorLog log;
    EnvironmentScope host;
    host->clock = &clock;
    host->errorLog = &log;
    Startup();
    EXPECT_EQ(&GetClock(), &clock);
    EXPECT_EQ(&GetErrorLog(), &log);
    Shutdown();
}

}  // namespace
}  // namespace quellbrook::testing
