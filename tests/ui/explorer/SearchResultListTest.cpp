#include "ui/explorer/SearchResultList.h"

#include "base/KeyState.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"
#include "ui/explorer/SearchResultRow.h"
#include "ui/explorer/StatePanel.h"
#include "ui/platform/Twips.h"

#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <random>

namespace quellbrook::testing {
namespace {

constexpr int RowPixels = 100;

class SearchResultListTest : public SmallDepartment {
protected:
    SearchResultListTest() {
        m_window.resize(800, 700);
        m_list = new SearchResultList(&m_window);
        m_list->setObjectName("list");
        m_other = new FlatTextbox(&m_window);
        m_other->setObjectName("other");
        m_other->Move(ToTwips(0), ToTwips(600), ToTwips(100), ToTwips(36));
        SetHeightInRows(4);
        ShowActive(m_window);
    }
    ~SearchResultListTest() override { SetKeyStateProbe(nullptr); }

    void SetHeightInRows(double rows) { m_list->Move(0, 0, ToTwips(700), ToTwips(rows * RowPixels)); }
    void Hold(int keyCode) {
        SetKeyStateProbe([keyCode](int key) { return key == keyCode; });
    }

    FlatScrollBar* Bar() { return Find<FlatScrollBar>(*m_list, "vertScroll"); }
    GroupBox* Container() { return Find<GroupBox>(*m_list, "picContainer"); }
    StatePanel* Empty() { return Find<StatePanel>(*m_list, "picNoResults"); }
    StatePanel* TooMany() { return Find<StatePanel>(*m_list, "picTooManyResults"); }
    SearchResultRow& Row(size_t i) { return *m_list->Rows().at(i); }

    int ShownRows() {
        int shown = 0;
        for (const SearchResultRow* row : m_list->Rows()) shown += row->IsShown();
        return shown;
    }

    // The position of the one row that is shown as selected; -1 when none is.
    int HighlightedRow() {
        int found = -1;
        for (size_t i = 0; i < m_list->Rows().size(); ++i) {
            if (!Row(i).Focused() || !Row(i).IsShown()) continue;
            EXPECT_EQ(found, -1) << "two rows are highlighted";
            found = static_cast<int>(i);
        }
        return found;
    }

    // Element i of the rows stands at place i and shows item first + i.
    void ExpectRowsInOrder(const StoredItemList& items) {
        const int first = m_list->FirstVisibleIndex();
        for (int i = 0; i < ShownRows(); ++i) {
            SearchResultRow& row = Row(static_cast<size_t>(i));
            ASSERT_TRUE(row.IsShown()) << i;
            EXPECT_EQ(row.geometry().top(), i * RowPixels);
            EXPECT_EQ(row.Index(), i);
            EXPECT_EQ(row.Tag().toInt(), first + i);
            EXPECT_EQ(row.Item(), items.ItemAt(first + i - 1));
            EXPECT_EQ(Find<Label>(row, "lblID")->Caption().toStdString(), row.Item()->DisplayID());
        }
    }

    void ExpectCentred(const Control& panel) {
        EXPECT_EQ(panel.Left(), m_list->Width() / 2 - panel.Width() / 2);
        EXPECT_EQ(panel.Top(), m_list->Height() / 2 - panel.Height() / 2);
    }

    QPoint CentreOfRow(int i) { return QPoint(300, i * RowPixels + RowPixels / 2); }

