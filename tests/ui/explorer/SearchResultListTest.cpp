#include "tests/ui/explorer/SearchResultListTest.h"

#include "tests/support/RaisedBy.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/View.h"

#include <random>

namespace quellbrook::testing {
namespace {

TEST_F(SearchResultListTest, RefusesNoItems) {
    auto items = MakeItems(2);
    m_list->SetItems(items);
    const Error error = RaisedBy([&] { m_list->SetItems(nullptr); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "Items cannot be Nothing");
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    EXPECT_EQ(ShownRows(), 2);
}

TEST_F(SearchResultListTest, EmptyCollectionShowsThePanelAlone) {
    m_list->SetItems(MakeItems(3));
    m_list->SetItems(MakeItems(0));
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_TRUE(Empty()->IsShown());
    EXPECT_EQ(Empty()->Title()->Caption(), "No items found.");
    EXPECT_EQ(Empty()->Sentence()->Caption(), "Check for typos in your search filter, or try a different search term.");
    ExpectCentered(*Empty());
    EXPECT_FALSE(TooMany()->IsShown());
    EXPECT_FALSE(m_list->isEnabled());
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
}

TEST_F(SearchResultListTest, PanelsAreCenteredAtEverySize) {
    for (const double rows : {3.0, 5.5}) {
        SetHeightInRows(rows);
        ExpectCentered(*Empty());
        ExpectCentered(*TooMany());
    }
}

TEST_F(SearchResultListTest, LimitIsReachedWithOneItemMore) {
    m_list->SetItems(MakeItems(36765));
    EXPECT_FALSE(TooMany()->IsShown());
    EXPECT_TRUE(m_list->isEnabled());
    EXPECT_NE(m_list->SelectedItem(), nullptr);

    auto items = MakeItems(36766);
    std::weak_ptr<StoredItemList> dropped = items;
    m_list->SetItems(std::move(items));
    EXPECT_TRUE(TooMany()->IsShown());
    EXPECT_EQ(TooMany()->Title()->Caption(), "Too many results.");
    EXPECT_EQ(TooMany()->Icon()->IconName(), "warning");
    EXPECT_EQ(TooMany()->Sentence()->Caption(),
              "There are too many results to display here. Please narrow your search.");
    ExpectCentered(*TooMany());
    EXPECT_FALSE(Empty()->IsShown());
    EXPECT_FALSE(m_list->isEnabled());
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_TRUE(dropped.expired());
}

TEST_F(SearchResultListTest, RangeBeyondSixteenBitsShowsTheFirstPageWithoutABar) {
    auto items = MakeItems(36000);
    m_list->SetItems(items);
    EXPECT_FALSE(Bar()->IsShown());
    EXPECT_EQ(Bar()->Value(), 0);
    ExpectRowsInOrder(*items);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListTest, TheBarOfAnEarlierListDoesNotStay) {
    m_list->SetItems(MakeItems(30));
    ASSERT_TRUE(Bar()->IsShown());
    m_list->SetItems(MakeItems(36000));
    EXPECT_FALSE(Bar()->IsShown());
}

TEST_F(SearchResultListTest, NewItemsUnloadTheRowsOfEarlierOnes) {
    SetHeightInRows(6.3);
    m_list->SetItems(MakeItems(9));
    EXPECT_EQ(m_list->Rows().size(), 7u);
    SetHeightInRows(2.2);
    m_list->SetItems(MakeItems(9));
    EXPECT_EQ(m_list->Rows().size(), 3u);
}

TEST_F(SearchResultListTest, WidestRangeThatFitsScrollsToItsEnd) {
    auto items = MakeItems(32767 + 4);
    m_list->SetItems(items);
    EXPECT_TRUE(Bar()->IsShown());
    EXPECT_EQ(Bar()->Max(), 32767);
    Bar()->SetValue(32767);
    ExpectRowsInOrder(*items);
}

TEST_F(SearchResultListTest, ItemsThatExactlyFillTheHeightNeedNoBar) {
    m_list->SetItems(MakeItems(4));
    EXPECT_FALSE(Bar()->IsShown());
    m_list->SetItems(MakeItems(5));
    EXPECT_TRUE(Bar()->IsShown());
    EXPECT_EQ(Bar()->Min(), 0);
    EXPECT_EQ(Bar()->Max(), 1);
    EXPECT_EQ(Bar()->SmallChange(), 1);
    EXPECT_EQ(Bar()->LargeChange(), 1);
}

TEST_F(SearchResultListTest, VisibleRowsAreHalfMoreRoundedToEven) {
    const std::vector<std::pair<double, int>> expected = {{4.2, 5}, {4.0, 4}, {5.0, 6}, {3.0, 4}, {0.6, 1}, {0.0, 0}};
    for (const auto& [rows, count] : expected) {
        SetHeightInRows(rows);
        EXPECT_EQ(m_list->VisibleRowCount(), count) << rows;
    }
}

TEST_F(SearchResultListTest, OneItemIsSelectedAndTheListHasTheFocus) {
    auto items = MakeItems(1);
    m_list->SetItems(items);
    EXPECT_TRUE(m_list->hasFocus());
    EXPECT_TRUE(Row(0).IsShown());
    EXPECT_TRUE(Row(0).Focused());
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
}

TEST_F(SearchResultListTest, AHiddenListSelectsButTakesNoFocus) {
    m_list->hide();
    TrySetFocus(m_other);
    m_list->SetItems(MakeItems(2));
    EXPECT_NE(m_list->SelectedItem(), nullptr);
    m_list->show();
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), -1);
}

TEST_F(SearchResultListTest, NoRowInViewMeansNoSelection) {
    SetHeightInRows(0);
    m_list->SetItems(MakeItems(2));
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_EQ(RaisedBy([&] { m_list->SelectedItem(); }).Number(), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(SearchResultListTest, ScrollingNeedsNoMoreRowsThanFit) {
    auto items = MakeItems(200);
    m_list->SetItems(items);
    std::mt19937 random(7);
    std::uniform_int_distribution<int> position(0, Bar()->Max());
    for (int i = 0; i < 100; ++i) {
        const int step = i % 3;
        Bar()->SetValue(step == 0 ? position(random)
                                  : std::clamp(Bar()->Value() + (step == 1 ? 1 : -2), 0, Bar()->Max()));
        ExpectRowsInOrder(*items);
        ASSERT_EQ(ShownRows(), 4);
    }
    EXPECT_EQ(m_list->Rows().size(), 4u);
}

TEST_F(SearchResultListTest, ScrollingByOneFillsOneRow) {
    m_list->SetItems(MakeItems(30));
    for (size_t i = 0; i < 4; ++i) Find<Label>(Row(i), "lblID")->SetCaption("filled before");
    Bar()->SetValue(1);
    for (size_t i = 0; i < 3; ++i) EXPECT_EQ(Find<Label>(Row(i), "lblID")->Caption(), "filled before") << i;
    EXPECT_EQ(Find<Label>(Row(3), "lblID")->Caption(), "E-5");
    m_list->DisplayVisibleItems();
    EXPECT_EQ(Find<Label>(Row(0), "lblID")->Caption(), "E-2");
}

TEST_F(SearchResultListTest, ScrollingFillsRowsRefreshedByTheBatch) {
    std::vector<StoredItemRef> items;
    for (int i = 0; i < 8; ++i) items.push_back(AddProperty("E-" + std::to_string(i), "before", shelf));
    m_list->SetItems(std::make_shared<ItemVector>(items));
    m_database.Execute("UPDATE Property SET Description = 'after'");
    Cart()->OnChange();
    Bar()->SetValue(1);
    for (size_t i = 0; i < 3; ++i) EXPECT_EQ(Find<Label>(Row(i), "lblDescription")->Caption(), "after") << i;
}

TEST_F(SearchResultListTest, EnlargingLoadsRowsAndShrinkingHidesThem) {
    auto items = MakeItems(9);
    m_list->SetItems(items);
    EXPECT_EQ(ShownRows(), 4);
    SetHeightInRows(6.3);
    EXPECT_EQ(ShownRows(), 7);
    ExpectRowsInOrder(*items);
    SetHeightInRows(2.2);
    EXPECT_EQ(ShownRows(), 3);
    EXPECT_EQ(m_list->Rows().size(), 7u);
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(5.5 * RowPixels)), 5);
    EXPECT_FALSE(Row(5).IsShown());
    EXPECT_EQ(Row(5).Item(), items->ItemAt(5));
}

TEST_F(SearchResultListTest, RowsTakeTheWidthLeftOfTheBar) {
    m_list->SetItems(MakeItems(2));
    for (const int width : {400, 900}) {
        m_list->SetWidth(ToTwips(width));
        EXPECT_EQ(Container()->geometry().width(), width - Bar()->width());
        EXPECT_EQ(Row(0).width(), width - Bar()->width());
        EXPECT_EQ(Row(1).width(), width - Bar()->width());
        EXPECT_EQ(Bar()->geometry(), QRect(width - Bar()->width(), 0, Bar()->width(), m_list->height()));
    }
}

TEST_F(SearchResultListTest, NewItemsStartAtTheTop) {
    m_list->SetItems(MakeItems(30));
    Bar()->SetValue(20);
    auto items = MakeItems(10);
    m_list->SetItems(items);
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    ExpectRowsInOrder(*items);
    EXPECT_EQ(Bar()->Max(), 6);
}

TEST_F(SearchResultListTest, ALiveCollectionThatShrankIsTolerated) {
    auto items = std::make_shared<CartItems>();
    std::vector<StoredItemRef> added;
    for (int id = 1; id <= 9; ++id) {
        added.push_back(MakeItem(id));
        items->TryAdd(added.back());
    }
    m_list->SetItems(items);
    Bar()->SetValue(5);
    for (const StoredItemRef& item : added) items->TryRemove(*item);
    SetHeightInRows(3);
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
}

TEST_F(SearchResultListTest, ShowsItsNameInADesigner) {
    SetInsideDesigner(true);
    SearchResultList list;
    list.setObjectName("itemList");
    const auto* panel = Find<GroupBox>(list, "picPlaceholder");
    EXPECT_TRUE(panel->IsShown());
    EXPECT_EQ(Find<Label>(list, "lblPlaceholder")->Caption(), "itemList");
    EXPECT_EQ(Find<Label>(list, "lblPlaceholder")->pos(), QPoint(0, 0));
    SetInsideDesigner(false);
    EXPECT_FALSE(Find<GroupBox>(*m_list, "picPlaceholder")->IsShown());
}

}  // namespace
}  // namespace quellbrook::testing
