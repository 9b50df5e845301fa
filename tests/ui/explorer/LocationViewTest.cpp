#include "tests/ui/explorer/LocationViewTest.h"

#include "core/Actions.h"
#include "tests/support/FaultInjectingEngine.h"
#include "ui/common/PropertyBag.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <QScrollBar>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LocationViewTest, ListsSubLocationsThenItemsWithTheirCells) {
    Show(m_shelf);
    EXPECT_THAT(Names(), ElementsAre("Bin 1", "Bin 2", "E-1", "E-2", "ABC 123 (OR)"));
    EXPECT_EQ(m_list->RowKey(0), "L" + QString::number(m_bin));
    EXPECT_EQ(m_list->RowIcon(0), "location");
    EXPECT_EQ(m_list->CellText(0, typeColumn), "Location");
    EXPECT_EQ(m_list->CellText(0, descriptionColumn), "");
    EXPECT_FALSE(m_list->CellBold(0, nameColumn));
    EXPECT_FALSE(m_list->CellBold(0, typeColumn));
    EXPECT_TRUE(m_list->CellBold(0, descriptionColumn));
    EXPECT_FALSE(m_list->CellGray(0, nameColumn));
    EXPECT_TRUE(m_list->CellGray(0, typeColumn));

    EXPECT_EQ(m_list->RowKey(2), "P" + QString::number(m_first));
    EXPECT_EQ(m_list->RowIcon(2), "tag");
    EXPECT_EQ(m_list->CellText(2, typeColumn), "Tools");
    EXPECT_EQ(m_list->CellText(2, descriptionColumn), "a blue bicycle");
    EXPECT_FALSE(m_list->CellGray(2, nameColumn));
    EXPECT_TRUE(m_list->CellGray(2, typeColumn));
    EXPECT_TRUE(m_list->CellGray(2, descriptionColumn));
    EXPECT_FALSE(m_list->CellBold(2, nameColumn));
    EXPECT_FALSE(m_list->CellBold(2, typeColumn));
    EXPECT_FALSE(m_list->CellBold(2, descriptionColumn));

    EXPECT_EQ(m_list->RowKey(4), "V" + QString::number(m_vehicle));
    EXPECT_EQ(m_list->CellText(4, typeColumn), "Vehicle");
    EXPECT_EQ(m_list->CurrentRow(), -1);
    EXPECT_THAT(SelectedNames(), IsEmpty());
}

TEST_F(LocationViewTest, APropertyItemAndAVehicleMayHaveTheSameNumber) {
    ASSERT_EQ(m_first, m_vehicle);
    Show(m_shelf);
    EXPECT_EQ(m_list->RowCount(), 5);
}

TEST_F(LocationViewTest, DisabledSubLocationsAreNotShown) {
    const int32_t parent = AddLocation("Room");
    AddLocation("Open Shelf", parent);
    AddLocation("Closed Shelf", parent, false);
    Show(parent);
    EXPECT_THAT(Names(), ElementsAre("Open Shelf"));
}

TEST_F(LocationViewTest, APropertyWithoutACategoryIsCalledProperty) {
    Show(m_shelf);
    EXPECT_EQ(m_list->CellText(RowOf("E-2"), typeColumn), "Property");
}

TEST_F(LocationViewTest, OnlyACategoryThatIsCutHasATooltip) {
    AddItem("E-3", m_shelf, 8);
    Show(m_shelf);
    EXPECT_EQ(m_list->CellTooltip(RowOf("E-3"), typeColumn), "Sporting goods, camping equipment and outdoor furniture");
    EXPECT_EQ(m_list->CellTooltip(RowOf("E-1"), typeColumn), "");
    EXPECT_EQ(m_list->CellTooltip(RowOf("E-2"), typeColumn), "");
}

TEST_F(LocationViewTest, ColumnsHaveTheirCaptionsAndWidths) {
    const QTreeWidgetItem* header = m_list->Tree()->headerItem();
    ASSERT_EQ(m_list->ColumnCount(), 4);
    EXPECT_EQ(m_list->ColumnIndex("icon"), 0);
    EXPECT_EQ(m_list->ColumnIndex("name"), nameColumn);
    EXPECT_EQ(m_list->ColumnIndex("type"), typeColumn);
    EXPECT_EQ(m_list->ColumnIndex("description"), descriptionColumn);
    EXPECT_EQ(header->text(0), "");
    EXPECT_EQ(header->text(1), "Name");
    EXPECT_EQ(header->text(2), "Type");
    EXPECT_EQ(header->text(3), "Description");
    EXPECT_EQ(m_list->ColumnWidth(0), 41 * TwipsPerPixel);
    const int twelve = ToPixels(m_list->TextWidth(QString(12, 'W')));
    EXPECT_EQ(m_list->ColumnWidth(1), ToTwips(twelve));
    EXPECT_EQ(m_list->ColumnWidth(2), ToTwips(twelve));
}

