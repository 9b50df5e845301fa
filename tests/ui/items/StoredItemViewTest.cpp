#include "ui/items/StoredItemView.h"

#include "base/Environment.h"
#include "core/Actions.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/controls/StatusTag.h"
#include "ui/items/TrackingList.h"
#include "ui/items/TrackingResult.h"
#include "ui/platform/Twips.h"

#include <QFocusFrame>
#include <QMenu>
#include <QScrollArea>
#include <QTabBar>

namespace quellbrook::testing {
namespace {

class StoredItemViewTest : public SmallDepartment {
protected:
    StoredItemViewTest() {
        m_laptop = AddProperty("2026-0417-03", "Laptop computer", shelf);
        m_window.resize(1280, 760);
        m_view = new StoredItemView(&m_window);
        m_view->Move(0, 0, ToTwips(1280), ToTwips(760));
        ShowActive(m_window);
    }

    void Open(const StoredItemRef& item) {
        auto parameters = std::make_shared<Dictionary>();
        parameters->Set("Item", item);
        m_view->Show(parameters);
    }

    Label* LabelOf(const char* name) { return Find<Label>(*Find<GroupBox>(*m_view, "picTitleArea"), name); }
    FlatTabs* Tabs() { return Find<FlatTabs>(*m_view, "tabs"); }
    TrackingList* Tracking() { return Find<TrackingList>(*m_view, "tracking"); }
    Control* Named(const char* name) { return Find<Control>(*m_view, name); }

