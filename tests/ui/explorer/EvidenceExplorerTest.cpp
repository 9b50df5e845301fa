#include "ui/explorer/EvidenceExplorer.h"

#include "base/CommandRunner.h"
#include "core/Actions.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/ListView.h"
#include "ui/controls/Strings.h"
#include "ui/controls/Theme.h"
#include "ui/explorer/ActionMenu.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationTreeWidget.h"
#include "ui/explorer/LocationView.h"

#include <QAction>
#include <QLineEdit>

#include <gmock/gmock.h>

#include <memory>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

class EvidenceExplorerTest : public ExplorerTest {
protected:
    EvidenceExplorerTest() {
        m_shelf = AddLocation("Shelf A");
        m_bin = AddLocation("Bin 1", m_shelf);
        m_first = AddItem("E-1", m_shelf);
        m_second = AddItem("E-2", m_shelf);
        m_empty = AddLocation("Empty Shelf");
    }
    ~EvidenceExplorerTest() override { SetCommandRunner(nullptr); }

    void Make() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(1280, 760);
        m_explorer = new EvidenceExplorer(m_window.get());
        m_explorer->setGeometry(0, 0, 1280, 760);
        m_tree = m_explorer->LocationPane();
        m_widget = Find<LocationTreeWidget>(*m_tree, "TreeView");
        m_view = m_explorer->ItemPane();
        m_list = m_view->List();
    }

    void Show() {
        Make();
        ShowActive(*m_window);
    }
    void Show(int32_t location) {
        Show();
        m_explorer->SetSelectedLocation(LocationOf(location));
        m_list->Tree()->setFocus();
    }

    std::string Title() const { return ToUtf8(Find<Label>(*m_explorer, "lblTitle")->Caption()); }
    std::string Subtitle() const { return ToUtf8(Find<Label>(*m_explorer, "lblSubtitle")->Caption()); }

    QPoint NodePlace(const QString& name) const {
        const auto found = m_widget->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        for (QTreeWidgetItem* parent = found.at(0)->parent(); parent; parent = parent->parent())
            parent->setExpanded(true);
        return m_widget->visualItemRect(found.at(0)).center();
    }
    void ClickNode(const QString& name) { Click(m_widget->viewport(), NodePlace(name)); }

    QPoint RowPlace(const QString& name) const {
        for (int row = 0; row < m_list->RowCount(); ++row)
            if (m_list->CellText(row, 1) == name)
                return m_list->Tree()->visualItemRect(m_list->Tree()->topLevelItem(row)).center();
        ADD_FAILURE() << "No row " << name.toStdString();
        return {};
    }
    void ClickRow(const QString& name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(m_list->Tree()->viewport(), Qt::LeftButton, modifiers, RowPlace(name));
    }

    // The visible entries of the menu that a right click opens; the look runs while it is open.
    std::vector<std::string> MenuAt(QWidget* viewport, const QPoint& at, std::function<void(QMenu&)> look = nullptr) {
        std::vector<std::string> texts;
        WhileMenuOpen([&](QMenu& menu) {
            for (const QAction* action : menu.actions())
                if (action->isVisible()) texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
            if (look) look(menu);
        });
        RightClick(viewport, at);
        return texts;
    }
    std::vector<std::string> RowMenu(const QString& name, std::function<void(QMenu&)> look = nullptr) {
        return MenuAt(m_list->Tree()->viewport(), RowPlace(name), std::move(look));
    }
    std::vector<std::string> BlankMenu(std::function<void(QMenu&)> look = nullptr) {
        return MenuAt(m_list->Tree()->viewport(), {300, 500}, std::move(look));
    }
    std::vector<std::string> NodeMenu(const QString& name, std::function<void(QMenu&)> look = nullptr) {
        return MenuAt(m_widget->viewport(), NodePlace(name), std::move(look));
    }
    std::function<void(QMenu&)> Choose(MenuEntry entry) {
        return [this, entry](QMenu&) { m_explorer->Menu()->Entry(entry)->trigger(); };
    }

    std::vector<std::string> BatchIds() const {
        std::vector<std::string> ids;
        const auto items = GetStores().Cart->GetItems();
        for (int32_t i = 0; i < items->Count(); ++i) ids.push_back(items->ItemAt(i)->DisplayID());
        return ids;
    }

    std::vector<std::string> SelectedObjects() const {
        std::vector<std::string> names;
        const auto selected = m_explorer->GetSelectedObjects();
        for (int32_t i = 0; i < selected->Count(); ++i) {
            if (const auto location = std::dynamic_pointer_cast<StorageLocation>(selected->At(i)))
                names.push_back(location->Name());
            else
                names.push_back(std::dynamic_pointer_cast<StoredItem>(selected->At(i))->DisplayID());
        }
        return names;
    }

    int32_t m_shelf, m_bin, m_first, m_second, m_empty;
    std::unique_ptr<QWidget> m_window;
    EvidenceExplorer* m_explorer = nullptr;
    LocationTree* m_tree = nullptr;
    LocationTreeWidget* m_widget = nullptr;
    LocationView* m_view = nullptr;
    ListView* m_list = nullptr;
};