TEST_F(LocationViewTest, TheDescriptionIsFiftyLettersWideWhereTheViewIsTooNarrow) {
    LocationView narrow;
    narrow.resize(100, 100);
    const int scrollBar = narrow.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int fifty = ToPixels(narrow.List()->TextWidth(QString(50, 'W')));
    EXPECT_EQ(ToPixels(narrow.List()->ColumnWidth(3)), fifty - scrollBar);
}

TEST_F(LocationViewTest, InANarrowViewTheListScrollsSidewaysToTheDescription) {
    Show(m_shelf);
    m_view->resize(560, 400);
    ServeEvents();
    EXPECT_EQ(ToPixels(m_list->ColumnWidth(descriptionColumn)), 200);
    EXPECT_GT(m_list->Tree()->horizontalScrollBar()->maximum(), 0);
    m_view->resize(1000, 400);
    ServeEvents();
    EXPECT_GT(ToPixels(m_list->ColumnWidth(descriptionColumn)), 200);
    EXPECT_EQ(m_list->Tree()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(LocationViewTest, ThePointerIsTheHourglassWhileAllRowsAreSelected) {
    Show(m_shelf);
    std::vector<int> pointers;
    QObject::connect(m_list->Tree(), &QTreeWidget::itemSelectionChanged, m_list,
                     [&] { pointers.push_back(GetMousePointer()); });
    m_view->SelectAll();
    EXPECT_THAT(pointers, ElementsAre(MousePointer::Hourglass));
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(LocationViewTest, RowsAreAsHighAsThePaddedIcon) {
    Show(m_shelf);
    EXPECT_EQ(m_list->RowHeight(), 36);
}

TEST_F(LocationViewTest, TheSameLocationAgainIsNeitherReloadedNorReported) {
    Show(m_shelf);
    EXPECT_THAT(m_changes, ElementsAre("Shelf A"));
    AddItem("E-9", m_shelf);
    Show(m_shelf);
    EXPECT_THAT(m_changes, ElementsAre("Shelf A"));
    EXPECT_EQ(m_list->RowCount(), 5);
    m_view->Refresh();
    EXPECT_EQ(m_list->RowCount(), 6);
    EXPECT_THAT(m_changes, ElementsAre("Shelf A"));
}

TEST_F(LocationViewTest, NullAfterNullIsNotAChange) {
    m_view->SetLocation(nullptr);
    EXPECT_THAT(m_changes, IsEmpty());
    Show(m_shelf);
    m_view->SetLocation(nullptr);
    m_view->SetLocation(nullptr);
    EXPECT_THAT(m_changes, ElementsAre("Shelf A", "nothing"));
}

TEST_F(LocationViewTest, RootsOfDifferentCategoriesAreDifferentLocations) {
    m_view->SetLocation(Root(StorageLocationTypes::Internal));
    EXPECT_THAT(Names(), ElementsAre("Empty Shelf", "Shelf A"));
    m_view->SetLocation(Root(StorageLocationTypes::External));
    EXPECT_EQ(m_changes.size(), 2u);
    EXPECT_EQ(m_list->RowCount(), 0);
}

TEST_F(LocationViewTest, ShowsTheListOrTheEmptyPanel) {
    auto* noItems = Find<GroupBox>(*m_view, "picNoItems");
    EXPECT_TRUE(m_list->IsShown());
    EXPECT_FALSE(noItems->IsShown());

    Show(m_shelf);
    EXPECT_TRUE(m_list->IsShown());
    EXPECT_FALSE(noItems->IsShown());
    EXPECT_TRUE(m_view->isEnabled());

    Show(m_empty);
    EXPECT_FALSE(m_list->IsShown());
    EXPECT_TRUE(noItems->IsShown());
    QStringList texts;
    for (const Label* label : noItems->findChildren<Label*>()) texts += label->Caption();
    EXPECT_EQ(texts, (QStringList{"No items here.", "There are no items currently stored in this location."}));
    EXPECT_FALSE(m_view->isEnabled());

    m_view->SetLocation(nullptr);
    EXPECT_TRUE(m_list->IsShown());
    EXPECT_FALSE(noItems->IsShown());
    EXPECT_TRUE(m_view->isEnabled());
    EXPECT_EQ(m_list->RowCount(), 0);
}

TEST_F(LocationViewTest, ALocationWithOnlyDisabledSubLocationsIsEmpty) {
    AddLocation("Closed Shelf", m_empty, false);
    Show(m_empty);
    EXPECT_TRUE(Find<GroupBox>(*m_view, "picNoItems")->IsShown());
}

TEST_F(LocationViewTest, AnItemAddedToTheBatchElsewhereIsMarkedWithoutAReload) {
    Show(m_shelf);
    const int row = RowOf("E-2");
    AddItem("E-9", m_shelf);
    GetActions().BeginTransaction(TransactionType::SignOut, Batch({m_second}));
    EXPECT_EQ(m_list->RowCount(), 5);
    EXPECT_EQ(m_list->RowIcon(row), "marked");
    EXPECT_TRUE(m_list->RowBand(row));
    for (int column = nameColumn; column <= descriptionColumn; ++column) {
        EXPECT_TRUE(m_list->CellBold(row, column));
        EXPECT_FALSE(m_list->CellGray(row, column));
    }
    EXPECT_EQ(m_list->RowIcon(RowOf("E-1")), "tag");
    EXPECT_FALSE(m_list->CellBold(RowOf("E-1"), nameColumn));

    GetActions().CancelTransaction();
    EXPECT_EQ(m_list->RowIcon(row), "tag");
    EXPECT_FALSE(m_list->RowBand(row));
    EXPECT_FALSE(m_list->CellBold(row, nameColumn));
    EXPECT_FALSE(m_list->CellGray(row, nameColumn));
    EXPECT_FALSE(m_list->CellBold(row, descriptionColumn));
    EXPECT_TRUE(m_list->CellGray(row, descriptionColumn));
}

TEST_F(LocationViewTest, AnItemInTheBatchIsMarkedWhenItsLocationIsOpened) {
    GetActions().BeginTransaction(TransactionType::SignOut, Batch({m_second}));
    Show(m_shelf);
    EXPECT_EQ(m_list->RowIcon(RowOf("E-2")), "marked");
    EXPECT_TRUE(m_list->RowBand(RowOf("E-2")));
    EXPECT_TRUE(m_list->CellBold(RowOf("E-2"), typeColumn));
}

TEST_F(LocationViewTest, MarkingLeavesTheSelection) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    GetActions().BeginTransaction(TransactionType::SignOut, m_view->SelectedItems());
    EXPECT_THAT(SelectedNames(), ElementsAre("E-1", "E-2"));
}

TEST_F(LocationViewTest, AMarkedRowIsBandedOverItsWholeWidthAlsoAfterScrolling) {
    for (int i = 0; i < 30; ++i) AddItem("X-" + std::to_string(i), m_shelf);
    Show(m_shelf);
    GetActions().BeginTransaction(TransactionType::SignOut, Batch({m_second}));
    const auto edgeOf = [this](const QString& name) {
        return PixelAt(Grab(*Viewport()), {Viewport()->width() - 1, CenterOf(name).y()});
    };
    EXPECT_EQ(edgeOf("E-2"), Theme::FromBgr(AccentColor()));
    EXPECT_EQ(edgeOf("E-1"), m_view->BackColor());
    m_list->Tree()->scrollToItem(m_list->Tree()->topLevelItem(RowOf("E-2")), QAbstractItemView::PositionAtTop);
    EXPECT_EQ(edgeOf("E-2"), Theme::FromBgr(AccentColor()));
}

TEST_F(LocationViewTest, AFailingRefreshOfMarksDoesNotFailTheDispatch) {
    Show(m_shelf);
    const auto batch = Batch({m_second});
    m_list->AddRow("X1", "tag", {});
    GetActions().BeginTransaction(TransactionType::SignOut, batch);
    EXPECT_THAT(TakeUnexpected(),
                ElementsAre("There is no such key in the collection.", "There is no such key in the collection."));
    EXPECT_EQ(GetStores().Cart->GetItems()->Count(), 1);
}

TEST_F(LocationViewTest, AFailureToLoadIsRethrownToTheCaller) {
    Show(m_empty);
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    const StorageLocationRef shelf = LocationOf(m_shelf);
    engine->FailAtStatement(1, Error(4711, "Engine.Query", "The server is gone."));
    try {
        m_view->SetLocation(shelf);
        ADD_FAILURE() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 4711);
        EXPECT_EQ(error.Description(), "Error displaying items in this location: The server is gone.");
    }
    EXPECT_EQ(TakeDebugMessages(), QStringList{"[DisplayCurrentLocation (line 4)] ~ The server is gone."});
    EXPECT_EQ(m_view->Location()->ID(), m_shelf);
    EXPECT_THAT(m_changes, ElementsAre("Empty Shelf"));
}

TEST_F(LocationViewTest, RowsAddedBeforeAFailureStay) {
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    const StorageLocationRef shelf = LocationOf(m_shelf);
    m_database.Install(engine);
    ASSERT_NE(LocationOf(m_shelf), nullptr);
    engine->FailAtStatement(2, Error(4711, "Engine.Query", "The server is gone."));
    EXPECT_THROW(m_view->SetLocation(shelf), Error);
    EXPECT_THAT(Names(), ElementsAre("Bin 1", "Bin 2"));
}

TEST_F(LocationViewTest, ADeletedLocationRaisesItsError) {
    const StorageLocationRef shelf = LocationOf(m_empty);
    m_view->SetLocation(shelf);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_empty});
    shelf->Refresh();
    try {
        m_view->Refresh();
        ADD_FAILURE() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(),
                  "Error displaying items in this location: The current location has been deleted.");
    }
}

