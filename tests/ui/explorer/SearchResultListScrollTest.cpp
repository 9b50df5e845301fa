#include "tests/support/ui/PaintCounter.h"
#include "tests/ui/explorer/SearchResultListTest.h"

namespace quellbrook::testing {
namespace {

TEST_F(SearchResultListTest, ArrowKeysMoveTheSelection) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    Press(m_list, Qt::Key_Down);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
    Press(m_list, Qt::Key_Right);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(2));
    Press(m_list, Qt::Key_Up);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
    Press(m_list, Qt::Key_Left, Qt::KeypadModifier);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListTest, DownOnTheLastRowInViewScrollsByOne) {
    auto items = MakeItems(9);
    m_list->SetItems(items);
    for (int i = 0; i < 4; ++i) Press(m_list, Qt::Key_Down);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(4));
    EXPECT_EQ(Bar()->Value(), 1);
    EXPECT_EQ(HighlightedRow(), 3);
    ExpectRowsInOrder(*items);
}

TEST_F(SearchResultListTest, UpOnTheFirstRowInViewScrollsByOne) {
    auto items = MakeItems(9);
    m_list->SetItems(items);
    for (int i = 0; i < 5; ++i) Press(m_list, Qt::Key_Down);
    for (int i = 0; i < 4; ++i) Press(m_list, Qt::Key_Up);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
    EXPECT_EQ(Bar()->Value(), 1);
    EXPECT_EQ(HighlightedRow(), 0);
    ExpectRowsInOrder(*items);
}

TEST_F(SearchResultListTest, TheSelectionStaysOnTheEdges) {
    auto items = MakeItems(2);
    m_list->SetItems(items);
    Press(m_list, Qt::Key_Up);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    for (int i = 0; i < 3; ++i) Press(m_list, Qt::Key_Down);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListTest, PageKeysMoveByTheWholeRowsAndStopAtTheEnds) {
    SetHeightInRows(4.7);
    auto items = MakeItems(10);
    m_list->SetItems(items);
    const auto expectSelected = [&](int32_t index) {
        EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(index));
        const int row = HighlightedRow();
        ASSERT_GE(row, 0) << "the selected row is out of sight";
        EXPECT_EQ(Row(static_cast<size_t>(row)).Item(), items->ItemAt(index));
        const float top = Container()->Top() + Row(static_cast<size_t>(row)).Top();
        EXPECT_GE(top, 0);
        EXPECT_LE(top + Row(0).Height(), m_list->Height());
        ExpectRowsInOrder(*items);
    };
    for (const int32_t index : {4, 8, 9, 9}) {
        Press(m_list, Qt::Key_PageDown);
        expectSelected(index);
    }
    for (const int32_t index : {5, 1, 0, 0}) {
        Press(m_list, Qt::Key_PageUp);
        expectSelected(index);
    }
    EXPECT_EQ(Container()->Top(), 0);
}

TEST_F(SearchResultListTest, EndAndHomeSelectTheLastAndTheFirstItem) {
    auto items = MakeItems(30);
    m_list->SetItems(items);
    Press(m_list, Qt::Key_End);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(29));
    EXPECT_EQ(Bar()->Value(), Bar()->Max());
    EXPECT_EQ(HighlightedRow(), 3);
    Press(m_list, Qt::Key_Home);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListTest, HomeReturnsToTheFirstItemAfterTheWheelHasScrolledAway) {
    auto items = MakeItems(30);
    m_list->SetItems(items);
    Bar()->SetValue(12);
    Press(m_list, Qt::Key_Home);
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListTest, PageKeysInAListWithoutItemsDoNothing) {
    m_list->SetItems(MakeItems(0));
    for (const auto key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(m_list, &press);
    }
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
    EXPECT_TRUE(m_screen.Messages().empty());
}

// The end of a list this long is beyond the scroll bar's range.
TEST_F(SearchResultListTest, EndInTheLongestListReadsOnlyTheRowsOnTheScreen) {
    class CountedItems : public ItemVector {
    public:
        using ItemVector::ItemVector;
        StoredItemRef ItemAt(int32_t index) const override {
            ++reads;
            return ItemVector::ItemAt(index);
        }
        mutable int reads = 0;
    };
    const StoredItemRef item = MakeItem(1);
    const StoredItemRef last = MakeItem(2);
    std::vector<StoredItemRef> all(SearchResultList::MaxDisplayedItems - 1, item);
    all.back() = last;
    const auto items = std::make_shared<CountedItems>(std::move(all));
    m_list->SetItems(items);
    items->reads = 0;
    Press(m_list, Qt::Key_End);
    EXPECT_LE(items->reads, 10);
    EXPECT_EQ(m_list->SelectedItem(), last);
    EXPECT_EQ(Bar()->Value(), Bar()->Max());
    Press(m_list, Qt::Key_Home);
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListTest, AClippedLastRowIsNudgedIntoViewAndTheFirstOneBack) {
    SetHeightInRows(4.2);
    m_list->SetItems(MakeItems(5));
    EXPECT_EQ(Bar()->Max(), 0);
    EXPECT_EQ(Container()->Height(), 5 * RowPixels * TwipsPerPixel);
    for (int i = 0; i < 4; ++i) Press(m_list, Qt::Key_Down);
    EXPECT_EQ(Container()->Top(), m_list->Height() - Container()->Height());
    EXPECT_EQ(Bar()->Value(), 0);
    Press(m_list, Qt::Key_Up);
    EXPECT_EQ(Container()->Top(), m_list->Height() - Container()->Height());
    for (int i = 0; i < 3; ++i) Press(m_list, Qt::Key_Up);
    EXPECT_EQ(Container()->Top(), 0);
}

