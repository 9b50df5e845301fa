#include "ui/explorer/LocationTree.h"

#include "core/ActionTypes.h"
#include "host/HostLocationData.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/explorer/LocationTreeWidget.h"
#include "ui/style/Theme.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLineEdit>

#include <gmock/gmock.h>

#include <memory>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class LocationTreeTest : public ExplorerTest {
protected:
    LocationTreeTest() {
        m_room = AddLocation("Property Room");
        m_aisle = AddLocation("Aisle 1", m_room);
        m_shelf = AddLocation("Shelf A", m_aisle);
        m_vault = AddLocation("Vault");
        m_court = m_database.AddLocation("Court", StorageLocationTypes::External);
    }

    // The tree in a window beside a field that can take the focus.
    void Make() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 600);
        m_other = new QLineEdit(m_window.get());
        m_other->setGeometry(290, 0, 100, 30);
        m_tree = new LocationTree(m_window.get());
        m_tree->setGeometry(0, 0, 280, 600);
        m_widget = Find<LocationTreeWidget>(*m_tree, "TreeView");
        m_tree->LocationSelected.connect([this](const StorageLocationRef& location) {
            m_selected.push_back(location ? location->Name() : "nothing");
        });
        m_tree->GetContextMenu.connect([this](QMenu*& menu, QAction*& defaultItem) {
            EXPECT_EQ(menu, nullptr);
            EXPECT_EQ(defaultItem, nullptr);
            const StorageLocationRef meant = m_tree->DropHighlightLocation();
            m_menusFor.push_back(meant ? meant->Name() : "nothing");
            menu = m_menu;
            defaultItem = m_defaultItem;
        });
    }

    void Show() {
        Make();
        ShowActive(*m_window);
        m_tree->RaiseShowError();
    }

    QTreeWidgetItem* Node(const QString& name) const {
        const QList<QTreeWidgetItem*> found = m_widget->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.first();
    }

    QPoint PlaceOf(const QString& name) const {
        QTreeWidgetItem* node = Node(name);
        for (QTreeWidgetItem* parent = node->parent(); parent; parent = parent->parent()) parent->setExpanded(true);
        return m_widget->visualItemRect(node).center();
    }
    void ClickNode(const QString& name) { Click(m_widget->viewport(), PlaceOf(name)); }
    void RightClickNode(const QString& name) { RightClick(m_widget->viewport(), PlaceOf(name)); }
    std::string CurrentNode() const {
        return m_widget->currentItem() ? m_widget->currentItem()->text(0).toStdString() : "";
    }
    std::vector<std::string> TakeSelected() { return std::exchange(m_selected, {}); }

    std::vector<std::string> TopNames() const {
        std::vector<std::string> names;
        for (int i = 0; i < m_widget->topLevelItemCount(); ++i)
            names.push_back(m_widget->topLevelItem(i)->text(0).toStdString());
        return names;
    }

    int32_t m_room, m_aisle, m_shelf, m_vault, m_court;
    std::unique_ptr<QWidget> m_window;
    LocationTree* m_tree = nullptr;
    LocationTreeWidget* m_widget = nullptr;
    QLineEdit* m_other = nullptr;
    QMenu* m_menu = nullptr;
    QAction* m_defaultItem = nullptr;
    std::vector<std::string> m_selected;
    std::vector<std::string> m_menusFor;
};

