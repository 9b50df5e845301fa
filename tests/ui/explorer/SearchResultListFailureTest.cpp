#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/ui/explorer/SearchResultListTest.h"
#include "ui/platform/Guard.h"

#include <QPointer>

#include <functional>

namespace quellbrook::testing {
namespace {

// A list of which some items, counted from 0, cannot be read.
class UnreadableItems : public ItemVector {
public:
    explicit UnreadableItems(const ItemVector& items) : ItemVector(items) {}
    std::function<bool(int32_t)> unreadable;
    StoredItemRef ItemAt(int32_t index) const override {
        if (unreadable && unreadable(index)) Raise(7, "UnreadableItems", "The link is down.");
        return ItemVector::ItemAt(index);
    }
};

class DeadEngine : public Engine {
public:
    explicit DeadEngine(std::shared_ptr<Engine> inner) : m_inner(std::move(inner)) {}
    std::unique_ptr<Connection> Open() override { Raise(7, "Engine", "The link is down."); }
    bool WasCommitted(const std::string&) override { Raise(7, "Engine", "The link is down."); }
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

private:
    std::shared_ptr<Engine> m_inner;
};

class SearchResultListFailureTest : public SearchResultListTest {
protected:
    void RecordReports() {
        m_environment->reportUnexpected = [this](const Error& error) { m_reported.push_back(error.Description()); };
    }
    // Makes the next statement fail.
    void FailNext() {
        const auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(faults);
        faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    }

    // The positions of the shown rows. Each shows the item of its position.
    std::vector<int> ShownPositions(const StoredItemList& items) {
        std::vector<int> shown;
        for (int i = 0; i < static_cast<int>(m_list->Rows().size()); ++i) {
            SearchResultRow& row = Row(static_cast<size_t>(i));
            if (!row.IsShown()) continue;
            shown.push_back(i);
            const int32_t index = m_list->FirstVisibleIndex() + i;
            EXPECT_EQ(row.geometry().top(), i * RowPixels);
            EXPECT_EQ(row.Tag().toInt(), index);
            EXPECT_EQ(row.Item(), items.ItemAt(index - 1));
            EXPECT_EQ(Find<Label>(row, "lblID")->Caption().toStdString(), row.Item()->DisplayID());
        }
        return shown;
    }

    std::vector<std::string> m_reported;
};

TEST_F(SearchResultListFailureTest, AFailureOfAnItemReachesTheParent) {
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

TEST_F(SearchResultListFailureTest, AFailureWhileResizingIsSwallowed) {
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    m_list->SetItems(MakeItems(3));
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    SetHeightInRows(6);
    EXPECT_TRUE(faults->HasStruck());
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_EQ(TakeDebugMessages(), QStringList{"UserControl_Resize: DisplayVisibleItems: The link is down."});
}

TEST_F(SearchResultListFailureTest, AFailureWhileAScrolledListGrowsIsSwallowed) {
    RecordReports();
    const auto items = std::make_shared<UnreadableItems>(*MakeItems(20));
    m_list->SetItems(items);
    Bar()->SetValue(Bar()->Max());
    items->unreadable = [](int32_t) { return true; };
    SetHeightInRows(8);
    EXPECT_TRUE(m_reported.empty());
    items->unreadable = nullptr;
    SetHeightInRows(4);
    ExpectRowsInOrder(*items);
}

TEST_F(SearchResultListFailureTest, OnlyOneRowReportsThatItemsCannotBeRefreshed) {
    m_list->SetItems(MakeItems(4));
    const auto engine = m_database.GetEngine();
    m_database.Install(std::make_shared<DeadEngine>(engine));
    for (int change = 1; change <= 2; ++change) {
        m_log.Announce("Engine");
        Guard([] { Cart()->OnChange(); });
        EXPECT_EQ(m_screen.TakeMessages(),
                  (std::vector<RecordingScreen::Message>{{"The link is down.", 16, "Unexpected Error"}}));
        ServeEvents();
    }
    m_database.Install(engine);
    Cart()->OnChange();
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListFailureTest, ARowThatCannotBeReadWhileScrollingIsHiddenUntilTheNextScroll) {
    RecordReports();
    auto items = MakeItems(9);
    m_list->SetItems(items);
    int requests = 0;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list, [&](const StoredItemRef&) { ++requests; });
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list, [&](QMenu*&, QAction*&) { ++requests; });
    FailNext();
    Bar()->SetValue(1);
    EXPECT_EQ(m_reported, std::vector<std::string>{"DisplayVisibleItems: The link is down."});
    EXPECT_EQ(ShownPositions(*items), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(HighlightedRow(), -1) << "the selected item is above the first row";
    DoubleClick(Container(), CenterOfRow(3));
    RightClick(Container(), CenterOfRow(3));
    EXPECT_EQ(requests, 0);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    Bar()->SetValue(2);
    EXPECT_EQ(ShownPositions(*items), (std::vector<int>{0, 1, 2, 3}));
    Bar()->SetValue(0);
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListFailureTest, AFirstRowThatCannotBeReadLeavesTheOthersInPlace) {
    RecordReports();
    auto items = MakeItems(9);
    m_list->SetItems(items);
    Press(m_list, Qt::Key_Down);
    Bar()->SetValue(5);
    Bar()->SetValue(2);
    FailNext();
    Bar()->SetValue(1);
    EXPECT_EQ(m_reported.size(), 1u);
    EXPECT_EQ(ShownPositions(*items), (std::vector<int>{1, 2, 3}));
    int opened = 0;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list, [&](const StoredItemRef&) { ++opened; });
    Press(m_list, Qt::Key_Return);
    EXPECT_EQ(opened, 0);
    Click(Container(), CenterOfRow(0));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
    EXPECT_EQ(HighlightedRow(), -1);
    Press(m_list, Qt::Key_Up);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
    EXPECT_EQ(ShownPositions(*items), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListFailureTest, ARowThatCannotBeReadIsNotSelectedByAKeyAndTheKeyTriesAgain) {
    RecordReports();
    for (const auto key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End}) {
        SCOPED_TRACE(key);
        m_reported.clear();
        m_database.Install(m_database.GetEngine());
        const auto items = MakeItems(9);
        m_list->SetItems(items);
        for (int i = 0; i < 3; ++i) Press(m_list, Qt::Key_Down);
        FailNext();
        Press(m_list, key);
        EXPECT_EQ(m_reported.size(), 1u);
        EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(3));
        Press(m_list, key);
        EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(key == Qt::Key_Down ? 4 : key == Qt::Key_End ? 8 : 7));
    }
}