    QWidget m_window;
    StoredItemView* m_view = nullptr;
    StoredItemRef m_laptop;
};

TEST_F(StoredItemViewTest, ShowsTheItemsHeadingAndChain) {
    Open(m_laptop);
    EXPECT_EQ(LabelOf("lblID")->Caption(), "2026-0417-03");
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Laptop computer");
    EXPECT_EQ(Find<StatusTag>(*m_view, "tagStatus")->Caption(), "In Storage");
    EXPECT_EQ(LabelOf("lblLocation")->Caption(), "Property Room > Aisle 3 > Shelf B");
    EXPECT_EQ(Find<Link>(*m_view, "lnkOpenInTessarine")->Caption(), "Open in Tessarine...");
    EXPECT_EQ(Tabs()->Caption(0), "Details");
    EXPECT_EQ(Tabs()->Caption(1), "Chain of Custody");
    ASSERT_EQ(Tracking()->Rows().size(), 1u);
    EXPECT_EQ(Find<Label>(*Tracking()->Rows().front(), "lblTo")->Caption(), "Raman, Priya");
}

TEST_F(StoredItemViewTest, BeforeTheFirstItemTheHeadingShowsItsCaptions) {
    EXPECT_EQ(LabelOf("lblID")->Caption(), "Identifier");
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Description");
    EXPECT_EQ(Find<StatusTag>(*m_view, "tagStatus")->Caption(), "Unknown");
    EXPECT_EQ(LabelOf("lblLocation")->Caption(), "Location");
}

TEST_F(StoredItemViewTest, AVehicleShowsItsHeadingAndABlankDetailsPage) {
    Open(m_laptop);
    Open(AddVehicle("KTR4821", shelf));
    EXPECT_EQ(LabelOf("lblID")->Caption(), "KTR4821 (OR)");
    EXPECT_EQ(Tracking()->Rows().front()->IsShown(), true);
    EXPECT_EQ(Tabs()->SelectedIndex(), 0);
    for (const Control* child : Tabs()->Page(0)->findChildren<Control*>()) EXPECT_FALSE(child->isVisible());
}

TEST_F(StoredItemViewTest, APropertyShowsItsDetails) {
    Open(AddVehicle("KTR4821", shelf));
    Open(m_laptop);
    EXPECT_TRUE(Named("propertyDetails")->isVisible());
    EXPECT_EQ(Find<Label>(*m_view, "lblCategory")->Caption(), "Electronics");
    EXPECT_EQ(Named("propertyDetails")->size(), Tabs()->Page(0)->size());
    EXPECT_EQ(Named("propertyDetails")->pos(), QPoint(0, 0));
}

TEST_F(StoredItemViewTest, AfterAFailureTheCommandsServeTheItemBefore) {
    std::vector<std::string> commands;
    m_environment->runCommand = [&](const std::string& command) { commands.push_back(command); };
    Open(m_laptop);
    const StoredItemRef other = AddProperty("E-2", "Pry bar", aisle);
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    for (const bool atChain : {false, true}) {
        if (atChain) GetStorageLocationStatic().Refresh();
        faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
        EXPECT_EQ(RaisedBy([&] { Open(other); }).Description(), "The link is down.");
        EXPECT_EQ(Find<Label>(*m_view, "lblID")->Caption() == "E-2", atChain);
    }
    Click(Named("lnkOpenInTessarine"));
    EXPECT_EQ(commands,
              std::vector<std::string>{"cmd /c start tessarine://miproperty/open/" + std::to_string(m_laptop->ID())});
    Click(FindAll<Link>(*m_view, "lnkMenu").at(TransactionType::Move));
    ASSERT_EQ(Cart()->GetItems()->Count(), 1);
    EXPECT_EQ(Cart()->GetItems()->ItemAt(0), m_laptop);
}

TEST_F(StoredItemViewTest, TheMenuServesTheItemOnShow) {
    Open(m_laptop);
    const StoredItemRef vehicle = AddVehicle("KTR4821", shelf);
    Open(vehicle);
    Click(FindAll<Link>(*m_view, "lnkMenu").at(TransactionType::Move));
    ASSERT_EQ(Cart()->GetItems()->Count(), 1);
    EXPECT_EQ(Cart()->GetItems()->ItemAt(0), vehicle);
    EXPECT_TRUE(Named("lnkUndo")->isVisible());
}

TEST_F(StoredItemViewTest, EveryItemStartsOnDetails) {
    Open(m_laptop);
    Tabs()->SetSelectedIndex(1);
    Open(AddProperty("E-2", "Pry bar", aisle));
    EXPECT_EQ(Tabs()->SelectedIndex(), 0);
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Pry bar");
}

TEST_F(StoredItemViewTest, WithoutAnItemTheViewDoesNotChange) {
    Open(m_laptop);
    Tabs()->SetSelectedIndex(1);
    m_view->Show(std::make_shared<Dictionary>());
    m_view->Show(nullptr);
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Laptop computer");
    EXPECT_EQ(Tabs()->SelectedIndex(), 1);
}

TEST_F(StoredItemViewTest, AParameterThatIsNotAnItemIsRefused) {
    auto parameters = std::make_shared<Dictionary>();
    parameters->Set("Item", std::make_shared<Dictionary>());
    EXPECT_EQ(RaisedBy([&] { m_view->Show(parameters); }).Number(), ErrorNumber::TypeMismatch);
}

TEST_F(StoredItemViewTest, AnItemWithoutLocationHasAnEmptyTextNextToItsTag) {
    Open(FindItem(StoredItemTypes::Property, m_database.AddProperty({.PropertyID = "E-9"})));
    EXPECT_EQ(LabelOf("lblLocation")->Caption(), "");
    const auto* tag = Find<StatusTag>(*m_view, "tagStatus");
    EXPECT_EQ(tag->Caption(), "Not in Storage");
    EXPECT_EQ(LabelOf("lblLocation")->Left(), tag->Right() + 120);
}

TEST_F(StoredItemViewTest, PartsAreLaidOutAtTwoSizes) {
    Open(m_laptop);
    for (const QSize& size : {QSize(1280, 760), QSize(1920, 1040)}) {
        m_view->Move(0, 0, ToTwips(size.width()), ToTwips(size.height()));
        EXPECT_EQ(Named("lnkClose")->Left(), m_view->Width() - Named("lnkClose")->Width() - 240);
        EXPECT_EQ(Named("lnkClose")->Top(), 0);
        EXPECT_EQ(Named("menu")->geometry(), QRect(0, 0, size.width(), 44));
        EXPECT_EQ(Named("picTitleArea")->geometry(), QRect(0, 44, size.width(), 76));
        EXPECT_EQ(Named("spacer")->Top(), Named("picTitleArea")->Bottom());
        EXPECT_EQ(LabelOf("lblDescription")->Left(), LabelOf("lblID")->Right() + 120);
        EXPECT_EQ(LabelOf("lblLocation")->Left(), Named("tagStatus")->Right() + 120);
        EXPECT_EQ(LabelOf("lblLocation")->Top(), Find<StatusTag>(*m_view, "tagStatus")->TextTop(300));
        EXPECT_EQ(Named("grpOpenLink")->Left(), LabelOf("lblDescription")->Right() + 120);
        EXPECT_EQ(Tabs()->Top(), Named("spacer")->Bottom());
        EXPECT_EQ(Tabs()->Bottom(), m_view->Height());
        EXPECT_EQ(Tabs()->Right(), m_view->Width());
        EXPECT_EQ(Tracking()->pos(), QPoint(0, 0));
        EXPECT_EQ(Tracking()->size(), Tabs()->Page(1)->size());
    }
}

TEST_F(StoredItemViewTest, ALongDescriptionPushesTheLinkToTheRightButNotOffTheView) {
    Open(m_laptop);
    const float before = Named("grpOpenLink")->Left();
    const float top = Named("grpOpenLink")->Top();
    const float fullWidth = LabelOf("lblDescription")->Width();
    EXPECT_EQ(LabelOf("lblDescription")->width(), LabelOf("lblDescription")->sizeHint().width());
    Open(AddProperty("E-2", std::string(270, 'x'), shelf));
    for (const int width : {1280, 700, 1280}) {
        m_view->SetWidth(ToTwips(width));
        const Label* description = LabelOf("lblDescription");
        EXPECT_LT(description->width(), description->sizeHint().width());
        EXPECT_EQ(Named("grpOpenLink")->Left(), description->Right() + 120);
        EXPECT_EQ(Named("grpOpenLink")->Right(), Named("lnkClose")->Left() - 120) << width;
        EXPECT_EQ(Named("grpOpenLink")->Top(), top);
    }
    EXPECT_GT(Named("grpOpenLink")->Left(), before);
    Open(m_laptop);
    EXPECT_EQ(LabelOf("lblDescription")->Width(), fullWidth);
    EXPECT_EQ(Named("grpOpenLink")->Left(), before);
}

TEST_F(StoredItemViewTest, ALongIdentifierLeavesTheLinkOnTheView) {
    Open(AddProperty(std::string(300, 'x'), "Laptop computer", shelf));
    EXPECT_LE(Named("grpOpenLink")->Right(), Named("lnkClose")->Left());
    EXPECT_LT(LabelOf("lblID")->width(), LabelOf("lblID")->sizeHint().width());
    EXPECT_GT(LabelOf("lblID")->width(), 0);
}

TEST_F(StoredItemViewTest, TheRingOfTheCrossIsASquareAroundIt) {
    Open(m_laptop);
    Named("lnkClose")->setFocus();
    const auto* ring = m_window.findChild<QFocusFrame*>();
    ASSERT_NE(ring, nullptr);
    const QPoint center = Named("lnkClose")->mapTo(&m_window, Named("lnkClose")->rect().center());
    const QRect square(center - QPoint(14, 14), QSize(30, 30));
    EXPECT_EQ(ring->geometry(), square);
    const QImage picture = Grab(m_window);
    for (const QPoint& middle : {QPoint(center.x(), square.top() + 1), QPoint(center.x(), square.bottom() - 1),
                                 QPoint(square.left() + 1, center.y()), QPoint(square.right() - 1, center.y())})
        EXPECT_EQ(PixelAt(picture, middle), Theme::Get(Theme::Color::Link)) << middle.x() << ", " << middle.y();
}

TEST_F(StoredItemViewTest, TheRingOfTheFirstTabIsWhole) {
    Open(m_laptop);
    Tabs()->setFocus();
    const QRect caption = Tabs()->TabRect(0).translated(Tabs()->mapTo(&m_window, QPoint()));
    const QImage picture = Grab(m_window);
    for (const int x : {caption.left() - 3, caption.right() + 4})
        EXPECT_EQ(PixelAt(picture, QPoint(x, caption.center().y())), Theme::Get(Theme::Color::Link)) << x;
}

TEST_F(StoredItemViewTest, TheLinkOpensTheRecordInTheHost) {
    std::vector<std::string> commands;
    m_environment->runCommand = [&](const std::string& command) { commands.push_back(command); };
    Open(m_laptop);
    Click(Named("lnkOpenInTessarine"));
    EXPECT_EQ(commands,
              std::vector<std::string>{"cmd /c start tessarine://miproperty/open/" + std::to_string(m_laptop->ID())});
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(StoredItemViewTest, AFailureToOpenTheRecordIsReported) {
    m_environment->runCommand = [](const std::string&) {
        Raise(ErrorNumber::General, "Runner", "There is no handler.");
    };
    Open(m_laptop);
    Click(Named("lnkOpenInTessarine"));
    EXPECT_EQ(m_screen.TakeMessages(),
              (std::vector<RecordingScreen::Message>{
                  {"Error opening this record: There is no handler.", 16, "Error Opening Record"}}));
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Laptop computer");
}

TEST_F(StoredItemViewTest, TheLinkReportsAMissingItem) {
    Click(Named("lnkOpenInTessarine"));
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error opening this record: Cannot open this type of object in Tessarine.", 16,
                         "Error Opening Record"));
}

TEST_F(StoredItemViewTest, CloseGoesBack) {
    GetStores();
    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    GetActions().OpenStoredItem(m_laptop);
    Click(Named("lnkClose"));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
}

TEST_F(StoredItemViewTest, EscapeAndAltLeftGoBackFromEveryControl) {
    GetStores();
    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    Open(m_laptop);
    Tabs()->SetSelectedIndex(1);
    m_view->SetHeight(ToTwips(300));  // the details scroll
    QWidget* const details = Named("propertyDetails")->findChild<QScrollArea*>();
    const std::vector<QWidget*> controls = {Tabs()->Bar(), Tracking()->Rows().front(), Named("lnkOpenInTessarine"),
                                            Named("lnkClose"), details};
    for (QWidget* control : controls) {
        for (const bool withEscape : {true, false}) {
            GetActions().OpenStoredItem(m_laptop);
            if (control == details) Tabs()->SetSelectedIndex(0);
            control->setFocus();
            ASSERT_TRUE(control->hasFocus()) << control->objectName().toStdString();
            Press(withEscape ? Qt::Key_Escape : Qt::Key_Left, withEscape ? Qt::NoModifier : Qt::AltModifier);
            EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer)
                << control->objectName().toStdString() << " " << withEscape;
            EXPECT_EQ(Tabs()->SelectedIndex(), control == details ? 0 : 1);
        }
    }
}