TEST_F(LocationTreeTest, EmptyRootsOfTheUsualCategoriesStandInTheirOrder) {
    Show();
    EXPECT_THAT(TopNames(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition"));
    const QTreeWidgetItem* empty = Node("Final Disposition");
    EXPECT_EQ(empty->childCount(), 0);
    EXPECT_TRUE(empty->font(0).bold());
}

TEST_F(LocationTreeTest, AnEmptyInternalRootIsABoldNodeWithoutAnExpander) {
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_shelf});
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_aisle});
    m_database.Execute("DELETE FROM StorageLocation WHERE Type = 2");
    Show();
    EXPECT_THAT(TopNames(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition"));
    EXPECT_EQ(Node("Sign-In Locations")->childCount(), 0);
    EXPECT_TRUE(Node("Sign-In Locations")->font(0).bold());
    EXPECT_FALSE(m_widget->model()->hasChildren(m_widget->model()->index(0, 0)));
}

TEST_F(LocationTreeTest, OtherAndUncategorizedRootsAreShownWhileTheyHoldSomething) {
    m_database.AddLocation("Pending Review", StorageLocationTypes::Other);
    m_database.AddLocation("Old Shelf", StorageLocationTypes::Unassigned);
    Show();
    EXPECT_THAT(TopNames(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition",
                                        "Other Locations", "Uncategorized Locations"));
}

TEST_F(LocationTreeTest, ADisabledLocationIsLeftOutWithAllBelowIt) {
    const int32_t closed = AddLocation("Closed Wing", 0, false);
    AddLocation("Closed Shelf", closed);
    Show();
    EXPECT_EQ(Node("Closed Wing"), nullptr);
    EXPECT_EQ(Node("Closed Shelf"), nullptr);
    EXPECT_NE(Node("Shelf A"), nullptr);
}

TEST_F(LocationTreeTest, ARootWithOnlyDisabledLocationsIsShown) {
    m_database.AddLocation("Closed", StorageLocationTypes::Other, 0, false);
    Show();
    ASSERT_NE(Node("Other Locations"), nullptr);
    EXPECT_EQ(Node("Other Locations")->childCount(), 0);
}

TEST_F(LocationTreeTest, NodesHaveKeysIconsAndPaths) {
    m_database.AddLocation("Pending Review", StorageLocationTypes::Other);
    m_database.AddLocation("Old Shelf", StorageLocationTypes::Unassigned);
    Show();
    const auto key = [this](const char* name) { return Node(name)->data(0, LocationTreeWidget::KeyRole).toString(); };
    const auto icon = [this](const char* name) { return Node(name)->data(0, LocationTreeWidget::IconRole).toString(); };
    EXPECT_EQ(key("Sign-In Locations"), "R2");
    EXPECT_EQ(key("Sign-Out Locations"), "R4");
    EXPECT_EQ(key("Final Disposition"), "R8");
    EXPECT_EQ(key("Other Locations"), "R16");
    EXPECT_EQ(key("Uncategorized Locations"), "R1");
    EXPECT_EQ(key("Shelf A"), "L" + QString::number(m_shelf));
    EXPECT_EQ(icon("Sign-In Locations"), "sign_in");
    EXPECT_EQ(icon("Sign-Out Locations"), "sign_out");
    EXPECT_EQ(icon("Final Disposition"), "dispose");
    EXPECT_EQ(icon("Other Locations"), "other");
    EXPECT_EQ(icon("Uncategorized Locations"), "uncategorized");
    EXPECT_EQ(icon("Shelf A"), "location");
    EXPECT_EQ(Node("Shelf A")->data(0, Qt::AccessibleDescriptionRole).toString(),
              "Sign-In Locations > Property Room > Aisle 1 > Shelf A");
}

TEST_F(LocationTreeTest, OnlyRootsAreExpandedAtLoad) {
    Show();
    EXPECT_TRUE(Node("Sign-In Locations")->isExpanded());
    EXPECT_FALSE(Node("Property Room")->isExpanded());
    EXPECT_FALSE(Node("Property Room")->font(0).bold());
}

TEST_F(LocationTreeTest, RowsHaveTheirHeightAndIndent) {
    Show();
    EXPECT_EQ(m_widget->visualItemRect(Node("Sign-In Locations")).height(), 32);
    EXPECT_EQ(m_widget->visualItemRect(Node("Property Room")).height(), 32);
    EXPECT_EQ(m_widget->visualItemRect(Node("Property Room")).left(), 36);
}

TEST_F(LocationTreeTest, LoadsWhenFirstShownAndSelectsTheStoresLocation) {
    Make();
    EXPECT_EQ(m_widget->topLevelItemCount(), 0);
    ShowActive(*m_window);
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
    EXPECT_THAT(TakeSelected(), ElementsAre("Sign-In Locations"));
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);

    AddLocation("New Shelf");
    GetStorageLocationStatic().Refresh();
    m_tree->hide();
    m_tree->show();
    EXPECT_EQ(Node("New Shelf"), nullptr);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, AClickSelectsAndASecondOneRaisesNothing) {
    Show();
    TakeSelected();
    ClickNode("Shelf A");
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_shelf);
    ClickNode("Shelf A");
    EXPECT_THAT(TakeSelected(), IsEmpty());
    ClickNode("Final Disposition");
    EXPECT_THAT(TakeSelected(), ElementsAre("Final Disposition"));
    EXPECT_TRUE(m_tree->SelectedLocation()->IsRoot());
    EXPECT_EQ(m_tree->SelectedLocation()->LocationType(), StorageLocationTypes::DisposalLocation);
}

