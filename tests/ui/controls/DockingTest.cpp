#include "tests/ui/controls/ControlsTest.h"

namespace quellbrook::testing {
namespace {

class Docking : public ControlsTest {
protected:
    Docking() { m_parent.Move(0, 0, 6000, 4500); }

    PlainControl* Dock(Alignment align, float height) {
        auto* control = new PlainControl(&m_parent);
        control->SetHeight(height);
        control->SetAlign(align);
        return control;
    }

    PlainControl m_parent{&m_window};
};

TEST_F(Docking, TopAndBottomTakeTheParentsWidthAndKeepTheirHeight) {
    auto* top = Dock(Alignment::Top, 600);
    auto* bottom = Dock(Alignment::Bottom, 630);
    EXPECT_EQ(top->geometry(), QRect(0, 0, 400, 40));
    EXPECT_EQ(bottom->geometry(), QRect(0, 258, 400, 42));
}

TEST_F(Docking, AWidgetThatIsNoControlLeavesTheControlWhereItIs) {
    PlainControl control(&m_window);
    control.SetAlign(Alignment::Top);
    control.Move(300, 300, 3000, 600);
    EXPECT_EQ(control.geometry(), QRect(20, 20, 200, 40));
}

TEST_F(Docking, ControlsStackInTheOrderOfCreation) {
    auto* first = Dock(Alignment::Top, 600);
    auto* second = Dock(Alignment::Top, 300);
    auto* lowest = Dock(Alignment::Bottom, 150);
    auto* above = Dock(Alignment::Bottom, 300);
    first->raise();
    m_parent.SetWidth(3000);
    EXPECT_FLOAT_EQ(first->Top(), 0);
    EXPECT_FLOAT_EQ(second->Top(), 600);
    EXPECT_FLOAT_EQ(lowest->Bottom(), 4500);
    EXPECT_FLOAT_EQ(above->Bottom(), lowest->Top());
    EXPECT_FLOAT_EQ(second->Width(), 3000);
}

TEST_F(Docking, AChangeOfHeightRunsTheParentsLayoutAndBottomEdgesMeet) {
    auto* bottom = Dock(Alignment::Bottom, 630);
    const int before = m_parent.layouts;
    bottom->SetHeight(900);
    EXPECT_EQ(m_parent.layouts, before + 1);
    EXPECT_FLOAT_EQ(bottom->Bottom(), m_parent.Height());

    ShowActive(m_window);
    const int shown = m_parent.layouts;
    bottom->resize(bottom->width(), 20);
    EXPECT_GT(m_parent.layouts, shown);
    EXPECT_FLOAT_EQ(bottom->Bottom(), m_parent.Height());
}

TEST_F(Docking, AControlThatGrowsInItsOwnLayoutPushesTheNext) {
    auto* first = Dock(Alignment::Top, 300);
    auto* second = Dock(Alignment::Top, 300);
    first->layout = [first] { first->SetHeight(900); };
    m_parent.SetWidth(3000);
    EXPECT_FLOAT_EQ(second->Top(), 900);
}

TEST_F(Docking, HiddenControlsAreSkipped) {
    auto* first = Dock(Alignment::Top, 300);
    auto* second = Dock(Alignment::Top, 300);
    first->hide();
    EXPECT_FLOAT_EQ(second->Top(), 0);
    first->show();
    EXPECT_FLOAT_EQ(second->Top(), 300);
}

TEST_F(Docking, AnOverlayingControlStacksOnTheEarlierOnesAndDoesNotMoveTheLater) {
    auto* bar = Dock(Alignment::Bottom, 630);
    auto* toast = Dock(Alignment::Bottom, 720);
    auto* later = Dock(Alignment::Bottom, 150);
    toast->SetOverlaying(true);
    for (const float height : {720.0f, 300.0f}) {
        toast->SetHeight(height);
        EXPECT_FLOAT_EQ(bar->Bottom(), m_parent.Height());
        EXPECT_FLOAT_EQ(toast->Bottom(), bar->Top());
        EXPECT_FLOAT_EQ(later->Bottom(), bar->Top());
    }
    bar->hide();
    EXPECT_FLOAT_EQ(toast->Bottom(), m_parent.Height());
}

TEST_F(Docking, UndockedControlsStay) {
    auto* control = Dock(Alignment::Top, 300);
    control->SetAlign(Alignment::None);
    control->Move(150, 150, 300, 300);
    m_parent.SetWidth(3000);
    EXPECT_EQ(control->geometry(), QRect(10, 10, 20, 20));
}

}  // namespace
}  // namespace quellbrook::testing
