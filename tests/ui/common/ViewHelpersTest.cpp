#include "ui/common/ViewHelpers.h"

#include "base/Environment.h"
#include "base/Error.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/ListView.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Strings.h"

#include <QMenu>
#include <QResizeEvent>
#include <QStyle>
#include <QTimer>

namespace quellbrook {

namespace {

using testing::MakeItem;
using testing::RaisedBy;

class StatusHelpers : public testing::DatabaseTest {
protected:
    std::string StatusOf(StoredItem& item) {
        SetStatusTag(m_tag, item);
        return ToUtf8(m_tag.Caption()) + " " + std::to_string(m_tag.Color());
    }
    std::string StatusAt(StorageLocationTypes type) {
        const int32_t location = m_database.AddLocation("Place " + std::to_string(static_cast<int>(type)), type);
        HostLocationData::Discard();
        return StatusOf(*MakeItem(1, StoredItemTypes::Property, location));
    }

    StatusTag m_tag;
    Label m_label;
};

class PlainObject : public Object {
public:
    std::string TypeName() const override { return "StorageLocation"; }
};

// A property that counts its reads.
class Probed : public Control {
    Q_OBJECT
    Q_PROPERTY(int Reading READ Read)

public:
    std::string TypeName() const override { return typeName; }
    int Read() const { return ++reads; }

    std::string typeName;
    mutable int reads = 0;
};

// Results are cached for the whole run, so each test needs its own type.
std::string NewTypeName() {
    static int count = 0;
    return "Probed" + std::to_string(++count);
}

class Sized : public Control {
public:
    using Control::Control;
    std::string TypeName() const override { return "Sized"; }
    int layouts = 0;
    std::vector<std::pair<QSize, QSize>> events;  // new and old size

protected:
    void Layout() override { ++layouts; }
    void resizeEvent(QResizeEvent* event) override {
        events.emplace_back(event->size(), event->oldSize());
        Control::resizeEvent(event);
    }
};

class OpenInHostTest : public ::testing::Test {
protected:
    OpenInHostTest() {
        m_environment->runCommand = [this](const std::string& command) { m_commands.push_back(command); };
    }

    EnvironmentScope m_environment;
    std::vector<std::string> m_commands;
};

}  // namespace

TEST_F(StatusHelpers, AnItemThatWasNeverStoredIsRed) {
    const int32_t id = m_database.AddProperty();
    EXPECT_EQ(StatusOf(*MakeItem(id)), "Not in Storage " + std::to_string(0x0000FF));
}

TEST_F(StatusHelpers, AnItemWithCustodyRowsAndNoLocationIsDisposed) {
    const int32_t id = m_database.AddProperty();
    m_database.AddCustodyRow(StoredItemTypes::Property, id, Null());
    EXPECT_EQ(StatusOf(*MakeItem(id)), "Disposed " + std::to_string(0x808080));
}

TEST_F(StatusHelpers, ALocationsTypeDecidesOtherwise) {
    EXPECT_EQ(StatusAt(StorageLocationTypes::Unassigned), "In Uncategorized Location " + std::to_string(0x0080FF));
    EXPECT_EQ(StatusAt(StorageLocationTypes::Internal), "In Storage " + std::to_string(0x87AD24));
    EXPECT_EQ(StatusAt(StorageLocationTypes::External), "Signed Out " + std::to_string(0x0000C0));
    EXPECT_EQ(StatusAt(StorageLocationTypes::DisposalLocation), "Disposed " + std::to_string(0x808080));
    EXPECT_EQ(StatusAt(StorageLocationTypes::Other), "Needs Review " + std::to_string(0x0080FF));
}

TEST_F(StatusHelpers, ALocationOfAnyOtherTypeHasNoStatus) {
    m_database.Execute("PRAGMA ignore_check_constraints = ON");
    EXPECT_EQ(StatusAt(StorageLocationTypes(32)), " 0");
}

TEST_F(StatusHelpers, TheLocationLabelShowsThePathWithoutTheRoot) {
    const int32_t room = m_database.AddLocation("Room", StorageLocationTypes::Internal);
    const int32_t shelf = m_database.AddLocation("Shelf A & B", StorageLocationTypes::Internal, room);
    SetLocationLabel(m_label, *MakeItem(1, StoredItemTypes::Property, shelf));
    EXPECT_EQ(m_label.Caption(), "Room > Shelf A & B");
    SetLocationLabel(m_label, *MakeItem(1));
    EXPECT_EQ(m_label.Caption(), "");
}

TEST(SizeLastColumn, TheLastColumnGetsTheWidthThatTheOthersAndSixScrollBarsLeave) {
    ListView list;
    list.Move(0, 0, 12000, 6000);
    list.AddColumn("a", "A", 1500);
    list.AddColumn("b", "B", 3000);
    list.AddColumn("c", "C", 100);
    const int scrollBar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list);
    SizeLastColumn(list);
    EXPECT_FLOAT_EQ(list.ColumnWidth(2), 12000 - 4500 - static_cast<float>(scrollBar) * 6 * 15);
}