TEST_F(SearchResultListFailureTest, AfterAJumpTheRowsThatWereReadStay) {
    RecordReports();
    const auto items = std::make_shared<UnreadableItems>(*MakeItems(30));
    m_list->SetItems(items);
    items->unreadable = [](int32_t index) { return index == 13; };
    Bar()->SetValue(12);
    EXPECT_EQ(m_reported.size(), 1u);
    items->unreadable = nullptr;
    EXPECT_EQ(ShownPositions(*items), std::vector<int>{0});
    EXPECT_EQ(HighlightedRow(), -1);
}

TEST_F(SearchResultListFailureTest, ItemsThatCannotBeReadAreNotSelected) {
    int opened = 0;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list, [&](const StoredItemRef&) { ++opened; });
    m_list->SetItems(MakeItems(9));
    const SearchResultList::Place place = m_list->CurrentPlace();
    FailNext();
    EXPECT_EQ(RaisedBy([&] { m_list->SetItems(MakeItems(9)); }).Number(), 7);
    EXPECT_EQ(ShownRows(), 0);
    m_list->Restore(place);
    m_list->setFocus();
    for (const auto key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Return}) Press(m_list, key);
    Click(Container(), CenterOfRow(0));
    DoubleClick(Container(), CenterOfRow(0));
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(RaisedBy([&] { m_list->SelectedItem(); }).Number(), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(SearchResultListFailureTest, ANotchOfTheWheelReportsAnOutageOnce) {
    RecordReports();
    m_list->SetItems(MakeItems(30));
    m_database.Install(std::make_shared<DeadEngine>(m_database.GetEngine()));
    Turn(Container(), -120);
    EXPECT_EQ(m_reported.size(), 1u);
}

TEST_F(SearchResultListFailureTest, TheListMayBeDestroyedWhileAFailedScrollIsReported) {
    const std::vector<std::function<void()>> scrolls = {
        [this] { Press(m_list, Qt::Key_Down); },
        [this] { Press(m_list, Qt::Key_PageDown); },
        [this] { Press(m_list, Qt::Key_End); },
        [this] { Turn(Container(), -120); },
    };
    for (const auto& scroll : scrolls) {
        m_database.Install(m_database.GetEngine());
        m_list->SetItems(MakeItems(30));
        for (int i = 0; i < 3; ++i) Press(m_list, Qt::Key_Down);
        const QPointer<SearchResultList> list(m_list);
        m_environment->reportUnexpected = [list](const Error&) { delete list; };
        FailNext();
        scroll();
        EXPECT_EQ(list, nullptr);
        MakeList();
    }
}

}  // namespace
}  // namespace quellbrook::testing
