#include "tests/ui/items/TrackingListTest.h"

namespace quellbrook::testing {
namespace {

TEST_F(TrackingListTest, RefusesNoRecords) {
    const Error error = RaisedBy([&] { m_list->SetRecords(nullptr); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "Results cannot be Nothing");
    EXPECT_EQ(RaisedBy([&] { m_list->SetItem(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(TrackingListTest, ShowsOneRowForEachRecord) {
    const auto records = Records(3);
    m_list->SetRecords(records);
    ASSERT_EQ(m_list->Rows().size(), 3u);
    EXPECT_EQ(ShownRows(), 3);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Row(i).Item(), (*records)[i]);
        EXPECT_EQ(Row(i).geometry(), QRect(0, static_cast<int>(i) * RowPixels, 800 - Bar()->width(), RowPixels));
        EXPECT_EQ(Row(i).Index(), static_cast<int>(i));
        EXPECT_EQ(Row(i).objectName(), "searchResult");
    }
    EXPECT_EQ(Container()->Height(), 3 * TrackingResult::RowHeight);
    EXPECT_FALSE(Empty()->IsShown());
    EXPECT_FALSE(Denied()->IsShown());
}

TEST_F(TrackingListTest, ShowsTheChainOfAnItemNewestFirst) {
    const int32_t id = m_database.AddProperty();
    const int32_t locations[] = {shelf, aisle, digitalForensics, shelf};
    for (int day = 1; day <= 4; ++day)
        m_database.AddCustodyRow(StoredItemTypes::Property, id, locations[day - 1],
                                 {.DateReceived = DateTime::FromParts({2026, 1, day, 8, 0, 0, 0})});
    m_list->SetItem(FindItem(StoredItemTypes::Property, id));
    QStringList actions;
    for (const TrackingResult* row : m_list->Rows())
        actions += Find<ActionTag>(const_cast<TrackingResult&>(*row), "tagStatus")->Caption();
    EXPECT_EQ(actions, (QStringList{"Signed In", "Signed Out", "Moved", "Signed In"}));
}

TEST_F(TrackingListTest, NoRecordsShowThePanelAlone) {
    m_list->SetRecords(Records(3));
    m_list->SetRecords(Records(0));
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_EQ(m_list->Rows().size(), 1u);
    EXPECT_TRUE(Empty()->IsShown());
    EXPECT_EQ(Empty()->Title()->Caption(), "No items found.");
    EXPECT_EQ(Empty()->Sentence()->Caption(), "Check for typos in your search filter, or try a different search term.");
    EXPECT_FALSE(Denied()->IsShown());
    EXPECT_FALSE(Bar()->IsShown());
}

TEST_F(TrackingListTest, WithoutTheRightNoRowIsBuilt) {
    m_session->Revoke(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_list->SetRecords(Records(12));
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_EQ(m_list->Rows().size(), 1u);
    EXPECT_EQ(Row(0).Item(), nullptr);
    EXPECT_TRUE(Denied()->IsShown());
    EXPECT_EQ(Denied()->Title()->Caption(), "You can't view this data.");
    EXPECT_EQ(Denied()->Sentence()->Caption(),
              "You do not have the appropriate permissions to view chain-of-custody information.");
    EXPECT_FALSE(Empty()->IsShown());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(TrackingListTest, WithoutTheRightTheContainerIsAsHighAsTheView) {
    m_list->SetRecords(Records(30));
    m_session->Revoke(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_list->SetRecords(Records(30));
    EXPECT_EQ(Container()->Height(), m_list->ClientHeight());
}

TEST_F(TrackingListTest, WithoutTheRightAndWithoutRecordsBothPanelsOverlap) {
    m_session->Revoke(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_list->SetRecords(Records(0));
    EXPECT_TRUE(Denied()->IsShown());
    EXPECT_TRUE(Empty()->IsShown());
    EXPECT_EQ(Denied()->geometry(), Empty()->geometry());
    m_session->Grant(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_list->SetRecords(Records(2));
    EXPECT_FALSE(Denied()->IsShown());
    EXPECT_EQ(ShownRows(), 2);
}

TEST_F(TrackingListTest, PanelsAreCenteredAtEverySize) {
    for (const QSize& size : {QSize(500, 300), QSize(850, 600)}) {
        Resize(size.width(), size.height());
        for (const StatePanel* panel : {Empty(), Denied()}) {
            EXPECT_EQ(panel->Left(), m_list->Width() / 2 - panel->Width() / 2);
            EXPECT_EQ(panel->Top(), m_list->Height() / 2 - panel->Height() / 2);
        }
    }
}

TEST_F(TrackingListTest, ALongChainAppearsTenRowsAtATime) {
    Show(Records(30));
    Bar()->SetValue(Bar()->Max());
    m_list->SetRecords(Records(25));
    EXPECT_EQ(Container()->Top(), 0);
    std::vector<int> seen;
    for (;; ServeEvents()) {
        if (seen.empty() || seen.back() != ShownRows()) seen.push_back(ShownRows());
        const float height = static_cast<float>(ShownRows()) * TrackingResult::RowHeight;
        EXPECT_EQ(Container()->Height(), height);
        EXPECT_EQ(static_cast<float>(Bar()->Max()), height - m_list->Height());
        if (ShownRows() == 25) break;
    }
    EXPECT_EQ(seen, (std::vector<int>{10, 20, 25}));
}

TEST_F(TrackingListTest, AChainThatIsSetDuringABuildReplacesIt) {
    const auto fresh = Records(3);
    m_list->SetRecords(Records(25));
    m_list->SetRecords(fresh);
    for (int turn = 0; turn < 4; ++turn) ServeEvents();
    ASSERT_EQ(m_list->Rows().size(), 3u);
    for (size_t i = 0; i < 3; ++i) EXPECT_EQ(Row(i).Item(), (*fresh)[i]);
    EXPECT_EQ(ShownRows(), 3);
    EXPECT_EQ(Container()->Height(), 3 * TrackingResult::RowHeight);
    EXPECT_FALSE(Bar()->IsShown());
}

TEST_F(TrackingListTest, WithoutTheRightABuildEnds) {
    m_list->SetRecords(Records(25));
    m_session->Revoke(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_list->SetRecords(Records(25));
    for (int turn = 0; turn < 4; ++turn) ServeEvents();
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_TRUE(Denied()->IsShown());
}

TEST_F(TrackingListTest, AListDestroyedDuringABuildEndsIt) {
    auto* list = new TrackingList;
    const auto records = Records(25);
    list->SetRecords(records);
    delete list;
    ServeEvents();
    EXPECT_EQ(records.use_count(), 1);
}

TEST_F(TrackingListTest, ARecordThatFailsInALaterTurnLeavesNoPartOfTheChain) {
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    std::vector<std::string> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Description()); };
    auto records = std::make_shared<TrackingRecordList>(*Records(14));
    auto unreadable = std::make_shared<TrackingRecord>();
    unreadable->SetRow(Row::Of({{"SeqNo", 1},
                                {"ReceivedBy", 11},
                                {"ReceivedFrom", Null()},
                                {"DateReceived", Null()},
                                {"CustodyReasonNo", Null()},
                                {"StorageLocNo", Null()}}));
    records->push_back(unreadable);
    m_list->SetRecords(records);
    EXPECT_EQ(ShownRows(), 10);
    m_database.Install(faults);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    for (int turn = 0; turn < 4; ++turn) ServeEvents();
    EXPECT_EQ(reported, std::vector<std::string>{"The link is down."});
    EXPECT_EQ(ShownRows(), 0);
    EXPECT_EQ(m_list->Rows().size(), 1u);
    EXPECT_FALSE(Bar()->IsShown());
    EXPECT_FALSE(Empty()->IsShown());
}

TEST_F(TrackingListTest, AFailureOfARecordIsRethrown) {
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    auto record = std::make_shared<TrackingRecord>();
    record->SetRow(Row::Of({{"SeqNo", 1},
                            {"ReceivedBy", 11},
                            {"ReceivedFrom", 12},
                            {"DateReceived", Null()},
                            {"CustodyReasonNo", 1},
                            {"StorageLocNo", Null()}}));
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    const Error error =
        RaisedBy([&] { m_list->SetRecords(std::make_shared<TrackingRecordList>(TrackingRecordList{record})); });
    EXPECT_EQ(error.Description(), "The link is down.");
    m_list->SetRecords(Records(2));
    EXPECT_EQ(ShownRows(), 2);
}

TEST_F(TrackingListTest, AChainThatFitsExactlyNeedsNoBar) {
    Resize(800, 4 * RowPixels);
    m_list->SetRecords(Records(4));
    EXPECT_FALSE(Bar()->IsShown());
}

TEST_F(TrackingListTest, AnOverflowOfLessThanARowScrollsByTheTwip) {
    Resize(800, 4 * RowPixels - 30);
    m_list->SetRecords(Records(4));
    EXPECT_TRUE(Bar()->IsShown());
    EXPECT_EQ(Bar()->Min(), 0);
    EXPECT_EQ(Bar()->Max(), 450);
    EXPECT_EQ(Bar()->SmallChange(), 1);
    EXPECT_EQ(Bar()->LargeChange(), 112);
    EXPECT_EQ(Bar()->geometry(), QRect(800 - Bar()->width(), 0, Bar()->width(), 4 * RowPixels - 30));
}

TEST_F(TrackingListTest, AnOverflowOfOneRowScrollsByTheRow) {
    Resize(800, 4 * RowPixels);
    m_list->SetRecords(Records(5));
    EXPECT_EQ(Bar()->Max(), 1140);
    EXPECT_EQ(Bar()->SmallChange(), 1140);
    EXPECT_EQ(Bar()->LargeChange(), 1140);
}

TEST_F(TrackingListTest, ALargerOverflowScrollsByTheRow) {
    Show(Records(12));
    EXPECT_EQ(Bar()->Max(), 12 * 1140 - 400 * 15);
    EXPECT_EQ(Bar()->SmallChange(), 1140);
    EXPECT_EQ(Bar()->LargeChange(), 1140);
    Bar()->SetValue(1500);
    EXPECT_EQ(Container()->Top(), -1500);
    Bar()->Bar()->setSliderPosition(3000);
    EXPECT_EQ(Container()->Top(), -3000);
}

TEST_F(TrackingListTest, TheRangeEndsAtSixteenBits) {
    Show(Records(60));
    EXPECT_EQ(Bar()->Max(), 32767);
}

TEST_F(TrackingListTest, ANewChainStartsAtTheTop) {
    Show(Records(12));
    Bar()->SetValue(3000);
    Show(Records(11));
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_EQ(Container()->Top(), 0);
    EXPECT_EQ(Bar()->Max(), 11 * 1140 - 400 * 15);
}

TEST_F(TrackingListTest, AScrolledListThatGrowsUntilAllFitsStartsAtTheTop) {
    m_list->SetRecords(Records(8));
    Bar()->SetValue(Bar()->Max());
    Resize(800, 8 * RowPixels);
    EXPECT_FALSE(Bar()->IsShown());
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_EQ(Container()->Top(), 0);
}

TEST_F(TrackingListTest, TheThumbCoversTheShareThatIsVisible) {
    Show(Records(12));
    const QImage bar = Grab(*Bar());
    int thumb = 0;
    for (int y = 0; y < 400; ++y) thumb += PixelAt(bar, QPoint(8, y)) == Theme::Get(Theme::Color::Thumb);
    const int track = 400 - 2 * Bar()->width();
    EXPECT_NEAR(thumb, track * 400 / (12 * RowPixels), 4);
}

TEST_F(TrackingListTest, EndAndHomeGoToTheLastAndTheFirstRow) {
    Show(Records(12));
    Row(3).setFocus();
    Press(Qt::Key_End);
    EXPECT_TRUE(Row(11).hasFocus());
    EXPECT_EQ(Bar()->Value(), Bar()->Max());
    Bar()->SetValue(0);
    Press(Qt::Key_End);
    EXPECT_EQ(Bar()->Value(), Bar()->Max()) << "the focus was there before";
    Press(Qt::Key_Home);
    EXPECT_TRUE(Row(0).hasFocus());
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(TrackingListTest, PageKeysMoveByTheWholeRowsAndStopAtTheEnds) {
    Show(Records(12));
    Row(0).setFocus();
    for (const size_t row : {5, 10, 11, 11}) {
        Press(Qt::Key_PageDown);
        EXPECT_TRUE(Row(row).hasFocus()) << row;
    }
    EXPECT_EQ(Bar()->Value(), Bar()->Max());
    for (const size_t row : {6, 1, 0, 0}) {
        Press(Qt::Key_PageUp);
        EXPECT_TRUE(Row(row).hasFocus()) << row;
    }
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(TrackingListTest, RowsFollowTheWidthWithOrWithoutABar) {
    m_list->SetRecords(Records(3));
    for (const int width : {500, 870}) {
        Resize(width, 300);
        EXPECT_EQ(Container()->width(), width - Bar()->width());
        for (const TrackingResult* row : m_list->Rows()) EXPECT_EQ(row->width(), width - Bar()->width());
    }
    m_list->SetRecords(Records(5));
    EXPECT_EQ(Row(4).width(), 870 - Bar()->width());
}

}  // namespace
}  // namespace quellbrook::testing
