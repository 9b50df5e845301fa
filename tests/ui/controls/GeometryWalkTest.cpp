#include "tests/support/ui/GeometryWalk.h"

#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Twips.h"

#include <QTreeWidget>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The faults that the walk reports.
class GeometryWalkTest : public ControlsTest {
protected:
    GeometryWalkTest() { m_window.setObjectName("window"); }

    template <typename T>
    T* Place(const char* name, const QRect& place) {
        auto* control = new T(&m_window);
        control->setObjectName(name);
        control->Move(ToTwips(place.x()), ToTwips(place.y()), ToTwips(place.width()), ToTwips(place.height()));
        return control;
    }
    FlatButton* PlaceButton(const char* name, const QRect& place) {
        auto* button = Place<FlatButton>(name, place);
        button->SetCaption("Save");
        return button;
    }

    std::vector<std::string> Faults(std::vector<MeantFault> meant = {}) {
        meant.push_back({MeantFault::Kind::Overlap, "QFocusFrame", "", "it surrounds the focused control"});
        ShowActive(m_window);
        return GeometryWalk(std::move(meant)).FaultsOf(m_window);
    }
};

TEST_F(GeometryWalkTest, AnOrderlyWindowHasNoFaults) {
    PlaceButton("save", {10, 10, 96, 36});
    PlaceButton("cancel", {120, 10, 96, 36});
    EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(GeometryWalkTest, ReportsOverlappingSiblings) {
    PlaceButton("save", {10, 10, 96, 36});
    PlaceButton("cancel", {100, 10, 96, 36});
    EXPECT_THAT(Faults(), ElementsAre(HasSubstr("window/save (10, 10, 96 x 36) overlaps window/cancel")));
}

TEST_F(GeometryWalkTest, SiblingsThatTouchDoNotOverlap) {
    PlaceButton("save", {10, 10, 96, 36});
    PlaceButton("cancel", {106, 10, 96, 36});
    EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(GeometryWalkTest, ReportsAChildOutsideItsParent) {
    PlaceButton("save", {10, 10, 96, 36});
    Place<Label>("label", {-1, 60, 40, 20})->SetCaption("Shelf");
    EXPECT_THAT(Faults(),
                ElementsAre(AllOf(HasSubstr("window/label (-1, 60, "), HasSubstr(" sticks out of its parent"))));
}

TEST_F(GeometryWalkTest, IgnoresHiddenWidgets) {
    PlaceButton("save", {-1, 10, 96, 36})->hide();
    EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(GeometryWalkTest, ReportsAClippedCaption) {
    auto* tag = Place<StatusTag>("tag", {10, 10, 40, 20});
    tag->SetCaption("In Uncategorized Location");
    tag->SetWidth(ToTwips(40));
    EXPECT_THAT(Faults(), ElementsAre(HasSubstr("window/tag (0, 0, 40 x ")));
}

TEST_F(GeometryWalkTest, ReportsALabelLowerThanItsLine) {
    auto* label = Place<Label>("label", {10, 10, 40, 20});
    label->SetAutoSize(false);
    label->SetCaption("Shelf");
    label->SetHeight(ToTwips(9));
    EXPECT_THAT(Faults(), ElementsAre(HasSubstr("window/label (0, 0, 40 x 9) cuts off a text")));
}

TEST_F(GeometryWalkTest, ReportsRowsThatAreNotElided) {
    auto* tree = new QTreeWidget(&m_window);
    tree->setObjectName("tree");
    tree->setAccessibleName("Shelves");
    tree->setHeaderHidden(true);
    tree->setTextElideMode(Qt::ElideNone);
    EXPECT_THAT(Faults(), ElementsAre("window/tree does not shorten the texts of its rows"));
}

TEST_F(GeometryWalkTest, ReportsAnElementWithoutAName) {
    Place<FlatButton>("save", {10, 10, 96, 36});
    EXPECT_THAT(Faults(), ElementsAre("window/save has no accessible name"));
}

TEST_F(GeometryWalkTest, ReportsAnUnreachableTabStop) {
    struct Trap : FlatButton {
        using FlatButton::FlatButton;
        bool focusNextPrevChild(bool) override { return true; }
    };
    auto* trap = Place<Trap>("trap", {10, 10, 96, 36});
    trap->SetCaption("Trap");
    PlaceButton("save", {10, 60, 96, 36});
    trap->setFocus();
    EXPECT_THAT(Faults(), ElementsAre("window/save is a tab stop that Tab does not reach"));
}

TEST_F(GeometryWalkTest, IgnoresExpectedFaultsAndListsThoseNotMet) {
    PlaceButton("save", {10, 10, 96, 36});
    PlaceButton("cancel", {100, 10, 96, 36});
    GeometryWalk walk({{MeantFault::Kind::Overlap, "cancel", "window/save", "it is a test"},
                       {MeantFault::Kind::Overlap, "QFocusFrame", "", "it surrounds the focused control"},
                       {MeantFault::Kind::Clipped, "save", "", "it is a test"}});
    ShowActive(m_window);
    EXPECT_THAT(walk.FaultsOf(m_window), IsEmpty());
    EXPECT_THAT(walk.NeverMet(), ElementsAre("save"));
}

}  // namespace
}  // namespace quellbrook::testing