TEST_F(LocationTreeTest, TheExpanderSelectsNothing) {
    Show();
    TakeSelected();
    const QRect node = m_widget->visualItemRect(Node("Property Room"));
    Click(m_widget->viewport(), QPoint(node.left() - 9, node.center().y()));
    EXPECT_TRUE(Node("Property Room")->isExpanded());
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
}

TEST_F(LocationTreeTest, CollapsingAboveTheSelectedNodeKeepsItCollapsed) {
    Show();
    ClickNode("Shelf A");
    const QRect node = m_widget->visualItemRect(Node("Property Room"));
    Click(m_widget->viewport(), QPoint(node.left() - 9, node.center().y()));
    EXPECT_FALSE(Node("Property Room")->isExpanded());
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_shelf);
}

TEST_F(LocationTreeTest, AReleaseBesideEveryNodeLeavesTheSelection) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    QWidget* viewport = m_widget->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, PlaceOf("Final Disposition"));
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(100, 590));
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, SettingTheSelectionShowsItsNodeAndRaisesOnce) {
    Show();
    TakeSelected();
    m_tree->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_EQ(CurrentNode(), "Shelf A");
    EXPECT_TRUE(Node("Aisle 1")->isExpanded());
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
    m_tree->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, SettingNothingClearsTheSelectionAndRaisesNothing) {
    Show();
    TakeSelected();
    m_tree->SetSelectedLocation(nullptr);
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    EXPECT_EQ(m_widget->currentItem(), nullptr);
    EXPECT_TRUE(m_widget->selectedItems().isEmpty());
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, ALocationWithoutANodeIsSelectedAllTheSame) {
    const int32_t closed = AddLocation("Closed Wing", 0, false);
    Show();
    TakeSelected();
    m_tree->SetSelectedLocation(LocationOf(closed));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), closed);
    EXPECT_THAT(TakeSelected(), ElementsAre("Closed Wing"));
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
}

TEST_F(LocationTreeTest, AClickOnANodeWhoseRowHasGoneSelectsNothing) {
    Show();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_vault});
    GetStorageLocationStatic().Refresh();
    TakeSelected();
    ClickNode("Vault");
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(m_widget->currentItem(), nullptr);
}

TEST_F(LocationTreeTest, RefreshRaisesOnceAlsoWhenNothingHasChanged) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
    EXPECT_EQ(CurrentNode(), "Shelf A");
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
}

TEST_F(LocationTreeTest, RefreshReadsNewAndRenamedLocations) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    AddLocation("New Shelf");
    m_database.Execute("UPDATE StorageLocation SET Name = 'Shelf One' WHERE IdNo = ?", {m_shelf});
    m_tree->Refresh();
    EXPECT_NE(Node("New Shelf"), nullptr);
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf One"));
    EXPECT_EQ(CurrentNode(), "Shelf One");
}

TEST_F(LocationTreeTest, RefreshAfterADeletionSelectsTheParent) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_shelf});
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("Aisle 1"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_aisle);
    EXPECT_EQ(CurrentNode(), "Aisle 1");
}

TEST_F(LocationTreeTest, RefreshAfterTheParentHasGoneTooSelectsNothing) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_shelf});
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_aisle});
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("nothing"));
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    EXPECT_EQ(m_widget->currentItem(), nullptr);
}

TEST_F(LocationTreeTest, RefreshKeepsTheFocusInTheTree) {
    Show();
    ClickNode("Vault");
    ASSERT_TRUE(m_widget->hasFocus());
    m_tree->Refresh();
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(LocationTreeTest, AChangeOfTheStoreRefreshesAndSelectsItsLocation) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    const int32_t created = AddLocation("New Shelf", m_room);
    GetStorageLocationStatic().Refresh();
    GetDispatcher()->Dispatch({ActionTypes::LOCATION_CREATE_SUCCESS, LocationOf(created)});
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault", "New Shelf"));
    EXPECT_EQ(CurrentNode(), "New Shelf");
}

