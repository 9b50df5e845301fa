#include "base/MessageHook.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/platform/WidgetMessageHook.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QShortcut>
#include <QWindow>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
namespace Number = KeyMessageNumber;
using Messages = std::vector<std::pair<uint32_t, uint32_t>>;

// Keys are sent to the window as the platform does.
class WidgetMessageHookTest : public ControlsTest {
protected:
    WidgetMessageHookTest() : m_edit(new QLineEdit(&m_window)) {
        m_hook = MakeWidgetMessageHook();
        m_hook->OnMessage = [this](KeyMessage& message) {
            m_messages.emplace_back(message.number, message.wParam);
            if (m_cancels && m_cancels(message)) message.number = Number::Cancelled;
        };
        m_edit->setAccessibleName("field");
        ShowActive(m_window);
        m_edit->setFocus();
    }

    void Press(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               bool repeat = false) {
        QTest::simulateEvent(m_window.windowHandle(), true, key, modifiers, text, repeat);
    }
    void Release(Qt::Key key, const QString& text = QString()) {
        QTest::simulateEvent(m_window.windowHandle(), false, key, Qt::NoModifier, text, false);
    }
    void Type(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        Press(key, text, modifiers);
        Release(key, text);
    }

    QLineEdit* m_edit;
    std::unique_ptr<MessageHook> m_hook;
    Messages m_messages;
    std::function<bool(const KeyMessage&)> m_cancels;
};

TEST_F(WidgetMessageHookTest, APressIsAKeyAndItsCharacterAndAReleaseAKey) {
    Type(Qt::Key_P, "p");
    EXPECT_THAT(m_messages, ElementsAre(Pair(Number::KeyDown, uint32_t(Qt::Key_P)), Pair(Number::Char, uint32_t('p')),
                                        Pair(Number::KeyUp, uint32_t(Qt::Key_P))));
    EXPECT_EQ(m_edit->text(), "p");
}

TEST_F(WidgetMessageHookTest, ThirteenKeysGiveThirteenCharacters) {
    for (const char c : std::string("P000000000012")) Type(c == 'P' ? Qt::Key_P : Qt::Key(c), QString(QLatin1Char(c)));
    std::string characters;
    for (const auto& [number, wParam] : m_messages)
        if (number == Number::Char) characters += static_cast<char>(wParam);
    EXPECT_EQ(characters, "P000000000012");
    EXPECT_EQ(m_messages.size(), 39u);
}

TEST_F(WidgetMessageHookTest, ACancelledCharacterReachesNoField) {
    m_cancels = [](const KeyMessage& message) { return message.number == Number::Char && message.wParam == '7'; };
    Type(Qt::Key_7, "7");
    Type(Qt::Key_8, "8");
    EXPECT_EQ(m_edit->text(), "8");
}

TEST_F(WidgetMessageHookTest, ACancelledKeyReachesNoFieldButItsCharacterIsHooked) {
    m_cancels = [](const KeyMessage& message) { return message.number == Number::KeyDown; };
    Type(Qt::Key_7, "7");
    EXPECT_EQ(m_edit->text(), "");
    EXPECT_EQ(m_messages.size(), 3u);
}

TEST_F(WidgetMessageHookTest, ACancelledPressFiresNoShortcut) {
    int fired = 0;
    QShortcut shortcut(QKeySequence("Ctrl+B"), &m_window);
    QObject::connect(&shortcut, &QShortcut::activated, [&] { ++fired; });
    Type(Qt::Key_B, QStringLiteral("\x02"), Qt::ControlModifier);
    EXPECT_EQ(fired, 1);
    m_messages.clear();
    m_cancels = [](const KeyMessage& message) { return message.wParam == 2; };
    Type(Qt::Key_B, QStringLiteral("\x02"), Qt::ControlModifier);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(m_messages.size(), 3u);
    m_cancels = nullptr;
    Type(Qt::Key_B, QStringLiteral("\x02"), Qt::ControlModifier);
    EXPECT_EQ(fired, 2);
}

TEST_F(WidgetMessageHookTest, ACancelledReleaseReachesNoWidget) {
    class Releases : public QObject {
    public:
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::KeyRelease;
            return false;
        }
    } releases;
    m_edit->installEventFilter(&releases);
    Type(Qt::Key_7, "7");
    EXPECT_EQ(releases.count, 1);
    m_cancels = [](const KeyMessage& message) { return message.number == Number::KeyUp; };
    Type(Qt::Key_7, "7");
    EXPECT_EQ(releases.count, 1);
}

TEST_F(WidgetMessageHookTest, ARepeatedKeyIsHookedAgain) {
    Press(Qt::Key_1, "1");
    Press(Qt::Key_1, "1", Qt::NoModifier, true);
    EXPECT_EQ(m_messages.size(), 4u);
    EXPECT_EQ(m_edit->text(), "11");
}

TEST_F(WidgetMessageHookTest, KeysWithoutATextHaveNoCharacter) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_F5, Qt::Key_Shift}) Press(key, QString());
    Press(Qt::Key_Delete, QStringLiteral("\x7f"));
    for (const auto& message : m_messages) EXPECT_EQ(message.first, uint32_t(Number::KeyDown));
    EXPECT_EQ(m_messages.size(), 4u);
}

TEST_F(WidgetMessageHookTest, AltHasItsOwnKeyCode) {
    Press(Qt::Key_Alt, QString());
    Release(Qt::Key_Alt);
    EXPECT_THAT(m_messages, ElementsAre(Pair(Number::KeyDown, 18u), Pair(Number::KeyUp, 18u)));
}

TEST_F(WidgetMessageHookTest, ACharacterBeyondTheBasicPlaneIsOneMessage) {
    Press(Qt::Key_unknown, QString::fromUtf8("\xF0\x9F\x93\xA6"));
    ASSERT_EQ(m_messages.size(), 2u);
    EXPECT_THAT(m_messages[1], Pair(Number::Char, 0x1F4E6u));
}

TEST_F(WidgetMessageHookTest, WithoutAFocusedWidgetKeysAreHookedToo) {
    m_edit->clearFocus();
    Type(Qt::Key_7, "7");
    EXPECT_EQ(m_messages.size(), 3u);
}

TEST_F(WidgetMessageHookTest, AFailingHandlerIsReportedAndTheKeyPasses) {
    m_hook->OnMessage = [](KeyMessage& message) {
        if (message.number == Number::Char) Raise(ErrorNumber::General, "the handler", "It failed.");
    };
    TestErrorLog().Announce("the handler");
    Type(Qt::Key_7, "7");
    ExpectUnexpected("It failed.");
    EXPECT_EQ(m_edit->text(), "7");
}

TEST_F(WidgetMessageHookTest, ADestroyedHookReceivesNothing) {
    m_hook.reset();
    Type(Qt::Key_7, "7");
    EXPECT_THAT(m_messages, IsEmpty());
    EXPECT_EQ(m_edit->text(), "7");
}

}  // namespace
}  // namespace quellbrook::testing