TEST_F(LocationViewTest, TheListFillsTheViewAndTheEmptyPanelIsCentered) {
    auto* noItems = Find<GroupBox>(*m_view, "picNoItems");
    for (const QSize size : {QSize(1000, 500), QSize(640, 301)}) {
        m_view->resize(size);
        EXPECT_EQ(m_list->geometry(), QRect(QPoint(0, 0), size));
        EXPECT_NEAR(noItems->geometry().center().x(), size.width() / 2.0, 1.0);
        EXPECT_NEAR(noItems->geometry().center().y(), size.height() / 2.0, 1.0);
    }
}

TEST_F(LocationViewTest, TheLastColumnTakesTheRemainingWidth) {
    const int scrollBar = m_list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_list);
    const auto others = [this] { return m_list->ColumnWidth(0) + m_list->ColumnWidth(1) + m_list->ColumnWidth(2); };
    m_view->resize(1200, 500);
    EXPECT_EQ(m_list->ColumnWidth(3), ToTwips(1200 - 6 * scrollBar) - others());
    const float before = m_list->ColumnWidth(3);
    m_view->resize(200, 500);
    EXPECT_EQ(m_list->ColumnWidth(3), before);
}

TEST_F(LocationViewTest, TheBackColorAppliesToAllParts) {
    Show(m_shelf);
    EXPECT_EQ(m_view->BackColor(), m_view->palette().color(QPalette::Base));
    EXPECT_TRUE(m_view->setProperty("BackColor", QColor(Qt::yellow)));
    EXPECT_EQ(PixelAt(Grab(*Viewport()), blank), QColor(Qt::yellow));
    EXPECT_EQ(Find<GroupBox>(*m_view, "picNoItems")->BackColor(), QColor(Qt::yellow));
    EXPECT_EQ(Find<GroupBox>(*m_view, "picPlaceholder")->BackColor(), QColor(Qt::yellow));
    m_view->ResetBackColor();
    EXPECT_EQ(PixelAt(Grab(*Viewport()), blank), m_view->palette().color(QPalette::Base));
}

