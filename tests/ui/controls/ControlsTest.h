#pragma once

#include "base/Environment.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/Control.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// A window of 800 x 600 pixels for controls, and a screen that records error reports.
class ControlsTest : public ::testing::Test {
protected:
    ControlsTest() {
        m_environment->screen = &m_screen;
        m_window.setObjectName("window");
        m_window.resize(800, 600);
    }
    ~ControlsTest() override {
        EXPECT_TRUE(m_screen.Messages().empty()) << "Unexpected message: " << m_screen.Messages().front();
    }

    // Checks that there was exactly one report, with this text.
    void ExpectUnexpected(const std::string& description) {
        const std::vector<RecordingScreen::Message> expected = {
            {description, MessageStyle::Critical, "Unexpected Error"}};
        EXPECT_EQ(m_screen.TakeMessages(), expected);
    }

    EnvironmentScope m_environment;
    RecordingScreen m_screen;
    QWidget m_window;
};

// A control with a layout function that a test sets.
class PlainControl : public Control {
public:
    using Control::Control;
    std::string TypeName() const override { return "PlainControl"; }

    std::function<void()> layout;
    int layouts = 0;

protected:
    void Layout() override {
        ++layouts;
        if (layout) layout();
    }
};

// Gives the application another palette for the duration of a scope.
class DarkTheme {
public:
    DarkTheme() { Theme::Install(true); }
    ~DarkTheme() { Theme::Install(false); }
};

}  // namespace quellbrook::testing