    QWidget m_window;
    SearchResultList* m_list = nullptr;
    FlatTextbox* m_other = nullptr;
};

TEST_F(SearchResultListTest, RefusesNoItems) {
    auto items = MakeItems(2);
    m_list->SetItems(items);
    const Error error = RaisedBy([&] { m_list->SetItems(nullptr); });
    EXPECT_EQ(error.Number(), 5);
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
    ExpectCentred(*Empty());
    EXPECT_FALSE(TooMany()->IsShown());
    EXPECT_FALSE(m_list->isEnabled());
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
}

TEST_F(SearchResultListTest, PanelsStayCentredAtEverySize) {
    for (const double rows : {3.0, 5.5}) {
        SetHeightInRows(rows);
        ExpectCentred(*Empty());
        ExpectCentred(*TooMany());
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
    EXPECT_EQ(TooMany()->Sentence()->Caption(), "There are too many results to display here. Please narrow your search.");
    ExpectCentred(*TooMany());
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

TEST_F(SearchResultListTest, AListThatIsNotSeenSelectsButTakesNoFocus) {
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

TEST_F(SearchResultListTest, BottomGoesToTheTop) {
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

TEST_F(SearchResultListTest, ScrollingKeepsNoMoreRowsThanFit) {
    auto items = MakeItems(200);
    m_list->SetItems(items);
    std::mt19937 random(7);
    std::uniform_int_distribution<int> place(0, Bar()->Max());
    for (int i = 0; i < 100; ++i) {
        const int step = i % 3;
        Bar()->SetValue(step == 0 ? place(random) : std::clamp(Bar()->Value() + (step == 1 ? 1 : -2), 0, Bar()->Max()));
        ExpectRowsInOrder(*items);
        ASSERT_EQ(ShownRows(), 4);
    }
    EXPECT_EQ(m_list->Rows().size(), 4u);
}

TEST_F(SearchResultListTest, ScrollingByOneFillsOneRowAnew) {
    m_list->SetItems(MakeItems(30));
    for (size_t i = 0; i < 4; ++i) Find<Label>(Row(i), "lblID")->SetCaption("filled before");
    Bar()->SetValue(1);
    for (size_t i = 0; i < 3; ++i) EXPECT_EQ(Find<Label>(Row(i), "lblID")->Caption(), "filled before") << i;
    EXPECT_EQ(Find<Label>(Row(3), "lblID")->Caption(), "E-5");
    m_list->DisplayVisibleItems();
    EXPECT_EQ(Find<Label>(Row(0), "lblID")->Caption(), "E-2");
}

TEST_F(SearchResultListTest, ScrollingShowsWhatTheBatchMadeRowsReadAnew) {
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

TEST_F(SearchResultListTest, APixelOnARowsEdgeBelongsToNoRow) {
    m_list->SetItems(MakeItems(3));
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(99)), 0);
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(100)), -1);
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(101)), 1);
    EXPECT_EQ(m_list->HitTestRow(0, ToTwips(50)), -1);
    EXPECT_EQ(m_list->HitTestRow(Row(0).Right(), ToTwips(50)), -1);
}

TEST_F(SearchResultListTest, AClickSelectsAndOneBetweenRowsDoesNot) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    TrySetFocus(m_other);
    Click(Container(), CentreOfRow(2));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(2));
    EXPECT_TRUE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), 2);
    Click(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(2));
}

TEST_F(SearchResultListTest, AClickOnAFieldCountsForItsRow) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    Click(Find<Label>(Row(1), "lblID"));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
}

TEST_F(SearchResultListTest, ARightClickSelectsTheRowBeforeTheMenuComes) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    StoredItemRef selected;
    int raised = 0;
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list, [&](QMenu*& menu, QAction*& defaultItem) {
        ++raised;
        EXPECT_EQ(menu, nullptr);
        EXPECT_EQ(defaultItem, nullptr);
        selected = m_list->SelectedItem();
    });
    RightClick(Container(), CentreOfRow(2));
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(selected, items->ItemAt(2));
    Click(Container(), CentreOfRow(1));
    EXPECT_EQ(raised, 1);
    RightClick(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(raised, 1);
}

TEST_F(SearchResultListTest, TheRowStaysHighlightedWhileItsMenuIsOpen) {
    m_list->SetItems(MakeItems(3));
    QMenu menu;
    QAction* open = menu.addAction("Open");
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list, [&](QMenu*& shown, QAction*& defaultItem) {
        shown = &menu;
        defaultItem = open;
    });
    int highlighted = -1;
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&] {
        QTimer::singleShot(0, &menu, [&] {
            highlighted = HighlightedRow();
            EXPECT_EQ(menu.defaultAction(), open);
            menu.close();
        });
    });
    RightClick(Container(), CentreOfRow(1));
    EXPECT_EQ(highlighted, 1);
    EXPECT_EQ(HighlightedRow(), 1);
}

TEST_F(SearchResultListTest, WithoutTheFocusNoRowIsHighlightedButTheSelectionStays) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    Press(m_list, Qt::Key_Down);
    TrySetFocus(m_other);
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), -1);
    m_list->setFocus();
    EXPECT_EQ(HighlightedRow(), 1);
    m_list->clearFocus();
    EXPECT_EQ(HighlightedRow(), -1);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
}

TEST_F(SearchResultListTest, AWindowInFrontDoesNotTakeTheHighlight) {
    m_list->SetItems(MakeItems(3));
    QWidget front;
    QWidget field(&front);
    field.setFocusPolicy(Qt::StrongFocus);
    ShowActive(front);
    field.setFocus();
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), 0);
    front.hide();
    ShowActive(m_window);
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListTest, DoubleClickAndBothEnterKeysAskToOpen) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    std::vector<StoredItemRef> opened;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list,
                     [&](const StoredItemRef& item) { opened.push_back(item); });
    DoubleClick(Container(), CentreOfRow(2));
    Press(m_list, Qt::Key_Return);
    Press(m_list, Qt::Key_Enter, Qt::KeypadModifier);
    DoubleClick(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(opened, std::vector<StoredItemRef>(3, items->ItemAt(2)));
}