TEST_F(LocationViewTest, TheBackColorIsStoredInABag) {
    PropertyBag bag;
    m_view->WriteProperties(bag);
    EXPECT_FALSE(bag.Has("BackColor"));
    m_view->SetBackColor(QColor(1, 2, 3));
    m_view->WriteProperties(bag);
    LocationView other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.BackColor(), QColor(1, 2, 3));
    EXPECT_EQ(Find<GroupBox>(other, "picNoItems")->BackColor(), QColor(1, 2, 3));
    EXPECT_EQ(Find<GroupBox>(other, "picPlaceholder")->BackColor(), QColor(1, 2, 3));
    EXPECT_EQ(other.List()->Tree()->palette().color(QPalette::Base), QColor(1, 2, 3));
    bag.WriteProperty("BackColor", "greenish");
    other.ReadProperties(bag);
    EXPECT_EQ(other.BackColor(), other.palette().color(QPalette::Base));
}

TEST_F(LocationViewTest, ShowsOnlyItsNameInADesigner) {
    SetInsideDesigner(true);
    LocationView view;
    view.setObjectName("ItemPane1");
    EXPECT_TRUE(Find<GroupBox>(view, "picPlaceholder")->IsShown());
    EXPECT_EQ(view.List()->RowCount(), 0);
    SetInsideDesigner(false);
    EXPECT_FALSE(Find<GroupBox>(*m_view, "picPlaceholder")->IsShown());
}

TEST_F(LocationViewTest, MarkupInAnItemIsShownAsPlainText) {
    AddItem("<b>x</b>", m_shelf);
    Show(m_shelf);
    EXPECT_EQ(m_list->CellText(RowOf("<b>x</b>"), nameColumn), "<b>x</b>");
}

}  // namespace
}  // namespace quellbrook::testing