TEST_F(SearchResultListTest, AListThatGrowsUntilAllFitsStartsAtItsFirstRow) {
    SetHeightInRows(4.2);
    m_list->SetItems(MakeItems(5));
    for (int i = 0; i < 4; ++i) Press(m_list, Qt::Key_Down);
    ASSERT_LT(Container()->Top(), 0);
    SetHeightInRows(6);
    EXPECT_FALSE(Bar()->IsShown());
    EXPECT_EQ(Container()->Top(), 0);
}

TEST_F(SearchResultListTest, AKeyRepaintsTheTwoRowsThatItChanges) {
    m_list->SetItems(MakeItems(4));
    Press(m_list, Qt::Key_Down);
    ServeEvents();
    int painted = 0;
    std::vector<std::unique_ptr<PaintCounter>> counters;
    for (const auto& row : m_list->Rows()) counters.push_back(std::make_unique<PaintCounter>(*row));
    Press(m_list, Qt::Key_Down);
    ServeEvents();
    for (const auto& counter : counters) painted += counter->count > 0;
    EXPECT_EQ(painted, 2);
}

TEST_F(SearchResultListTest, ReturningToTheTopUndoesTheNudge) {
    SetHeightInRows(4.2);
    m_list->SetItems(MakeItems(9));
    for (int i = 0; i < 5; ++i) Press(m_list, Qt::Key_Down);
    EXPECT_LT(Container()->Top(), 0);
    EXPECT_EQ(Bar()->Value(), 1);
    Bar()->SetValue(0);
    EXPECT_EQ(Container()->Top(), 0);
}

TEST_F(SearchResultListTest, ArrowsShowWhereTheListCanGo) {
    m_list->SetItems(MakeItems(9));
    EXPECT_EQ(Bar()->GetArrows(), FlatScrollBar::Down);
    Bar()->SetValue(1);
    EXPECT_EQ(Bar()->GetArrows(), FlatScrollBar::Both);
    Bar()->SetValue(Bar()->Max());
    EXPECT_EQ(Bar()->GetArrows(), FlatScrollBar::Up);
    Bar()->SetValue(0);
    EXPECT_EQ(Bar()->GetArrows(), FlatScrollBar::Down);
}

TEST_F(SearchResultListTest, TheListFollowsTheThumb) {
    auto items = MakeItems(30);
    m_list->SetItems(items);
    Bar()->Bar()->setSliderDown(true);
    for (const int position : {3, 4, 11, 26}) {
        Bar()->Bar()->setSliderPosition(position);
        EXPECT_EQ(Row(0).Item(), items->ItemAt(position));
        ExpectRowsInOrder(*items);
    }
    EXPECT_EQ(Bar()->GetArrows(), FlatScrollBar::Up);
    Bar()->Bar()->setSliderDown(false);
}

TEST_F(SearchResultListTest, TheThumbCoversTheShareThatIsVisible) {
    for (const int count : {10, 5}) {
        m_list->SetItems(MakeItems(count));
        const QImage bar = Grab(*Bar());
        int thumb = 0;
        for (int y = 0; y < bar.height(); ++y)
            thumb += PixelAt(bar, QPoint(Bar()->width() / 2, y)) == Theme::Get(Theme::Color::Thumb);
        const int track = 4 * RowPixels - 2 * Bar()->width();
        EXPECT_NEAR(thumb, track * 4 / count, 4) << count;
    }
}

TEST_F(SearchResultListTest, TheBottomCommandScrollsToTheTop) {
    m_list->SetItems(MakeItems(30));
    Bar()->SetValue(7);
    Bar()->Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(SearchResultListTest, TheWheelScrolls) {
    m_list->SetItems(MakeItems(30));
    Turn(Container(), -120);
    EXPECT_EQ(Bar()->Value(), QApplication::wheelScrollLines());
    Turn(Container(), 120);
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(SearchResultListTest, AScrollRepaintsTheListAtOnce) {
    m_list->SetItems(MakeItems(30));
    ServeEvents();
    const PaintCounter paints(*m_list);
    Bar()->SetValue(1);
    EXPECT_EQ(paints.count, 1);
}

TEST_F(SearchResultListTest, TheSelectionOfAListThatShrankWhileItWasOutOfSightIsForgotten) {
    class LiveItems : public ItemVector {
    public:
        explicit LiveItems(const ItemVector& items) : ItemVector(items) {}
        int32_t count = 40;
        int32_t Count() const override { return count; }
        StoredItemRef ItemAt(int32_t index) const override {
            if (index >= count) Raise(ErrorNumber::SubscriptOutOfRange, "LiveItems");
            return ItemVector::ItemAt(index);
        }
    };
    const auto items = std::make_shared<LiveItems>(*MakeItems(40));
    m_list->SetItems(items);
    Press(m_list, Qt::Key_End);
    Bar()->SetValue(0);
    Press(m_list, Qt::Key_Up);
    items->count = 10;
    EXPECT_NO_THROW(m_list->CurrentPlace());
}

}  // namespace
}  // namespace quellbrook::testing
