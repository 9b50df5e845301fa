#include "tests/ui/items/CartViewTest.h"

#include "core/ActionTypes.h"
#include "tests/support/Callbacks.h"
#include "tests/support/FaultInjectingEngine.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/explorer/SearchResultRow.h"

namespace quellbrook::testing {
namespace {

const RecordingScreen::Message NoItems = {
    "You have no items to transfer.\r\n\r\nAfter clicking OK, you can either scan your items with a barcode "
    "scanner, or go back to the main screen to select items manually.",
    16, "No items to transfer"};
const RecordingScreen::Message NoDestination = {"Please specify where this evidence is going.", 16,
                                                "Missing destination"};
const RecordingScreen::Message NoGiver = {"Please specify the officer or employee who is transferring this evidence.",
                                          16, "Missing transferring officer/employee"};
const RecordingScreen::Message NoTaker = {"Please specify the officer or employee who is receiving this evidence.", 16,
                                          "Missing receiving officer/employee"};
const RecordingScreen::Message NoReason = {"Please indicate why this evidence is being transferred.", 16,
                                           "Missing transfer reason"};
const RecordingScreen::Message CancelQuestion = {"Are you sure you want to cancel this evidence transfer?", 36,
                                                 "Cancel evidence transfer?"};

TEST_F(CartViewTest, AnEmptyBatchIsReportedAndTheFocusLeftAlone) {
    BeginSignOut();
    GetActions().BulkRemoveFromCart(ListOf({m_laptop, m_bar}));
    Reason()->Box()->setFocus();
    const QWidget* before = QApplication::focusWidget();
    ASSERT_NE(before, nullptr);
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoItems});
    EXPECT_EQ(QApplication::focusWidget(), before);
    EXPECT_TRUE(IsCurrent());
}

TEST_F(CartViewTest, FaultsAreReportedInOrderAndTheFieldGetsTheFocus) {
    BeginSignOut();
    const std::string before = m_database.Snapshot();
    Transfer()->setFocus();
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoDestination});
    EXPECT_TRUE(HasFocus(Destination()));

    Destination()->SetSelectedLocation(GetStores().Locations->GetLocation(crimeLab));
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoGiver});
    EXPECT_TRUE(HasFocus(From()));

    From()->SetValue(11);
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoTaker});
    EXPECT_TRUE(HasFocus(By()));

    By()->SetValue(11);
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoReason});
    EXPECT_TRUE(HasFocus(Reason()));
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_TRUE(IsCurrent());
}

TEST_F(CartViewTest, ATypedDestinationThatWasNotChosenIsNotTransferredToTheOneOfBefore) {
    BeginSignOut();
    FillForm(crimeLab);
    const std::string before = m_database.Snapshot();
    const auto clickTransfer = [this] {
        QTest::mouseClick(m_window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          m_window.mapFromGlobal(Transfer()->mapToGlobal(Transfer()->rect().center())));
        ServeEvents();
    };
    for (const char* text : {"forensics", "nowhere"}) {
        Destination()->setFocus(Qt::TabFocusReason);
        SendText(m_window, text);
        Destination()->findChild<FlatDropdown*>()->List()->hide();  // as the press does on a real platform
        clickTransfer();
        EXPECT_EQ(m_screen.TakeMessages(), Messages{NoDestination}) << text;
        EXPECT_EQ(m_database.Snapshot(), before) << text;
        EXPECT_TRUE(IsCurrent());
    }
    EXPECT_EQ(Destination()->SelectedLocation()->ID(), crimeLab);
    clickTransfer();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{});
    EXPECT_NE(m_database.Snapshot(), before);
}

TEST_F(CartViewTest, ATransferWritesOneRowForEachItemAndGoesBack) {
    const StoredItemRef car = AddVehicle("KTR4821", shelf);
    Begin(TransactionType::SignOut, {m_bar, car});
    FillForm(digitalForensics);
    m_clock.Set(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}));
    Transfer()->Click();
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_TRUE(Cart()->IsEmpty());

    const auto written = [&](const std::string& table, const StoredItemRef& item) {
        const RowList rows = m_database.QueryRows("SELECT * FROM " + table + "Tracking WHERE " + table +
                                                  "No = " + std::to_string(item->ID()) + " ORDER BY SeqNo");
        ASSERT_EQ(rows.size(), 2u) << table;
        const Row& row = rows.back();
        EXPECT_EQ(ToInt32(row.Value("SeqNo")), 2);
        EXPECT_EQ(ToInt32(row.Value("ReceivedFrom")), 11);
        EXPECT_EQ(ToInt32(row.Value("ReceivedBy")), 12);
        EXPECT_EQ(ToText(row.Value("DateReceived")), "2026-11-20T13:14:15.123");
        EXPECT_EQ(ToText(row.Value("LastUpdated")), "2026-11-20T13:14:15.123");
        EXPECT_EQ(ToInt32(row.Value("CustodyReasonNo")), 2);
        EXPECT_EQ(ToInt32(row.Value("StorageLocNo")), digitalForensics);
        EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT CurrTrackSeq FROM " + table + " WHERE " + table +
                                                "No = " + std::to_string(item->ID()))),
                  2);
    };
    written("Property", m_bar);
    written("Vehicle", car);
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking WHERE PropertyNo = " +
                                            std::to_string(m_laptop->ID()))),
              1);
}

