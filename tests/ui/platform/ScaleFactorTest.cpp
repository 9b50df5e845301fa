#include "tests/support/ui/ScaledProcess.h"
#include "tests/ui/controls/ControlsTest.h"

namespace quellbrook::testing {
namespace {

class ScaleFactor : public ControlsTest {};

TEST_F(ScaleFactor, IsTheOneOfTheEnvironment) {
    const double expected = IsScaledProcess() ? qgetenv(ScaleFactorVariable).toDouble() : 1.0;
    ShowActive(m_window);
    EXPECT_DOUBLE_EQ(m_window.devicePixelRatioF(), expected);
    EXPECT_EQ(Grab(m_window).size(), m_window.size() * expected);
}

// Geometry, docking, lists and pictures again, in a separate process at scale factor 2.
TEST(ScaleFactorTwo, TheSameRulesHold) {
    ExpectTheSameAtScaleTwo(
        "ScaleFactor.*:ControlGeometry.*:Docking.*:ListViewTest.*:LabelTest.*:FlatTabsTest.*:"
        "PressableTest*:FocusRingTest.*:FlatScrollBarTest.*:IconsTest.*:MouseEventsTest.*",
        "ScaleFactor.IsTheOneOfTheEnvironment");
}

}  // namespace
}  // namespace quellbrook::testing