TEST_F(EvidenceExplorerTest, IsCoveredAndWaitsUntilItsFirstDisplay) {
    Make();
    auto* cover = Find<GroupBox>(*m_explorer, "grpLoading");
    EXPECT_TRUE(cover->IsShown());
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    std::vector<QString> captions;
    for (const auto* label : Find<GroupBox>(*m_explorer, "grpMessage")->findChildren<Label*>())
        captions.push_back(label->Caption());
    EXPECT_THAT(captions,
                ElementsAre(QString("Starting up..."), QString("Please wait. This may take a few moments. ")));
    ShowActive(*m_window);
    EXPECT_FALSE(cover->IsShown());
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerTest, BeginsWithTheFirstRoot) {
    Show();
    EXPECT_EQ(Title(), "Sign-In Locations");
    EXPECT_EQ(Subtitle(), "2 storage units, 0 items");
    EXPECT_EQ(m_list->RowCount(), 2);
    EXPECT_EQ(m_explorer->SelectedLocation()->LocationType(), StorageLocationTypes::Internal);
}

TEST_F(EvidenceExplorerTest, ANodeShowsItsLocation) {
    Show();
    ClickNode("Shelf A");
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
    EXPECT_EQ(m_list->RowCount(), 3);
}

TEST_F(EvidenceExplorerTest, WhenShownAgainTheListAndItsCountsAreThoseOfNow) {
    Show(m_shelf);
    m_explorer->hide();
    m_database.AddCustodyRow(StoredItemTypes::Property, m_first, m_empty);
    m_explorer->show();
    EXPECT_EQ(m_list->RowCount(), 2);
    EXPECT_EQ(Subtitle(), "1 storage unit, 1 item");
}

TEST_F(EvidenceExplorerTest, OneOfEachHasTheSingularOfBothWords) {
    const int32_t room = AddLocation("Room");
    AddLocation("Locker", room);
    AddItem("E-9", room);
    Show(room);
    EXPECT_EQ(Subtitle(), "1 storage unit, 1 item");
}

TEST_F(EvidenceExplorerTest, DisabledUnitsCountButAreNotListed) {
    const int32_t room = AddLocation("Room");
    AddLocation("Closed Locker", room, false);
    AddLocation("Locker", room);
    Show(room);
    EXPECT_EQ(Subtitle(), "2 storage units, 0 items");
    EXPECT_EQ(m_list->RowCount(), 1);
}

TEST_F(EvidenceExplorerTest, ThousandsAreSeparated) {
    const int32_t room = AddLocation("Room");
    m_database.Execute("BEGIN");
    for (int i = 0; i < 1204; ++i) AddItem("N-" + std::to_string(i), room);
    m_database.Execute("COMMIT");
    Show(room);
    EXPECT_EQ(Subtitle(), "0 storage units, 1,204 items");
}