TEST_F(LocationTreeTest, AFailingOwnerDoesNotFailTheDispatch) {
    Show();
    const std::string failure = "The owner has failed.";
    m_tree->LocationSelected.connect(
        [failure](const StorageLocationRef&) { Raise(ErrorNumber::General, "Owner.Display", failure); });
    GetDispatcher()->Dispatch({ActionTypes::LOCATION_CREATE_SUCCESS, LocationOf(m_vault)});
    EXPECT_THAT(TakeUnexpected(), ElementsAre(failure));
}

TEST_F(LocationTreeTest, ARightClickAsksForAMenuAndLeavesTheSelection) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    RightClickNode("Court");
    EXPECT_THAT(m_menusFor, ElementsAre("Court"));
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
    EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
}

TEST_F(LocationTreeTest, ARightClickOnARootMeansTheRoot) {
    Show();
    RightClickNode("Sign-Out Locations");
    EXPECT_THAT(m_menusFor, ElementsAre("Sign-Out Locations"));
}

TEST_F(LocationTreeTest, ARightClickOnEmptySpaceAsksForNoMenu) {
    Show();
    RightClick(m_widget->viewport(), QPoint(100, 590));
    EXPECT_THAT(m_menusFor, IsEmpty());
}

TEST_F(LocationTreeTest, ARightClickOnANodeWhoseRowHasGoneAsksForNoMenu) {
    Show();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_vault});
    GetStorageLocationStatic().Refresh();
    RightClickNode("Vault");
    EXPECT_THAT(m_menusFor, IsEmpty());
    EXPECT_EQ(m_widget->DropHighlight(), nullptr);
}

TEST_F(LocationTreeTest, AReleaseBesideTheNodeAsksForNoMenuAndEndsTheHighlight) {
    Show();
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf("Vault"));
    EXPECT_EQ(m_tree->DropHighlightLocation()->ID(), m_vault);
    QTest::mouseRelease(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(100, 590));
    EXPECT_THAT(m_menusFor, IsEmpty());
    EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
}

TEST_F(LocationTreeTest, ALeftClickIsIgnoredWhileANodeIsHighlighted) {
    Show();
    TakeSelected();
    const QPoint vault = PlaceOf("Vault");
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf("Court"));
    Click(m_widget->viewport(), vault);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    QTest::mouseRelease(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf("Court"));
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
}

TEST_F(LocationTreeTest, TheOwnersMenuOpensWithItsDefaultEntry) {
    Show();
    QMenu menu;
    m_menu = &menu;
    m_defaultItem = menu.addAction("Open");
    menu.addAction("Other");
    ClickNode("Vault");
    TakeSelected();
    bool seen = false;
    WhileMenuOpen([&](QMenu& open) {
        seen = true;
        EXPECT_EQ(&open, &menu);
        EXPECT_EQ(open.defaultAction(), m_defaultItem);
        EXPECT_EQ(m_tree->DropHighlightLocation()->ID(), m_court);
        EXPECT_EQ(CurrentNode(), "Vault");
    });
    RightClickNode("Court");
    EXPECT_TRUE(seen);
    EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, ARefreshFromTheMenuEndsTheHighlight) {
    Show();
    QMenu menu;
    menu.addAction("Open");
    m_menu = &menu;
    WhileMenuOpen([&](QMenu&) {
        m_tree->Refresh();
        EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
    });
    RightClickNode("Court");
    EXPECT_EQ(m_widget->DropHighlight(), nullptr);
}

TEST_F(LocationTreeTest, ATreeDestroyedByItsMenuDoesNoHarm) {
    Show();
    QMenu menu;
    menu.addAction("Open");
    m_menu = &menu;
    const QPoint court = PlaceOf("Court");
    QPointer<LocationTree> tree(m_tree);
    WhileMenuOpen([&](QMenu&) { delete m_tree; });
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, court);
    QMouseEvent release(QEvent::MouseButtonRelease, court, m_widget->viewport()->mapToGlobal(court), Qt::RightButton,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_widget->viewport(), &release);
    EXPECT_TRUE(tree.isNull());
}