TEST_F(StoredItemViewTest, EscapeWhileAMenuIsOpenClosesOnlyTheMenu) {
    GetStores();
    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    GetActions().OpenStoredItem(m_laptop);
    Tabs()->setFocus();
    QMenu menu(m_view);
    menu.addAction("Open");
    for (const auto modifier : {Qt::NoModifier, Qt::AltModifier}) {
        menu.popup(m_window.mapToGlobal(QPoint(50, 50)));
        Press(&menu, modifier ? Qt::Key_Left : Qt::Key_Escape, modifier);
        if (modifier == Qt::NoModifier) {
            EXPECT_FALSE(menu.isVisible());
        }
        EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
    }
}

TEST_F(StoredItemViewTest, LineBreaksInTheHeadingAreShownAsBlanks) {
    Open(AddProperty("E\n2", "Pry\nbar", m_database.AddLocation("Cold\nRoom", StorageLocationTypes::Internal)));
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Pry\nbar");
    for (const char* name : {"lblID", "lblDescription"})
        EXPECT_EQ(LabelOf(name)->height(), Theme::LineHeight(LabelOf(name)->Type())) << name;
    EXPECT_EQ(LabelOf("lblLocation")->height(), Theme::LineHeight(LabelOf("lblLocation")->Type()));
}