TEST_F(EvidenceExplorerTest, NothingSelectedSaysSo) {
    Show(m_shelf);
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_EQ(Title(), "Evidence Locations");
    EXPECT_EQ(Subtitle(), "Select a location on the left.");
    EXPECT_EQ(m_view->Location(), nullptr);
    EXPECT_TRUE(m_view->IsShown());
    EXPECT_EQ(m_list->RowCount(), 0);
    EXPECT_EQ(m_explorer->SelectedLocation(), nullptr);
}

TEST_F(EvidenceExplorerTest, ComingBackOnShowReadsTheContentsAgain) {
    Show(m_shelf);
    AddItem("E-9", m_shelf);
    m_explorer->hide();
    EXPECT_EQ(m_list->RowCount(), 3);
    m_explorer->show();
    EXPECT_EQ(m_list->RowCount(), 4);
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerTest, ASubLocationIsEnteredByDoubleClick) {
    Show(m_shelf);
    DoubleClick(m_list->Tree()->viewport(), RowPlace("Bin 1"));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
    EXPECT_EQ(m_view->Location()->ID(), m_bin);
    EXPECT_EQ(Title(), "Bin 1");
    EXPECT_EQ(m_widget->currentItem()->text(0), "Bin 1");
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(EvidenceExplorerTest, AnItemOpensInItsView) {
    Show(m_shelf);
    DoubleClick(m_list->Tree()->viewport(), RowPlace("E-2"));
    const auto stores = GetStores();
    EXPECT_EQ(stores.View->ViewName(), ViewNames::ItemView);
    const auto item = ToObject<StoredItem>(stores.View->ViewParameters()->Value("Item"));
    EXPECT_EQ(item->ID(), m_second);
}

TEST_F(EvidenceExplorerTest, OpeningAnythingElseIsIgnored) {
    Show(m_shelf);
    m_explorer->OpenItemRequest(std::make_shared<ObjectVector>());
    m_explorer->OpenItemRequest(nullptr);
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
    EXPECT_EQ(GetStores().View->ViewName(), "");
}

TEST_F(EvidenceExplorerTest, AFailedDisplayIsReportedWithItsDetails) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    ASSERT_NE(LocationOf(m_shelf), nullptr);
    engine->FailAtStatement(1, Error(4711, "Engine.Query", "The server is gone."));
    m_explorer->SetSelectedLocation(shelf);
    const auto messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_THAT(messages[0].prompt,
                MatchesRegex("An unexpected error occurred attempting to display the items in this location. Some "
                             "items may not be displayed. Please contact Tessarine Support for assistance.\r\n\r\n"
                             "\\[DisplayCurrentLocation \\(line [0-9]+\\)\\] ~ Engine.Query \\(4711\\) The server is "
                             "gone\\."));
    EXPECT_EQ(messages[0].buttons, 16);
    EXPECT_EQ(messages[0].title, "Unexpected Error");
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);

    m_explorer->SetSelectedLocation(LocationOf(m_empty));
    EXPECT_EQ(Title(), "Empty Shelf");
    EXPECT_EQ(Subtitle(), "0 storage units, 0 items");
}

TEST_F(EvidenceExplorerTest, AFailureOfTheContentsIsReportedWithTheirSentence) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    ASSERT_NE(LocationOf(m_shelf), nullptr);
    engine->FailAtStatement(2, Error(4711, "Engine.Query", "The server is gone."));
    m_explorer->SetSelectedLocation(shelf);
    const auto messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_THAT(messages[0].prompt, HasSubstr("Error displaying items in this location: The server is gone."));
    EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
}

TEST_F(EvidenceExplorerTest, TheSelectionIsThatOfThePaneWithTheFocus) {
    Show(m_shelf);
    ClickRow("Bin 1");
    ClickRow("E-2", Qt::ControlModifier);
    EXPECT_THAT(SelectedObjects(), ElementsAre("Bin 1", "E-2"));
    m_widget->setFocus();
    EXPECT_THAT(SelectedObjects(), ElementsAre("Shelf A"));
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_THAT(SelectedObjects(), IsEmpty());
}