TEST_F(LocationTreeTest, TheHighlightedNodeLooksSelectedAndTheSelectedOneQuiet) {
    Show();
    ClickNode("Vault");
    const QPoint vault = PlaceOf("Vault"), court = PlaceOf("Court");
    const QColor highlight = Theme::Get(Theme::Color::Highlight);
    const auto ground = [this](const QPoint& row) { return PixelAt(Grab(*m_widget->viewport()), {270, row.y()}); };
    EXPECT_EQ(ground(vault), highlight);
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, court);
    EXPECT_EQ(ground(court), highlight);
    EXPECT_EQ(ground(vault), Theme::Get(Theme::Color::SelectedInactive));
    QTest::mouseRelease(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, court);
    EXPECT_EQ(ground(vault), highlight);
}

TEST_F(LocationTreeTest, TheSelectedRowStaysHighlightedWhileAMenuOrDialogHasTheKeys) {
    Show();
    ClickNode("Vault");
    const QPoint vault = PlaceOf("Vault");
    const auto ground = [&] { return PixelAt(Grab(*m_widget->viewport()), {270, vault.y()}); };
    QMenu menu;
    menu.addAction("Open");
    menu.popup(QPoint(0, 0));
    EXPECT_EQ(ground(), Theme::Get(Theme::Color::Highlight));
    menu.close();

    QWidget dialog;
    ShowActive(dialog);
    EXPECT_EQ(ground(), Theme::Get(Theme::Color::Highlight));
    dialog.close();
    ShowActive(*m_window);

    m_other->setFocus();
    EXPECT_EQ(ground(), Theme::Get(Theme::Color::SelectedInactive));
    m_widget->setFocus();
    EXPECT_EQ(ground(), Theme::Get(Theme::Color::Highlight));
}

TEST_F(LocationTreeTest, ArrowKeysSelectLikeAClick) {
    Show();
    ClickNode("Property Room");
    TakeSelected();
    Press(Qt::Key_Down);
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault"));
    Press(Qt::Key_Up);
    EXPECT_THAT(TakeSelected(), ElementsAre("Property Room"));
    Press(Qt::Key_Right);
    EXPECT_TRUE(Node("Property Room")->isExpanded());
    EXPECT_THAT(TakeSelected(), IsEmpty());
    Press(Qt::Key_Right);
    EXPECT_THAT(TakeSelected(), ElementsAre("Aisle 1"));
}

TEST_F(LocationTreeTest, TypingANameSelectsIt) {
    Show();
    m_widget->setFocus();
    TakeSelected();
    Type(m_widget, "vau");
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault"));
}

TEST_F(LocationTreeTest, TheFocusAloneSelectsNothing) {
    Show();
    m_tree->SetSelectedLocation(nullptr);
    TakeSelected();
    m_other->setFocus();
    m_widget->setFocus(Qt::TabFocusReason);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    Press(Qt::Key_Down);
    EXPECT_THAT(TakeSelected(), ElementsAre("Sign-In Locations"));
}

TEST_F(LocationTreeTest, TheMenuKeyAsksAboutTheSelectedLocation) {
    Show();
    ClickNode("Vault");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), m_widget->mapToGlobal(QPoint(10, 10)));
    QCoreApplication::sendEvent(m_widget, &key);
    EXPECT_THAT(m_menusFor, ElementsAre("nothing"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);

    m_tree->SetSelectedLocation(nullptr);
    QCoreApplication::sendEvent(m_widget, &key);
    EXPECT_EQ(m_menusFor.size(), 1u);
}

TEST_F(LocationTreeTest, ADoubleClickIsRaised) {
    Show();
    int clicks = 0;
    m_tree->DblClick.connect([&] { ++clicks; });
    DoubleClick(m_widget->viewport(), PlaceOf("Vault"));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
}

