#include "base/Environment.h"
#include "base/Error.h"
#include "base/MessageHook.h"
#include "tests/support/ManualTimer.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/platform/WidgetKeyState.h"
#include "ui/platform/WidgetTimer.h"

#include <QKeyEvent>

namespace quellbrook::testing {
namespace {

class WidgetTimerTest : public ControlsTest {
protected:
    static void TurnUntil(const std::function<bool()>& done) {
        for (int turn = 0; turn < 100000 && !done(); ++turn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
};

TEST_F(WidgetTimerTest, TicksUntilItIsStopped) {
    auto timer = std::make_unique<WidgetTimer>();
    int ticks = 0;
    timer->SetInterval(1);
    timer->Elapsed = [&] {
        if (++ticks == 3) timer->Stop();
    };
    EXPECT_FALSE(timer->IsRunning());
    timer->Start();
    EXPECT_TRUE(timer->IsRunning());
    TurnUntil([&] { return ticks >= 3; });
    ServeEvents();
    EXPECT_EQ(ticks, 3);
    EXPECT_FALSE(timer->IsRunning());
}

TEST_F(WidgetTimerTest, ASingleShotTicksOnce) {
    auto timer = std::make_unique<WidgetTimer>();
    auto other = std::make_unique<WidgetTimer>();
    int ticks = 0;
    int others = 0;
    timer->SetInterval(1);
    timer->SetSingleShot(true);
    timer->Elapsed = [&] { ++ticks; };
    other->SetInterval(2);
    other->Elapsed = [&] { ++others; };
    timer->Start();
    timer->Start();
    other->Start();
    TurnUntil([&] { return others >= 3; });
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(timer->IsRunning());
}

TEST_F(WidgetTimerTest, ATickMayDestroyItsTimer) {
    auto timer = std::make_unique<WidgetTimer>();
    bool ticked = false;
    timer->SetInterval(0);
    timer->Elapsed = [&] {
        timer.reset();
        ticked = true;
    };
    timer->Start();
    TurnUntil([&] { return ticked; });
    EXPECT_EQ(timer, nullptr);
}

TEST_F(WidgetTimerTest, WithoutACallbackATickDoesNothing) {
    auto timer = std::make_unique<WidgetTimer>();
    timer->SetInterval(0);
    timer->SetSingleShot(true);
    timer->Start();
    TurnUntil([&] { return !timer->IsRunning(); });
    EXPECT_FALSE(timer->IsRunning());
}

TEST(ManualTimersTest, TickOnlyOnRequest) {
    EnvironmentScope environment;
    ManualTimers timers(environment);
    auto timer = MakeTimer();
    int ticks = 0;
    timer->Elapsed = [&] { ++ticks; };
    timer->SetInterval(10);
    EXPECT_EQ(timers.TickAll(), 0);
    timer->Start();
    EXPECT_EQ(timers.TickAll(), 1);
    EXPECT_EQ(timers.Tick(5), 0);
    EXPECT_EQ(timers.Tick(10), 1);
    timer->SetSingleShot(true);
    timers.TickAll();
    EXPECT_EQ(timers.TickAll(), 0);
    EXPECT_EQ(ticks, 3);
    timer.reset();
    EXPECT_TRUE(timers.All().empty());
}

class WidgetKeyStateTest : public ControlsTest {
protected:
    WidgetKeyStateTest() {
        m_environment->isKeyDown = WidgetKeyState();
        ShowActive(m_window);
    }
    ~WidgetKeyStateTest() override {
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down})
            QTest::keyRelease(&m_window, key);
    }
};

TEST_F(WidgetKeyStateTest, AKeyIsDownFromItsPressToItsRelease) {
    const std::vector<std::pair<Qt::Key, int>> keys = {
        {Qt::Key_Left, 37}, {Qt::Key_Up, 38}, {Qt::Key_Right, 39}, {Qt::Key_Down, 40}};
    for (const auto& [key, code] : keys) {
        EXPECT_FALSE(IsKeyDown(code));
        QTest::keyPress(&m_window, key);
        EXPECT_TRUE(IsKeyDown(code));
        for (const auto& other : keys) EXPECT_EQ(IsKeyDown(other.second), other.second == code);
        QTest::keyRelease(&m_window, key);
        EXPECT_FALSE(IsKeyDown(code));
    }
}

TEST_F(WidgetKeyStateTest, KeypadArrowsCountToo) {
    QTest::keyPress(&m_window, Qt::Key_Down, Qt::KeypadModifier);
    EXPECT_TRUE(IsKeyDown(40));
}

TEST_F(WidgetKeyStateTest, RepeatsKeepAKeyDown) {
    QTest::keyPress(&m_window, Qt::Key_Down);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Down, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&m_window, &release);
    EXPECT_TRUE(IsKeyDown(40));
}

TEST_F(WidgetKeyStateTest, LosingTheActiveWindowReleasesAll) {
    QTest::keyPress(&m_window, Qt::Key_Up);
    QEvent leave(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &leave);
    EXPECT_FALSE(IsKeyDown(38));
}

TEST_F(WidgetKeyStateTest, OtherKeysAreNeverDown) {
    QTest::keyPress(&m_window, Qt::Key_A);
    EXPECT_FALSE(IsKeyDown(65));
    EXPECT_FALSE(IsKeyDown(36));
    EXPECT_FALSE(IsKeyDown(41));
}

}  // namespace
}  // namespace quellbrook::testing
