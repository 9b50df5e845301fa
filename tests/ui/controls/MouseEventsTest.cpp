#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/controls/MouseEvents.h"

#include <QPointer>

namespace quellbrook::testing {
namespace {

class MouseEventsTest : public ControlsTest {
protected:
    MouseEventsTest() {
        m_container->setGeometry(100, 50, 400, 300);
        QObject::connect(m_events, &MouseEvents::Up, [this](int button, const QPoint& at) { Note("up", button, at); });
        QObject::connect(m_events, &MouseEvents::DoubleClick, [this](const QPoint& at) { Note("double", 0, at); });
    }

    void Note(const std::string& what, int button, const QPoint& at) {
        m_record.push_back(what + " " + std::to_string(button) + " " + std::to_string(at.x()) + "," +
                           std::to_string(at.y()));
    }

    std::vector<std::string> Take() { return std::exchange(m_record, {}); }

    PlainControl* m_container = new PlainControl(&m_window);
    MouseEvents* m_events = new MouseEvents(m_container);
    std::vector<std::string> m_record;
};

using Record = std::vector<std::string>;

TEST(ButtonMask, HasABitForLeftRightAndMiddleOnly) {
    EXPECT_EQ(ButtonMask(Qt::LeftButton), 1);
    EXPECT_EQ(ButtonMask(Qt::RightButton), 2);
    EXPECT_EQ(ButtonMask(Qt::MiddleButton), 4);
    EXPECT_EQ(ButtonMask(Qt::BackButton), 0);
}

TEST_F(MouseEventsTest, ReleasesHaveAButtonAndAPosition) {
    ShowActive(m_window);
    Click(m_container, QPoint(7, 9));
    EXPECT_EQ(Take(), (Record{"up 1 7,9"}));
    RightClick(m_container, QPoint(0, 0));
    EXPECT_EQ(Take(), (Record{"up 2 0,0"}));
}

TEST_F(MouseEventsTest, PositionsAreInTheContainersCoordinates) {
    auto* row = new PlainControl(m_container);
    row->setGeometry(10, 100, 300, 50);
    auto* label = new Label(row);
    label->SetCaption("In Storage");
    label->move(20, 5);
    ShowActive(m_window);
    Click(label, QPoint(3, 4));
    EXPECT_EQ(Take(), (Record{"up 1 33,109"}));
}

TEST_F(MouseEventsTest, AnEventThatAChildIgnoresCountsOnce) {
    auto* button = new FlatButton(m_container);
    button->Move(0, 0);
    ShowActive(m_window);
    RightClick(button, QPoint(5, 5));
    Click(button, QPoint(5, 5));
    EXPECT_EQ(Take(), (Record{"up 2 5,5", "up 1 5,5"}));
    Click(button, QPoint(5, 5));
    EXPECT_EQ(Take(), (Record{"up 1 5,5"}));
}

TEST_F(MouseEventsTest, ADoubleClickIsReleaseDoubleClickRelease) {
    ShowActive(m_window);
    DoubleClick(m_container, QPoint(5, 5));
    EXPECT_EQ(Take(), (Record{"up 1 5,5", "double 0 5,5", "up 1 5,5"}));
}

TEST_F(MouseEventsTest, IncludesChildrenAddedLater) {
    ShowActive(m_window);
    PlainControl built;
    auto* inner = new PlainControl(&built);
    inner->setGeometry(5, 5, 20, 20);
    built.setParent(m_container);
    built.setGeometry(50, 60, 100, 100);
    built.show();
    Click(inner, QPoint(1, 1));
    EXPECT_EQ(Take(), (Record{"up 1 56,66"}));
    built.setParent(&m_window);
    built.show();
    Click(inner, QPoint(1, 1));
    EXPECT_EQ(Take(), Record());
}

TEST_F(MouseEventsTest, TheClickedWidgetMayBeDestroyed) {
    QPointer<PlainControl> row = new PlainControl(m_container);
    row->setGeometry(0, 0, 100, 100);
    ShowActive(m_window);
    QObject::connect(m_events, &MouseEvents::Up, [&] { delete row.data(); });
    MousePress(row.data(), QPoint(1, 1));
    MouseRelease(row.data(), QPoint(1, 1));
    EXPECT_TRUE(row.isNull());
}

}  // namespace
}  // namespace quellbrook::testing
