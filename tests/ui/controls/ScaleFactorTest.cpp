#include "tests/ui/controls/ControlsTest.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace quellbrook::testing {
namespace {

constexpr const char* FactorVariable = "QT_SCALE_FACTOR";

class ScaleFactor : public ControlsTest {};

TEST_F(ScaleFactor, IsTheOneOfTheEnvironment) {
    const double expected = qEnvironmentVariableIsSet(FactorVariable) ? qgetenv(FactorVariable).toDouble() : 1.0;
    ShowActive(m_window);
    EXPECT_DOUBLE_EQ(m_window.devicePixelRatioF(), expected);
    EXPECT_EQ(Grab(m_window).size(), m_window.size() * expected);
}

// Geometry, docking, lists and pictures again, in a process of its own with two device pixels to each of ours.
TEST(ScaleFactorTwo, TheSameRulesHold) {
    if (qEnvironmentVariableIsSet(FactorVariable)) GTEST_SKIP() << "This is the scaled process.";
    QProcess scaled;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(FactorVariable, "2");
    scaled.setProcessEnvironment(environment);
    scaled.setProcessChannelMode(QProcess::MergedChannels);
    scaled.start(QCoreApplication::applicationFilePath(),
                 {"--gtest_filter=ScaleFactor.*:ControlGeometry.*:Docking.*:ListViewTest.*:LabelTest.*:FlatTabsTest.*:"
                  "PressableTest*:FocusRingTest.*:FlatScrollBarTest.*:IconsTest.*:MouseEventsTest.*"});
    ASSERT_TRUE(scaled.waitForFinished(120000));
    const std::string output = scaled.readAll().toStdString();
    EXPECT_EQ(scaled.exitCode(), 0) << output;
    EXPECT_NE(output.find("[       OK ] ScaleFactor.IsTheOneOfTheEnvironment"), std::string::npos) << output;
}

}  // namespace
}  // namespace quellbrook::testing