TEST(SizeLastColumn, AListNarrowerThanItsOtherColumnsKeepsTheLastOnesWidth) {
    ListView list;
    list.Move(0, 0, 4000, 6000);
    list.AddColumn("a", "A", 1500);
    list.AddColumn("b", "B", 3000);
    list.AddColumn("c", "C", 600);
    SizeLastColumn(list);
    EXPECT_FLOAT_EQ(list.ColumnWidth(2), 600);
}

TEST(SizeLastColumn, AListWithoutColumnsIsLeftAlone) {
    ListView list;
    EXPECT_NO_THROW(SizeLastColumn(list));
}

TEST(CenterInContainer, MovesOnlyTheWaysAskedFor) {
    GroupBox container;
    container.Move(0, 0, 3000, 1500);
    GroupBox control(&container);
    control.Move(60, 75, 600, 300);
    CenterInContainer(control, container, Center::Horizontally);
    EXPECT_FLOAT_EQ(control.Left(), 1200);
    EXPECT_FLOAT_EQ(control.Top(), 75);
    CenterInContainer(control, container, Center::Vertically);
    EXPECT_FLOAT_EQ(control.Top(), 600);
    control.Move(0, 0);
    CenterInContainer(control, container, 0);
    EXPECT_FLOAT_EQ(control.Left(), 0);
    CenterInContainer(control, container, Center::Vertically | Center::Horizontally);
    EXPECT_FLOAT_EQ(control.Left(), 1200);
    EXPECT_FLOAT_EQ(control.Top(), 600);
}

TEST(ShowContextMenu, TheDefaultEntryIsBoldIfItIsEnabled) {
    QWidget owner;
    QMenu menu;
    QAction* open = menu.addAction("Open");
    QAction* print = menu.addAction("Print");
    const auto popUp = [&](QAction* defaultMenu) {
        QAction* shown = nullptr;
        QTimer::singleShot(0, &menu, [&] {
            shown = menu.defaultAction();
            menu.close();
        });
        ShowContextMenu(&owner, &menu, defaultMenu);
        return shown;
    };
    EXPECT_EQ(popUp(open), open);
    print->setEnabled(false);
    EXPECT_EQ(popUp(print), nullptr);
    EXPECT_EQ(popUp(nullptr), nullptr);
}

TEST(ShowContextMenu, ALetterHighlightsTheNextEntryThatBeginsWithIt) {
    QWidget owner;
    QMenu menu;
    menu.addAction("Print");
    menu.addSeparator();
    menu.addAction("Select All");
    menu.addAction("Send")->setVisible(false);
    menu.addAction("Sort")->setEnabled(false);
    QMenu* newMenu = menu.addMenu("New");
    newMenu->addAction("Folder");
    newMenu->addAction("Location");
    menu.addAction("Sign out");
    std::vector<std::string> active;
    QTimer::singleShot(0, &menu, [&] {
        for (const auto key : {Qt::Key_S, Qt::Key_S, Qt::Key_S, Qt::Key_X, Qt::Key_N}) {
            QTest::keyClick(&menu, key);
            active.push_back(menu.activeAction() ? ToUtf8(menu.activeAction()->text()) : "");
        }
        active.push_back(newMenu->activeAction() ? ToUtf8(newMenu->activeAction()->text()) : "");
        QTest::keyClick(newMenu, Qt::Key_L);
        active.push_back(newMenu->activeAction() ? ToUtf8(newMenu->activeAction()->text()) : "");
        menu.close();
    });
    ShowContextMenu(&owner, &menu, nullptr);
    EXPECT_EQ(active, (std::vector<std::string>{"Select All", "Sign out", "Select All", "Select All", "New", "Folder",
                                                "Location"}));
}

TEST(ShowContextMenu, WithoutAMenuNothingHappens) {
    QWidget owner;
    QAction action("Open");
    EXPECT_NO_THROW(ShowContextMenu(&owner, nullptr, &action));
}

