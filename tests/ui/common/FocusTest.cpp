#include "ui/common/ViewHelpers.h"

#include "tests/support/ModelTest.h"
#include "tests/support/ui/FocusCalls.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/GroupBox.h"

namespace quellbrook {

namespace {

class Focus : public testing::ModelTest {
protected:
    Focus() {
        m_window.resize(400, 300);
        m_first = AddButton(&m_window, "first");
        m_second = AddButton(&m_window, "second");
        testing::ResetFocusCalls(m_screen);
    }

    static FlatButton* AddButton(QWidget* parent, const char* name) {
        auto* button = new FlatButton(parent);
        button->setObjectName(name);
        return button;
    }

    // The count is 200 afterwards.
    void Call199Times() {
        for (int i = 0; i < 199; ++i) TrySetFocus(m_first);
    }

    QWidget m_window;
    FlatButton* m_first;
    FlatButton* m_second;
};

}  // namespace

TEST_F(Focus, AVisibleControlGetsIt) {
    testing::ShowActive(m_window);
    TrySetFocus(m_second);
    EXPECT_EQ(QApplication::focusWidget(), m_second);
}

TEST_F(Focus, AHiddenControlDoesNotGetItNowOrLater) {
    testing::ShowActive(m_window);
    TrySetFocus(m_first);
    m_second->hide();
    TrySetFocus(m_second);
    EXPECT_EQ(QApplication::focusWidget(), m_first);
    m_second->show();
    EXPECT_EQ(QApplication::focusWidget(), m_first);
}

TEST_F(Focus, ADisabledControlDoesNotGetIt) {
    testing::ShowActive(m_window);
    TrySetFocus(m_first);
    m_second->setEnabled(false);
    TrySetFocus(m_second);
    EXPECT_EQ(QApplication::focusWidget(), m_first);
}

TEST_F(Focus, AContainerPassesItToItsFirstControlInTabOrder) {
    auto* box = new GroupBox(&m_window);
    AddButton(box, "hidden")->hide();
    FlatButton* inside = AddButton(box, "inside");
    AddButton(box, "behind");
    testing::ShowActive(m_window);
    TrySetFocus(box);
    EXPECT_EQ(QApplication::focusWidget(), inside);
}

TEST_F(Focus, AContainerWithoutControlsGetsItItself) {
    auto* box = new GroupBox(&m_window);
    testing::ShowActive(m_window);
    TrySetFocus(box);
    EXPECT_EQ(QApplication::focusWidget(), box);
}

TEST_F(Focus, ANullControlIsIgnored) { EXPECT_NO_THROW(TrySetFocus(nullptr)); }

TEST_F(Focus, The201stCallShowsTheMessageAndStillSetsTheFocus) {
    testing::ShowActive(m_window);
    Call199Times();
    EXPECT_TRUE(m_screen.Messages().empty());
    TrySetFocus(m_second);
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    const auto& message = m_screen.Messages().front();
    EXPECT_EQ(message.title, "Focus Loop Detected!");
    EXPECT_EQ(message.buttons, 16);
    EXPECT_EQ(
        message.prompt,
        "The program is trying to give 'second' input focus, but first won't relinquish it.\r\n\r\n"
        "Please take a screenshot of this error and tell a developer. The program will try to correct itself now, but "
        "if this message keeps re-apearing, end this process from the Task Manager.\r\n\r\n"
        "[TrySetFocus(second), callCount = 200, callDepth = 0]");
    EXPECT_EQ(QApplication::focusWidget(), m_second);
}

TEST_F(Focus, AfterTheMessageTheCountRestarts) {
    Call199Times();
    TrySetFocus(m_first);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    Call199Times();
    EXPECT_TRUE(m_screen.Messages().empty());
    TrySetFocus(m_first);
    EXPECT_EQ(m_screen.Messages().size(), 1u);
}

TEST_F(Focus, TheMessageNamesTheControlAroundAFieldAndTheMemberOfAnArray) {
    auto* field = new FlatTextbox(&m_window);
    field->setObjectName("txtSearch");
    m_second->SetIndex(3);
    testing::ShowActive(m_window);
    TrySetFocus(field);
    for (int i = 0; i < 198; ++i) TrySetFocus(field);
    TrySetFocus(m_second);
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_NE(m_screen.Messages().front().prompt.find("'second(3)' input focus, but txtSearch won't"),
              std::string::npos);
}

TEST_F(Focus, TwoControlsThatFightForItAreStoppedWithTheDepthOfTheirFight) {
    testing::ShowActive(m_window);
    int rounds = 0;
    const auto fight = [&](QWidget*, QWidget* now) {
        if (!now || !m_screen.Messages().empty() || ++rounds > 400) return;
        TrySetFocus(now == m_first ? m_second : m_first);
    };
    const auto connection = QObject::connect(qApp, &QApplication::focusChanged, fight);
    TrySetFocus(m_second);
    QObject::disconnect(connection);
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_NE(m_screen.Messages().front().prompt.find("callCount = 200, callDepth = "), std::string::npos);
    EXPECT_EQ(m_screen.Messages().front().prompt.find("callDepth = 0]"), std::string::npos);
}

TEST_F(Focus, AMessageThatCannotBeShownIsSwallowed) {
    Call199Times();
    m_environment->screen = nullptr;
    EXPECT_NO_THROW(TrySetFocus(m_first));
    m_environment->screen = &m_screen;
    Call199Times();
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(Focus, AControlDestroyedWhileTheMessageIsOpenIsForgotten) {
    Call199Times();
    m_screen.WhileMessageOpen = [this](const testing::RecordingScreen::Message&) { delete m_second; };
    EXPECT_NO_THROW(TrySetFocus(m_second));
    m_screen.WhileMessageOpen = nullptr;
    EXPECT_EQ(m_screen.Messages().size(), 1u);
}

TEST(DescribeControl, NamesWhatThereIs) {
    EXPECT_EQ(DescribeControl(nullptr), "<no control>");
    GroupBox box;
    box.setObjectName("buttonGroup");
    EXPECT_EQ(DescribeControl(&box), "buttonGroup");
    box.SetIndex(1);
    EXPECT_EQ(DescribeControl(&box), "buttonGroup(1)");
    QWidget plain;
    plain.setObjectName("plain");
    EXPECT_EQ(DescribeControl(&plain), "plain");
}

}  // namespace quellbrook