TEST_F(SearchResultListTest, EnterInAnEmptyListAsksNothing) {
    m_list->SetItems(MakeItems(0));
    int raised = 0;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list, [&](const StoredItemRef&) { ++raised; });
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(m_list, &enter);
    EXPECT_EQ(raised, 0);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListTest, TheListIsOneStopInTheTabOrder) {
    m_list->SetItems(MakeItems(9));
    EXPECT_EQ(TabOrder(m_window), (std::vector<std::string>{"list", "other"}));
    Press(m_list, Qt::Key_Tab);
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), -1);
}

TEST_F(SearchResultListTest, ValidatingTheFirstRowRefusesLeftAndUpAndScrollsBack) {
    m_list->SetItems(MakeItems(9));
    Bar()->SetValue(2);
    for (const int key : {37, 38}) {
        Hold(key);
        EXPECT_TRUE(m_list->ValidateRow(0));
        EXPECT_FALSE(m_list->ValidateRow(1));
        EXPECT_FALSE(m_list->ValidateRow(3));
    }
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_TRUE(m_list->ValidateRow(0));
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(SearchResultListTest, ValidatingTheLastRowRefusesRightAndDownAndScrollsOn) {
    m_list->SetItems(MakeItems(6));
    for (const int key : {39, 40}) {
        Hold(key);
        EXPECT_TRUE(m_list->ValidateRow(3));
        EXPECT_FALSE(m_list->ValidateRow(0));
    }
    EXPECT_EQ(Bar()->Value(), 2);
    EXPECT_TRUE(m_list->ValidateRow(3));
    EXPECT_EQ(Bar()->Value(), 2);
}

TEST_F(SearchResultListTest, WithNoArrowDownTheFocusMayGo) {
    m_list->SetItems(MakeItems(9));
    SetKeyStateProbe([](int) { return false; });
    EXPECT_FALSE(m_list->ValidateRow(0));
    EXPECT_FALSE(m_list->ValidateRow(3));
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(SearchResultListTest, TabIsRefusedWhileAnArrowWouldLeaveTheFirstRow) {
    m_list->SetItems(MakeItems(9));
    Hold(38);
    Press(m_list, Qt::Key_Tab);
    EXPECT_TRUE(m_list->hasFocus());
    Hold(0);
    Press(m_list, Qt::Key_Tab);
    EXPECT_FALSE(m_list->hasFocus());
}

TEST_F(SearchResultListTest, AFailureOfAnItemReachesTheHolder) {
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    auto items = MakeItems(3);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    const Error error = RaisedBy([&] { m_list->SetItems(items); });
    EXPECT_EQ(error.Number(), 7);
    EXPECT_EQ(error.Source(), "SearchResultList.DisplayVisibleItems");
    EXPECT_EQ(error.Description(), "DisplayVisibleItems: The link is down.");
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListTest, AFailureWhileResizingIsSwallowed) {
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    m_list->SetItems(MakeItems(3));
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    SetHeightInRows(6);
    EXPECT_TRUE(faults->HasStruck());
    EXPECT_TRUE(m_screen.Messages().empty());
}

class DeadEngine : public Engine {
public:
    explicit DeadEngine(std::shared_ptr<Engine> inner) : m_inner(std::move(inner)) {}
    std::unique_ptr<Connection> Open() override { Raise(7, "Engine", "The link is down."); }
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

private:
    std::shared_ptr<Engine> m_inner;
};

TEST_F(SearchResultListTest, OneReportSpeaksForAllRowsThatCannotBeReadAnew) {
    m_list->SetItems(MakeItems(4));
    const auto engine = m_database.GetEngine();
    m_database.Install(std::make_shared<DeadEngine>(engine));
    for (int change = 1; change <= 2; ++change) {
        m_log.Announce("Engine");
        Cart()->OnChange();
        EXPECT_EQ(m_screen.TakeMessages(),
                  (std::vector<RecordingScreen::Message>{{"The link is down.", 16, "Unexpected Error"}}));
        ServeEvents();
    }
    m_database.Install(engine);
    Cart()->OnChange();
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListTest, NewItemsBeginAtTheTop) {
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

TEST_F(SearchResultListTest, InsideADesignerTheControlShowsItsName) {
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