TEST_F(LocationTreeTest, ItsOwnMenuExpandsAndCollapses) {
    Show();
    m_menu = m_tree->LocationMenu();
    EXPECT_EQ(m_menu->title(), "&Location");
    const auto* toggle = m_tree->findChild<QAction*>("mnuExpandCollapse");
    ASSERT_NE(toggle, nullptr);
    EXPECT_EQ(toggle->text(), "Expand/Collapse");

    WhileMenuOpen([&](QMenu&) {
        EXPECT_EQ(toggle->text(), "Expand");
        EXPECT_TRUE(toggle->isEnabled());
        m_tree->findChild<QAction*>("mnuExpandCollapse")->trigger();
    });
    RightClickNode("Property Room");
    EXPECT_TRUE(Node("Property Room")->isExpanded());

    WhileMenuOpen([&](QMenu&) { EXPECT_EQ(toggle->text(), "Collapse"); });
    RightClickNode("Property Room");

    WhileMenuOpen([&](QMenu&) {
        EXPECT_EQ(toggle->text(), "Expand");
        EXPECT_FALSE(toggle->isEnabled());
    });
    RightClickNode("Vault");
}

TEST_F(LocationTreeTest, AFailedLoadIsRaisedAndKeepsTheTreeHidden) {
    Make();
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    HostLocationData::Discard();
    engine->FailAtOpen(Error(4711, "Engine.Open", "The server is gone."));
    m_window->show();
    try {
        m_tree->RaiseShowError();
        ADD_FAILURE() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 4711);
        EXPECT_EQ(error.Description(), "LoadLocations: Error loading storage locations - The server is gone.");
    }
    EXPECT_FALSE(m_widget->isVisible());
    EXPECT_TRUE(Find<GroupBox>(*m_tree, "picLoading")->isVisible());
    EXPECT_EQ(Find<Label>(*m_tree, "lblLoadTitle")->Caption(), "Loading Locations");
    EXPECT_EQ(Find<Label>(*m_tree, "lblLoadMessage")->Caption(), "Please wait a moment...");
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, ARefreshAfterAFailedLoadShowsTheTree) {
    Make();
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    HostLocationData::Discard();
    engine->FailAtOpen(Error(4711, "Engine.Open", "The server is gone."));
    m_window->show();
    EXPECT_THROW(m_tree->RaiseShowError(), Error);
    m_tree->Refresh();
    EXPECT_TRUE(m_widget->isVisible());
    EXPECT_FALSE(Find<GroupBox>(*m_tree, "picLoading")->isVisible());
    EXPECT_NE(Node("Vault"), nullptr);
}

TEST_F(LocationTreeTest, ColorsFollowThePaletteUntilSet) {
    Show();
    const QPalette palette = m_tree->palette();
    EXPECT_EQ(m_tree->BackColor(), palette.color(QPalette::Base));
    EXPECT_EQ(m_tree->ForeColor(), palette.color(QPalette::Text));
    EXPECT_EQ(m_tree->RootColor(), palette.color(QPalette::Text));
    EXPECT_EQ(m_tree->Appearance(), 1);
    EXPECT_EQ(m_tree->BorderStyle(), 1);

    m_tree->SetBackColor(Qt::yellow);
    m_tree->SetForeColor(Qt::blue);
    EXPECT_EQ(Node("Vault")->foreground(0).color(), QColor(Qt::blue));
    EXPECT_EQ(Node("Sign-In Locations")->foreground(0).color(), palette.color(QPalette::Text));
    m_tree->SetRootColor(Qt::red);
    EXPECT_EQ(Node("Vault")->foreground(0).color(), QColor(Qt::blue));
    EXPECT_EQ(Node("Sign-In Locations")->foreground(0).color(), QColor(Qt::red));
    EXPECT_EQ(Node("Sign-In Locations")->background(0).color(), QColor(Qt::yellow));
    EXPECT_EQ(Node("Vault")->background(0).color(), QColor(Qt::yellow));
    EXPECT_EQ(PixelAt(Grab(*m_widget->viewport()), {100, 590}), QColor(Qt::yellow));
    EXPECT_EQ(Find<GroupBox>(*m_tree, "picLoading")->BackColor(), QColor(Qt::yellow));
    EXPECT_EQ(Find<GroupBox>(*m_tree, "picLoadingMessage")->BackColor(), QColor(Qt::yellow));

    m_tree->ResetBackColor();
    m_tree->ResetForeColor();
    m_tree->ResetRootColor();
    EXPECT_EQ(Node("Vault")->foreground(0).color(), palette.color(QPalette::Text));
    EXPECT_EQ(Node("Vault")->background(0).color(), palette.color(QPalette::Base));
}