TEST_F(EvidenceExplorerTest, WithTheFocusInNoPaneTheLocationOnShowIsSelected) {
    Show(m_shelf);
    auto* other = new QLineEdit(m_window.get());
    other->show();
    other->setFocus();
    EXPECT_THAT(SelectedObjects(), ElementsAre("Shelf A"));
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_THAT(SelectedObjects(), IsEmpty());
}

TEST_F(EvidenceExplorerTest, WithTheFocusInAnotherChildNothingIsSelected) {
    Show(m_shelf);
    auto* other = new QLineEdit(m_explorer);
    other->show();
    other->setFocus();
    EXPECT_THAT(SelectedObjects(), IsEmpty());
}

TEST_F(EvidenceExplorerTest, TheSelectionHoldsWhileTheWindowIsInactive) {
    Show(m_shelf);
    ClickRow("E-1");
    QWidget elsewhere;
    ShowActive(elsewhere);
    EXPECT_THAT(SelectedObjects(), ElementsAre("E-1"));
}

TEST_F(EvidenceExplorerTest, AnItemsMenuOffersWhatCanBeDoneWithIt) {
    Show(m_shelf);
    const auto entries = RowMenu("E-1", [this](QMenu& menu) {
        EXPECT_EQ(&menu, m_explorer->Menu());
        EXPECT_EQ(menu.defaultAction(), m_explorer->Menu()->Entry(MenuEntry::Open));
        EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    });
    EXPECT_THAT(entries,
                ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-", "Sign out  this item",
                            "Move  this item"));
}

TEST_F(EvidenceExplorerTest, AMenuOfSeveralItemsCountsThemAndHasNoDefaultEntry) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    const auto entries = RowMenu("E-1", [](QMenu& menu) {
        EXPECT_EQ(menu.defaultAction(), nullptr);
        EXPECT_FALSE(menu.actions().at(0)->isEnabled());
    });
    EXPECT_THAT(entries,
                ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode labels (2 items)", "-",
                            "Sign out  2 items", "Move  2 items"));
}

TEST_F(EvidenceExplorerTest, AMemberOfTheBatchCanOnlyBeUnchecked) {
    Show(m_shelf);
    ClickRow("E-1");
    GetActions().BeginTransaction(TransactionType::SignOut, m_explorer->GetSelectedObjects());
    EXPECT_THAT(RowMenu("E-1"), ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-",
                                        "Uncheck this item"));
    EXPECT_THAT(RowMenu("E-2"), ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-",
                                        "Sign out  this item"));
}

TEST_F(EvidenceExplorerTest, ABlankSpotOffersToSelectAll) {
    Show(m_shelf);
    ClickRow("E-1");
    EXPECT_THAT(BlankMenu(Choose(MenuEntry::SelectAll)), ElementsAre("-", "Select All"));
    EXPECT_THAT(SelectedObjects(), ElementsAre("Bin 1", "E-1", "E-2"));
}

TEST_F(EvidenceExplorerTest, AUserWithoutRightsSeesThatNothingCanBeDone) {
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    Show(m_shelf);
    EXPECT_THAT(RowMenu("E-1"),
                ElementsAre("Open", "Open in Tessarine...", "-", "(No Available Actions)"));
}

TEST_F(EvidenceExplorerTest, ANodesMenuMeansTheNodeAndTakesTheFocusToTheTree) {
    Show(m_shelf);
    ClickRow("E-1");
    const auto entries = NodeMenu("Empty Shelf", [this](QMenu&) {
        EXPECT_THAT(SelectedObjects(), ElementsAre("Empty Shelf"));
        EXPECT_TRUE(m_widget->hasFocus() || m_window->focusWidget() == m_widget);
    });
    EXPECT_THAT(entries, ElementsAre("Open", "-", "Print barcode label"));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_THAT(SelectedObjects(), ElementsAre("Shelf A"));
}

TEST_F(EvidenceExplorerTest, ARootsMenuOpensIt) {
    Show(m_shelf);
    EXPECT_THAT(NodeMenu("Sign-Out Locations", Choose(MenuEntry::Open)), ElementsAre("Open"));
    EXPECT_EQ(Title(), "Sign-Out Locations");
}