TEST(SetHandCursor, ShowsTheHandOverTheWidget) {
    QWidget widget;
    SetHandCursor(&widget);
    EXPECT_EQ(widget.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_NO_THROW(SetHandCursor(nullptr));
}

TEST(HasMember, AMemberIsReadOnceForEachType) {
    Probed first;
    Probed second;
    first.typeName = second.typeName = NewTypeName();
    EXPECT_TRUE(HasMember(first, "Reading"));
    EXPECT_EQ(first.reads, 1);
    EXPECT_TRUE(HasMember(first, "Reading"));
    EXPECT_TRUE(HasMember(second, "Reading"));
    EXPECT_EQ(first.reads, 1);
    EXPECT_EQ(second.reads, 0);
}

TEST(HasMember, TheFirstAnswerStaysForTheType) {
    Probed object;
    object.typeName = NewTypeName();
    EXPECT_FALSE(HasMember(object, "Later"));
    object.setProperty("Later", 1);
    EXPECT_FALSE(HasMember(object, "Later"));
}

TEST(HasMember, EachTypeNameIsAskedAgain) {
    Probed object;
    object.typeName = NewTypeName();
    HasMember(object, "Reading");
    object.typeName = NewTypeName();
    HasMember(object, "Reading");
    EXPECT_EQ(object.reads, 2);
    EXPECT_FALSE(HasMember(object, "Missing"));
}

TEST(AssignValue, ObjectsAreCopiedByReferenceAndTheRestByValue) {
    TaggedValue target;
    AssignValue(target, "text");
    EXPECT_EQ(target, TaggedValue("text"));
    const ObjectRef object = std::make_shared<PlainObject>();
    AssignValue(target, object);
    EXPECT_EQ(*target.If<ObjectRef>(), object);
}

TEST(ForceSizeMessage, TheScreenCoordinatesArePackedAsTheyAre) {
    EXPECT_EQ(PackSizeMessage(0x0102, 0x0304), 0x03040102u);
    EXPECT_EQ(PackSizeMessage(0x12345, 2), 0x00022345u);
    EXPECT_EQ(PackSizeMessage(-1, -2), 0xFFFEFFFFu);
}

TEST(ForceSizeMessage, TheParentsLayoutRunsOnceThoughNothingChangedItsSize) {
    Sized parent;
    parent.move(30, 20);
    parent.resize(400, 300);
    auto* child = new Sized(&parent);
    child->SetAlign(Alignment::Bottom);
    child->SetHeight(600);
    testing::ShowActive(parent);
    parent.layouts = 0;
    child->events.clear();
    const QPoint corner = child->mapToGlobal(QPoint(400, 40));
    EXPECT_EQ(ForceSizeMessage(child), PackSizeMessage(corner.x(), corner.y()));
    EXPECT_EQ(parent.layouts, 1);
    ASSERT_EQ(child->events.size(), 1u);
    EXPECT_EQ(child->events[0], std::pair(child->size(), child->size()));
}

TEST_F(OpenInHostTest, AVehicleIsOpenedByItsNumber) {
    OpenInHost(MakeItem(42, StoredItemTypes::vehicle));
    EXPECT_EQ(m_commands, std::vector<std::string>{"cmd /c start tessarine://mivehicle/open/42"});
}

TEST_F(OpenInHostTest, SoIsAPieceOfProperty) {
    OpenInHost(MakeItem(7));
    EXPECT_EQ(m_commands, std::vector<std::string>{"cmd /c start tessarine://miproperty/open/7"});
}

TEST_F(OpenInHostTest, AnythingElseIsRefused) {
    const std::vector<ObjectRef> others = {std::make_shared<PlainObject>(), nullptr, MakeItem(7, StoredItemTypes(3))};
    for (const ObjectRef& other : others) {
        const Error error = RaisedBy([&] { OpenInHost(other); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "Cannot open this type of object in Tessarine.");
    }
    EXPECT_TRUE(m_commands.empty());
}

TEST_F(OpenInHostTest, WithoutAProgramThatOpensRecordsItFailsWithASentence) {
    const EnvironmentScope withoutRunner{Environment()};
    const Error error = RaisedBy([] { OpenInHost(MakeItem(7)); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "This workstation has no program that opens records.");
}

TEST(AccentColor, IsNineTenthsOfTheWayFromTheGreenToWhite) { EXPECT_EQ(AccentColor(), 0xF3F7E9); }

}  // namespace quellbrook

#include "ViewHelpersTest.moc"
