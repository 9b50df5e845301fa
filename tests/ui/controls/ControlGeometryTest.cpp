#include "tests/ui/controls/ControlsTest.h"

namespace quellbrook::testing {
namespace {

class ControlGeometry : public ControlsTest {
protected:
    PlainControl m_control{&m_window};
};

TEST_F(ControlGeometry, LengthsAreFifteenTwipsToAPixel) {
    m_control.Move(240, 1140, 3000, 540);
    EXPECT_EQ(m_control.geometry(), QRect(16, 76, 200, 36));
}

TEST_F(ControlGeometry, LengthsAreKeptAsFloatsAndRoundedAtTheWidgetOnly) {
    m_control.Move(7.4f, 7.6f, 22.6f, 1000.25f);
    EXPECT_EQ(m_control.geometry(), QRect(0, 1, 2, 67));
    EXPECT_FLOAT_EQ(m_control.Left(), 7.4f);
    EXPECT_FLOAT_EQ(m_control.Top(), 7.6f);
    EXPECT_FLOAT_EQ(m_control.Width(), 22.6f);
    EXPECT_FLOAT_EQ(m_control.Height(), 1000.25f);
    EXPECT_FLOAT_EQ(m_control.Right(), 30.0f);
    EXPECT_FLOAT_EQ(m_control.Bottom(), 1007.85f);
}

TEST_F(ControlGeometry, EachLengthCanBeSetAlone) {
    m_control.Move(15, 30, 45, 60);
    m_control.SetLeft(150);
    m_control.SetTop(300);
    m_control.SetWidth(450);
    m_control.SetHeight(600);
    EXPECT_EQ(m_control.geometry(), QRect(10, 20, 30, 40));
}

TEST_F(ControlGeometry, ReportsTheGeometryThatQtSet) {
    m_control.Move(7.4f, 7.6f, 22.6f, 30.1f);
    m_control.setGeometry(0, 20, 2, 30);
    EXPECT_FLOAT_EQ(m_control.Left(), 7.4f);
    EXPECT_FLOAT_EQ(m_control.Top(), 300.0f);
    EXPECT_FLOAT_EQ(m_control.Width(), 22.6f);
    EXPECT_FLOAT_EQ(m_control.Height(), 450.0f);
}

TEST_F(ControlGeometry, ASizeThatTheWidgetRejectsIsNotKept) {
    m_control.setFixedSize(0, 0);
    m_control.SetWidth(1500);
    EXPECT_FLOAT_EQ(m_control.Width(), 0.0f);
}

TEST_F(ControlGeometry, NegativeSizesBecomeZero) {
    m_control.Move(0, 0, -30, -45);
    EXPECT_EQ(m_control.size(), QSize(0, 0));
    EXPECT_FLOAT_EQ(m_control.Width(), 0.0f);
}

TEST_F(ControlGeometry, PropertiesCanBeSetByName) {
    EXPECT_TRUE(m_control.setProperty("Height", 720.0f));
    EXPECT_FLOAT_EQ(m_control.property("Height").toFloat(), 720.0f);
    EXPECT_EQ(m_control.height(), 48);
    EXPECT_TRUE(m_control.setProperty("Tag", "17"));
    EXPECT_EQ(m_control.Tag(), "17");
    EXPECT_EQ(m_control.property("Index").toInt(), -1);
}

TEST_F(ControlGeometry, LayoutRunsAfterEveryChangeOfSizeEvenWhileHidden) {
    m_control.Move(0, 0, 300, 300);
    EXPECT_EQ(m_control.layouts, 1);
    m_control.SetLeft(30);
    EXPECT_EQ(m_control.layouts, 1);
    m_control.SetHeight(450);
    EXPECT_EQ(m_control.layouts, 2);
    ShowActive(m_window);
    const int before = m_control.layouts;
    m_control.SetHeight(600);
    EXPECT_EQ(m_control.layouts, before + 1);
    m_control.resize(99, 99);
    EXPECT_EQ(m_control.layouts, before + 2);
}

TEST_F(ControlGeometry, ALayoutMayResizeItsOwnControl) {
    m_control.layout = [this] { m_control.SetHeight(m_control.Width() * 2); };
    m_control.SetWidth(300);
    EXPECT_FLOAT_EQ(m_control.Height(), 600.0f);
}

TEST_F(ControlGeometry, LogicalPixelsDoNotDependOnTheScaleFactor) {
    ShowActive(m_window);
    m_control.Move(100, 200, 1000, 700);
    EXPECT_EQ(m_control.geometry(), QRect(7, 13, 67, 47));
    EXPECT_FLOAT_EQ(m_control.Width(), 1000.0f);
}

TEST(ControlArray, MembersShareANameAndHaveAnIndex) {
    QWidget parent;
    std::vector<PlainControl*> members;
    LoadMember(members, &parent)->setObjectName("searchResult");
    LoadMember(members, &parent);
    LoadMember(members, &parent);
    ASSERT_EQ(members.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(members[static_cast<size_t>(i)]->Name(), "searchResult");
        EXPECT_EQ(members[static_cast<size_t>(i)]->Index(), i);
        EXPECT_TRUE(members[static_cast<size_t>(i)]->Tag().isEmpty());
    }
}

TEST(ControlShown, IgnoresWhetherTheParentIsVisible) {
    QWidget parent;
    PlainControl control(&parent);
    EXPECT_TRUE(control.IsShown());
    control.hide();
    EXPECT_FALSE(control.IsShown());
    control.show();
    EXPECT_TRUE(control.IsShown());
    EXPECT_FALSE(control.isVisible());
}

}  // namespace
}  // namespace quellbrook::testing
