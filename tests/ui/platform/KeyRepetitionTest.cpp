#include "ui/platform/KeyRepetition.h"

#include "tests/ui/controls/ControlsTest.h"

#include <QKeyEvent>

namespace quellbrook::testing {
namespace {

class KeyRepetitionTest : public ControlsTest {
protected:
    KeyRepetitionTest() {
        WatchKeyRepetition();
        Release(Qt::Key_Return, 5000);
    }
    ~KeyRepetitionTest() override { Release(Qt::Key_Return, 0); }

    void Release(Qt::Key key, quint64 time) {
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        release.setTimestamp(time);
        QCoreApplication::sendEvent(&m_window, &release);
    }
    static bool IsPressARepetition(Qt::Key key, quint64 time, bool isMarked = false) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), isMarked);
        press.setTimestamp(time);
        return IsRepetition(press);
    }
};

TEST_F(KeyRepetitionTest, APressAtTheTimeOfItsReleaseIsARepetition) {
    EXPECT_TRUE(IsPressARepetition(Qt::Key_Return, 5000));
    EXPECT_FALSE(IsPressARepetition(Qt::Key_Return, 5001)) << "pressed again";
    EXPECT_FALSE(IsPressARepetition(Qt::Key_Space, 5000)) << "another key";
}

TEST_F(KeyRepetitionTest, APressThatIsMarkedIsARepetition) {
    EXPECT_TRUE(IsPressARepetition(Qt::Key_Return, 5001, true));
    EXPECT_TRUE(IsPressARepetition(Qt::Key_Space, 7000, true));
}

TEST_F(KeyRepetitionTest, EventsWithoutATimeAreNotRepetitions) {
    Release(Qt::Key_Return, 0);
    EXPECT_FALSE(IsPressARepetition(Qt::Key_Return, 0));
}

}  // namespace
}  // namespace quellbrook::testing