TEST_F(CartViewTest, TheSameOfficerMayTransferAndReceive) {
    BeginSignOut();
    FillForm(crimeLab);
    By()->SetValue(11);
    Transfer()->Click();
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_FALSE(IsCurrent());
}

TEST_F(CartViewTest, AFailedTransferMovesNothingClearsTheBatchAndGoesBack) {
    BeginSignOut();
    FillForm(crimeLab);
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    const std::string before = m_database.Snapshot();
    std::string reported;
    struct Listener : DispatcherCallback {
        std::string* reported = nullptr;
        void Handle(const Action& action) override {
            if (action.ActionType == ActionTypes::CART_TRANSACTION_FAILED) *reported = ToText(action.Payload);
        }
        std::string CallbackTypeName() const override { return "Listener"; }
    };
    auto listener = std::make_shared<Listener>();
    listener->reported = &reported;
    GetDispatcher()->Register(listener);
    faults->FailAtCommit(Error(7, "Engine", "The link is down."));
    m_log.Announce("Actions.ProcessTransaction");
    Transfer()->Click();
    EXPECT_TRUE(faults->HasStruck());
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_EQ(reported, "The link is down.");
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, ADestinationThatHasGotAnotherCategorySinceTheViewOfferedItIsRefused) {
    BeginSignOut();
    FillForm(digitalForensics);
    m_database.Execute("UPDATE StorageLocation SET Type = 8, Path = '/0/' WHERE IdNo = ?", {digitalForensics});
    GetStorageLocationStatic().Refresh();
    const std::string before = m_database.Snapshot();
    const auto seen = std::make_shared<RecordingCallback>();
    GetDispatcher()->Register(seen);
    m_log.Announce("Actions.ProcessTransaction");
    Transfer()->Click();
    EXPECT_EQ(m_database.Snapshot(), before);
    ASSERT_EQ(seen->Types().at(3), ActionTypes::CART_TRANSACTION_FAILED);
    EXPECT_NE(ToText(seen->actions[3].Payload).find("has been moved to 'Final Disposition'."), std::string::npos);
}

TEST_F(CartViewTest, AnErrorBeforeTheTransferIsReportedAndTheViewStays) {
    Begin(7, {m_laptop});
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(),
              (Messages{{"An unexpected error occurred while transferring these items. No items were moved in the "
                         "system.\r\n\r\nlocationField has not been loaded yet. Call LoadLocations first.",
                         16, "Unexpected error"}}));
    EXPECT_TRUE(IsCurrent());
    EXPECT_FALSE(Cart()->IsEmpty());
    EXPECT_EQ(Text("lblItemCount"), " (1)");
}

TEST_F(CartViewTest, AFailureToGoBackAfterATransferDoesNotDenyIt) {
    BeginSignOut();
    FillForm(crimeLab);
    int changes = 0;
    const Subscription failing = GetStores().View->OnChange.connect([&] {
        ++changes;
        Raise(7, "View", "The view is gone.");
    });
    m_log.Announce("Dispatcher");
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error executing callback 'ViewStore': The view is gone.", 16, "Unexpected Error"));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking WHERE SeqNo = 2")), 2);
}

TEST_F(CartViewTest, CancelAnsweredWithYesEmptiesTheBatchAndGoesBack) {
    BeginSignOut();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Cancel());
    EXPECT_EQ(m_screen.TakeMessages(), Messages{CancelQuestion});
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_FALSE(IsCurrent());
}

TEST_F(CartViewTest, CancelAnsweredWithNoGoesBackAndKeepsTheBatch) {
    BeginSignOut();
    SearchResultRow elsewhere;
    elsewhere.SetItem(m_laptop);
    m_screen.AnswerNext(MessageAnswer::No);
    Click(Cancel());
    EXPECT_EQ(m_screen.TakeMessages(), Messages{CancelQuestion});
    EXPECT_FALSE(IsCurrent());
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::SignOut);
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(elsewhere.InCart());
}

TEST_F(CartViewTest, CloseGoesBackAndKeepsTheBatch) {
    BeginSignOut();
    Click(Named("lnkClose"));
    EXPECT_FALSE(IsCurrent());
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, TheViewCanBeDestroyedBehindAMessage) {
    BeginSignOut();
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) { delete m_view; };
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoDestination});
}

TEST_F(CartViewTest, AViewThatIsDestroyedBehindItsQuestionDoesNotGoBack) {
    BeginSignOut();
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) { delete m_view; };
    m_screen.AnswerNext(MessageAnswer::No);
    Click(Cancel());
    EXPECT_EQ(m_screen.TakeMessages(), Messages{CancelQuestion});
    EXPECT_TRUE(IsCurrent());
}

TEST_F(CartViewTest, AViewThatIsDestroyedDuringATransferDoesNotGoBack) {
    BeginSignOut();
    FillForm(crimeLab);
    const Subscription changed = Cart()->OnChange.connect([&] { delete std::exchange(m_view, nullptr); });
    Transfer()->Click();
    EXPECT_TRUE(m_screen.TakeMessages().empty());
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_TRUE(IsCurrent());
}

}  // namespace
}  // namespace quellbrook::testing
