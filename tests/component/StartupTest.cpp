#include "base/Environment.h"
#include "component/EvidenceUI.h"
#include "component/Quellbrook.h"
#include "core/Dispatcher.h"
#include "database/SqliteEngine.h"
#include "tests/support/FakeSession.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingErrorLog.h"
#include "tests/support/TestDatabase.h"
#include "ui/common/Dialogs.h"
#include "ui/locations/SetupLocationsForm.h"

#include <QCoreApplication>
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

class PaintCounter : public QWidget {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

TEST(StartupTest, WindowsArePaintedWhileAnotherWorkstationHasTheDatabase) {
    TestDatabase database;
    const auto connection = SqliteEngine::Open(database.Path(), 100)->Open();
    database.Execute("BEGIN IMMEDIATE");
    PaintCounter window;
    window.show();
    QCoreApplication::processEvents();
    const auto paintsOfAWait = [&] {
        const int before = window.paints;
        EXPECT_NE(RaisedBy([&] { connection->Begin(); }).Number(), 0);
        return window.paints - before;
    };
    EXPECT_EQ(paintsOfAWait(), 0);
    Startup();
    EXPECT_EQ(paintsOfAWait(), 1);
    Shutdown();
    EXPECT_EQ(paintsOfAWait(), 0);
}

TEST(StartupTest, TheEvidenceScreenIsHiddenUntilTheHostShowsIt) {
    const TestDatabase database;
    const SessionScope session;
    Startup();
    {
        QWidget window;
        QWidget* evidence = CreateEvidenceUI(&window);
        window.show();
        EXPECT_FALSE(evidence->isVisible());
    }
    Shutdown();
}

TEST(StartupTest, TheScreenHasTheWizard) {
    Startup();
    EXPECT_NE(dynamic_cast<WizardScreen*>(&GetScreen()), nullptr);
    Shutdown();
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