TEST_F(EvidenceExplorerTest, OpenInANodesMenuEntersTheNode) {
    Show(m_shelf);
    NodeMenu("Bin 1", Choose(MenuEntry::Open));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
    EXPECT_EQ(Title(), "Bin 1");
    EXPECT_EQ(m_widget->currentItem()->text(0), "Bin 1");
}

TEST_F(EvidenceExplorerTest, OpenInARowsMenuOpensTheItem) {
    Show(m_shelf);
    RowMenu("E-1", Choose(MenuEntry::Open));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
}

TEST_F(EvidenceExplorerTest, TransferCommandsBeginABatchOfTheirType) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    RowMenu("E-2", Choose(MenuEntry::CheckOut));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 1);
    EXPECT_THAT(BatchIds(), ElementsAre("E-1", "E-2"));
    GetActions().CancelTransaction();

    RowMenu("E-1", Choose(MenuEntry::Move));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 3);
    EXPECT_THAT(BatchIds(), ElementsAre("E-1", "E-2"));
}

TEST_F(EvidenceExplorerTest, ASignedOutItemCanBeSignedIn) {
    const int32_t court = m_database.AddLocation("Court", StorageLocationTypes::External);
    AddItem("E-9", court);
    Show(court);
    EXPECT_THAT(RowMenu("E-9", Choose(MenuEntry::CheckIn)),
                ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-", "Sign in  this item"));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 2);
    EXPECT_THAT(BatchIds(), ElementsAre("E-9"));
}

TEST_F(EvidenceExplorerTest, UncheckTakesTheSelectedOutAndLeavesTheBatchOpen) {
    Show(m_shelf);
    ClickRow("E-1");
    RowMenu("E-1", Choose(MenuEntry::CheckOut));
    RowMenu("E-1", Choose(MenuEntry::RemoveFromBatch));
    EXPECT_THAT(BatchIds(), IsEmpty());
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 1);
    EXPECT_EQ(m_list->RowIcon(1), "tag");
}

TEST_F(EvidenceExplorerTest, OpenInTessarineHandsTheItemToTheHost) {
    std::vector<std::string> commands;
    SetCommandRunner([&](const std::string& command) { commands.push_back(command); });
    Show(m_shelf);
    RowMenu("E-2", Choose(MenuEntry::OpenInTessarine));
    EXPECT_THAT(commands, ElementsAre("cmd /c start tessarine://miproperty/open/" + std::to_string(m_second)));
}

TEST_F(EvidenceExplorerTest, AFailingCommandIsReported) {
    SetCommandRunner(nullptr);
    Show(m_shelf);
    RowMenu("E-2", Choose(MenuEntry::OpenInTessarine));
    EXPECT_EQ(TakeUnexpected().size(), 1u);
}

TEST_F(EvidenceExplorerTest, CommandsOnSeveralObjectsOpenNone) {
    Show(m_shelf);
    m_view->SelectAll();
    m_explorer->Menu()->Entry(MenuEntry::Open)->trigger();
    m_explorer->Menu()->Entry(MenuEntry::OpenInTessarine)->trigger();
    EXPECT_EQ(GetStores().View->ViewName(), "");
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerTest, AMarkAppearsWhenTheMenuBeginsABatch) {
    Show(m_shelf);
    RowMenu("E-1", Choose(MenuEntry::CheckOut));
    EXPECT_EQ(m_list->RowIcon(1), "marked");
    EXPECT_EQ(m_list->RowIcon(2), "tag");
}