TEST_F(StoredItemViewTest, AnItemOpenedWhileAChainIsBuiltReplacesIt) {
    const StoredItemRef other = AddProperty("E-2", "Pry bar", aisle);
    for (int i = 0; i < 12; ++i) m_database.AddCustodyRow(StoredItemTypes::Property, m_laptop->ID(), shelf);
    Open(m_laptop);
    EXPECT_EQ(Tracking()->Rows().size(), 10u);
    Open(other);
    for (int turn = 0; turn < 4; ++turn) ServeEvents();
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "Pry bar");
    EXPECT_EQ(Tracking()->Rows().size(), 1u);
    EXPECT_EQ(LabelOf("lblLocation")->Caption(), "Property Room > Aisle 3");
}

TEST_F(StoredItemViewTest, TheViewCanBeDestroyedWhileAChainIsBuilt) {
    for (int i = 0; i < 12; ++i) m_database.AddCustodyRow(StoredItemTypes::Property, m_laptop->ID(), shelf);
    Open(m_laptop);
    delete m_view;
    ServeEvents();
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(StoredItemViewTest, TheTabsComeFirstInTheTabOrder) {
    Open(AddProperty("E-2", "Pry bar", crimeLab));
    EXPECT_EQ(TabOrder(*m_view),
              (std::vector<std::string>{"tabs", "lnkMenu", "lnkMenu", "lnkOpenInTessarine", "lnkClose"}));
    Tabs()->SetSelectedIndex(1);
    EXPECT_EQ(TabOrder(*m_view), (std::vector<std::string>{"tabs", "searchResult", "lnkMenu", "lnkMenu",
                                                           "lnkOpenInTessarine", "lnkClose"}));
}

TEST_F(StoredItemViewTest, MarkupInAnItemIsShownAsPlainText) {
    Open(AddProperty("<b>x</b>", "A & B", shelf));
    EXPECT_EQ(LabelOf("lblID")->Caption(), "<b>x</b>");
    EXPECT_EQ(LabelOf("lblDescription")->Caption(), "A & B");
}

TEST_F(StoredItemViewTest, ControlsAreNamedForReaders) {
    EXPECT_EQ(Named("lnkClose")->accessibleName(), "Close");
    EXPECT_EQ(Tracking()->accessibleName(), "Chain of Custody");
}

}  // namespace
}  // namespace quellbrook::testing