TEST_F(LocationTreeTest, NodesLoadedAfterwardsHaveTheColorsSet) {
    Show();
    m_tree->SetBackColor(Qt::yellow);
    m_tree->SetForeColor(Qt::blue);
    m_tree->SetRootColor(Qt::red);
    m_tree->Refresh();
    EXPECT_EQ(Node("Vault")->foreground(0).color(), QColor(Qt::blue));
    EXPECT_EQ(Node("Vault")->background(0).color(), QColor(Qt::yellow));
    EXPECT_EQ(Node("Sign-In Locations")->foreground(0).color(), QColor(Qt::red));
}

TEST_F(LocationTreeTest, PropertiesCanBeKeptByADesigner) {
    Show();
    EXPECT_TRUE(m_tree->setProperty("BackColor", QColor(Qt::yellow)));
    EXPECT_TRUE(m_tree->setProperty("ForeColor", QColor(Qt::blue)));
    EXPECT_TRUE(m_tree->setProperty("RootColor", QColor(Qt::red)));
    EXPECT_TRUE(m_tree->setProperty("Appearance", 0));
    EXPECT_TRUE(m_tree->setProperty("BorderStyle", 0));
    EXPECT_EQ(m_tree->property("BackColor").value<QColor>(), QColor(Qt::yellow));
    EXPECT_EQ(m_tree->property("ForeColor").value<QColor>(), QColor(Qt::blue));
    EXPECT_EQ(m_tree->property("RootColor").value<QColor>(), QColor(Qt::red));
    EXPECT_EQ(m_tree->Appearance(), 0);
    EXPECT_EQ(m_tree->BorderStyle(), 0);
    EXPECT_EQ(m_widget->frameShape(), QFrame::NoFrame);
}

TEST_F(LocationTreeTest, ItsPropertiesAreKeptInABag) {
    Show();
    m_tree->SetBackColor(QColor(1, 2, 3));
    m_tree->SetForeColor(QColor(4, 5, 6));
    m_tree->SetRootColor(QColor(7, 8, 9));
    m_tree->SetAppearance(0);
    m_tree->SetBorderStyle(0);
    PropertyBag bag;
    m_tree->WriteProperties(bag);
    EXPECT_EQ(bag.ReadProperty("BackColor"), TaggedValue(0x030201));

    LocationTree other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.BackColor(), QColor(1, 2, 3));
    EXPECT_EQ(other.ForeColor(), QColor(4, 5, 6));
    EXPECT_EQ(other.RootColor(), QColor(7, 8, 9));
    EXPECT_EQ(other.Appearance(), 0);
    EXPECT_EQ(other.BorderStyle(), 0);
}

TEST_F(LocationTreeTest, UntouchedPropertiesAreNotKeptAndBrokenOnesGiveTheInitialValue) {
    Show();
    PropertyBag bag;
    m_tree->WriteProperties(bag);
    for (const char* key : {"BackColor", "ForeColor", "RootColor", "Appearance", "BorderStyle"}) {
        EXPECT_FALSE(bag.Has(key));
        bag.WriteProperty(key, "greenish");
    }
    m_tree->SetBackColor(Qt::yellow);
    m_tree->SetAppearance(0);
    m_tree->ReadProperties(bag);
    EXPECT_EQ(m_tree->BackColor(), m_tree->palette().color(QPalette::Base));
    EXPECT_EQ(m_tree->ForeColor(), m_tree->palette().color(QPalette::Text));
    EXPECT_EQ(m_tree->Appearance(), 1);
    EXPECT_EQ(m_tree->BorderStyle(), 1);
}

TEST_F(LocationTreeTest, InADesignerItShowsNoDataAndNoError) {
    SetInsideDesigner(true);
    Show();
    m_tree->Refresh();
    EXPECT_EQ(m_widget->topLevelItemCount(), 0);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(LocationTreeTest, TheTreeFillsTheControl) {
    Show();
    EXPECT_EQ(m_widget->geometry(), QRect(0, 0, 280, 600));
    m_tree->resize(200, 300);
    EXPECT_EQ(m_widget->geometry(), QRect(0, 0, 200, 300));
}

TEST_F(LocationTreeTest, MarkupInANameIsShownAsItStands) {
    AddLocation("<b>Box</b> & Co");
    Show();
    EXPECT_NE(Node("<b>Box</b> & Co"), nullptr);
}

}  // namespace
}  // namespace quellbrook::testing