TEST_F(EvidenceExplorerTest, ControlsStandWhereTheRulesPutThem) {
    Show(m_shelf);
    for (const QSize size : {QSize(1280, 760), QSize(1920, 1040)}) {
        m_window->resize(size);
        m_explorer->resize(size);
        const int width = size.width(), height = size.height();
        const auto rectOf = [this](const char* name) {
            const QWidget* control = Find(*m_explorer, name);
            return QRect(control->mapTo(m_explorer, QPoint(0, 0)), control->size());
        };
        EXPECT_EQ(rectOf("LocationPane"), QRect(16, 8, 280, height - 8));
        EXPECT_EQ(rectOf("picLeftPanel"), QRect(0, 0, 296, height + 16));
        EXPECT_EQ(rectOf("lnDivider"), QRect(296, 8, 1, height - 8));
        EXPECT_EQ(rectOf("picInfobar"), QRect(312, 0, width - 312, 72));
        EXPECT_EQ(rectOf("lnSeparator"), QRect(312, 71, width - 312 - 8, 1));
        EXPECT_EQ(rectOf("ItemPane"), QRect(312, 72, width - 312, height - 72));
        EXPECT_EQ(rectOf("grpLoading"), QRect(QPoint(0, 0), size));
        const QRect message = rectOf("grpMessage");
        EXPECT_NEAR(message.center().x(), width / 2.0, 1.0);
        EXPECT_NEAR(message.center().y(), height / 2.0, 1.0);
    }
}

TEST_F(EvidenceExplorerTest, ALongTitleEndsWithinTheHeading) {
    const int32_t room = AddLocation(std::string(300, 'W'));
    Show(room);
    const auto* title = Find<Label>(*m_explorer, "lblTitle");
    EXPECT_EQ(title->width(), 1280 - 312 - 8);
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_LT(title->width(), 200);
}

TEST_F(EvidenceExplorerTest, TheLeftColumnHasTheColorOfTheTree) {
    Show(m_shelf);
    EXPECT_EQ(m_tree->BackColor(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(Find<GroupBox>(*m_explorer, "picLeftPanel")->BackColor(), m_tree->BackColor());
}

TEST_F(EvidenceExplorerTest, FollowsAChangeToTheDarkTheme) {
    Show(m_shelf);
    const QColor panel = m_tree->BackColor();
    Theme::Install(true);
    ServeEvents();
    EXPECT_NE(m_tree->BackColor(), panel);
    EXPECT_EQ(m_tree->BackColor(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(m_widget->topLevelItem(0)->background(0).color(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(m_widget->topLevelItem(0)->foreground(0).color(), Theme::Get(Theme::Color::Text));
    EXPECT_EQ(PixelAt(Grab(*m_list->Tree()->viewport()), {300, 500}), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(m_widget->palette().color(QPalette::Text), Theme::Get(Theme::Color::Text));
    Theme::Install(false);
    ServeEvents();
    EXPECT_EQ(m_tree->BackColor(), panel);
}

TEST_F(EvidenceExplorerTest, TheTabKeyGoesFromTheTreeToTheContents) {
    Show(m_shelf);
    EXPECT_THAT(TabOrder(*m_window), ElementsAre("TreeView", "ItemPane"));
}

TEST_F(EvidenceExplorerTest, BrowsesAndBeginsATransferByKeyboardAlone) {
    Show();
    m_widget->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_EQ(Title(), "Empty Shelf");
    Press(Qt::Key_Down);
    EXPECT_EQ(Title(), "Shelf A");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Down);
    EXPECT_THAT(SelectedObjects(), ElementsAre("Bin 1"));
    Press(Qt::Key_End);
    EXPECT_THAT(SelectedObjects(), ElementsAre("E-2"));
    WhileMenuOpen([this](QMenu&) { m_explorer->Menu()->Entry(MenuEntry::CheckOut)->trigger(); });
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
    QCoreApplication::sendEvent(QApplication::focusWidget(), &key);
    EXPECT_THAT(BatchIds(), ElementsAre("E-2"));
    Press(m_window->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
}

TEST_F(EvidenceExplorerTest, InADesignerItReadsNothing) {
    SetInsideDesigner(true);
    Make();
    m_window->show();
    EXPECT_EQ(m_widget->topLevelItemCount(), 0);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_FALSE(Find<GroupBox>(*m_explorer, "grpLoading")->IsShown());
}

TEST_F(EvidenceExplorerTest, ItsTypeIsNamedAsItIsCalled) {
    Make();
    EXPECT_EQ(m_explorer->TypeName(), "EvidenceExplorer");
    EXPECT_EQ(m_tree->TypeName(), "LocationTree");
    EXPECT_EQ(m_view->TypeName(), "LocationView");
}

}  // namespace
}  // namespace quellbrook::testing
