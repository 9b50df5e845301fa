#include "ui/items/CartView.h"

#include "core/ActionTypes.h"
#include "core/Actions.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/explorer/SearchResultRow.h"
#include "ui/locations/LocationPicker.h"
#include "ui/platform/Twips.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QTimer>

namespace quellbrook::testing {
namespace {

using Messages = std::vector<RecordingScreen::Message>;

class CartViewTest : public SmallDepartment {
protected:
    CartViewTest() {
        m_laptop = AddProperty("2026-0417-03", "Laptop computer", shelf);
        AddProperty("E-0", "never in a batch", shelf);
        m_bar = AddProperty("2026-0417-02", "Pry bar", aisle, 6);
        m_window.resize(1280, 760);
        m_view = new CartView(&m_window);
        m_view->setObjectName("cart");
        m_view->Move(0, 0, ToTwips(1280), ToTwips(760));
        GetActions().NavigateTo(ViewNames::Explorer, nullptr);
        GetActions().NavigateTo(ViewNames::Cart, nullptr);
    }

    void Begin(int32_t type, std::initializer_list<ObjectRef> items) {
        GetActions().BeginTransaction(type, ListOf(items));
        ShowActive(m_window);
    }
    void BeginSignOut() { Begin(TransactionType::SignOut, {m_laptop, m_bar}); }

    TessarineDropdown* From() { return Find<TessarineDropdown>(*m_view, "receivedFromField"); }
    TessarineDropdown* By() { return Find<TessarineDropdown>(*m_view, "receivedByField"); }
    TessarineDropdown* Reason() { return Find<TessarineDropdown>(*m_view, "reasonField"); }
    LocationPicker* Destination() { return Find<LocationPicker>(*m_view, "locationField"); }
    SearchResultList* List() { return Find<SearchResultList>(*m_view, "itemList"); }
    FlatButton* Transfer() { return Find<FlatButton>(*m_view, "btnTransfer"); }
    FlatButton* Cancel() { return Find<FlatButton>(*m_view, "btnCancel"); }
    Control* Named(const char* name) { return Find<Control>(*m_view, name); }
    QString Text(const char* name) { return Find<Label>(*m_view, name)->Caption(); }
    QAction* Entry(const char* name) { return Find<QMenu>(*m_view, "mnuItems")->findChild<QAction*>(name); }

    void FillForm(int32_t destination) {
        From()->SetValue(11);
        By()->SetValue(12);
        Destination()->SetSelectedLocation(GetStores().Locations->GetLocation(destination));
        Reason()->SetValue(2);
    }

    QStringList Offered() {
        const auto* box = Destination()->findChild<QComboBox*>();
        QStringList texts;
        for (int i = 0; i < box->count(); ++i) texts += box->itemText(i);
        return texts;
    }

    bool HasFocus(const QWidget* control) {
        const QWidget* focused = QApplication::focusWidget();
        return focused && (focused == control || control->isAncestorOf(focused));
    }
    bool IsOnShow() { return GetStores().View->ViewName() == ViewNames::Cart; }

    QWidget m_window;
    CartView* m_view = nullptr;
    StoredItemRef m_laptop;
    StoredItemRef m_bar;
};

struct TypeCase {
    int32_t type;
    const char* title;
    const char* button;
    QStringList offered;
};

TEST_F(CartViewTest, TitleButtonAndDestinationsFollowTheTransaction) {
    const QStringList storage = {"(None)", "Property Room", "Property Room » Aisle 3",
                                 "Property Room » Aisle 3 » Shelf B"};
    const TypeCase cases[] = {
        {TransactionType::SignOut,
         "Sign Out Evidence",
         "Sign Out",
         {"(None)", "Crime Lab", "Crime Lab » Digital Forensics"}},
        {TransactionType::SignIn, "Sign In Evidence", "Sign In", storage},
        {TransactionType::Move, "Move Evidence", "Move", storage},
        {TransactionType::Dispose, "Dispose Evidence", "Dispose", {"(None)", "Returned to Owner"}}};
    EXPECT_EQ(Text("lblTitle"), "Transfer Evidence");
    EXPECT_EQ(Transfer()->Caption(), "Transfer");
    for (const TypeCase& expected : cases) {
        Begin(expected.type, {m_laptop});
        EXPECT_EQ(Text("lblTitle"), expected.title);
        EXPECT_EQ(Transfer()->Caption(), expected.button);
        EXPECT_EQ(Offered(), expected.offered);
        GetActions().CancelTransaction();
    }
}

TEST_F(CartViewTest, AnyOtherTypeLeavesTitleButtonAndPickerAsTheyAre) {
    Begin(7, {m_laptop});
    EXPECT_EQ(Text("lblTitle"), "Transfer Evidence");
    EXPECT_EQ(Transfer()->Caption(), "Transfer");
    EXPECT_TRUE(Destination()->IsEmpty());
    EXPECT_EQ(Text("lblItemCount"), " (1)");
}

TEST_F(CartViewTest, TheSentenceStandsInItsOrder) {
    BeginSignOut();
    const char* lines[] = {"Label4", "receivedFromField", "Label3", "receivedByField",
                           "Label2", "locationField",     "Label1", "reasonField"};
    for (size_t i = 1; i < std::size(lines); ++i)
        EXPECT_GT(Named(lines[i])->Top(), Named(lines[i - 1])->Top()) << lines[i];
    EXPECT_EQ(Text("Label4"), "This evidence is being transferred from");
    EXPECT_EQ(Text("Label3"), "into the custody of");
    EXPECT_EQ(Text("Label2"), "and will be going to");
    EXPECT_EQ(Text("Label1"), "for the purpose of");
    EXPECT_EQ(Text("lblListCaption"), "Items in this batch");
    EXPECT_EQ(Cancel()->Caption(), "Cancel");
    EXPECT_TRUE(Cancel()->Inverted());
    EXPECT_FALSE(Transfer()->Inverted());
    EXPECT_EQ(From()->TableNumber(), 9999);
    EXPECT_EQ(By()->TableNumber(), 9999);
    EXPECT_EQ(Reason()->TableNumber(), 38);
}

TEST_F(CartViewTest, ListsTheBatchWithItsCount) {
    BeginSignOut();
    EXPECT_EQ(Text("lblItemCount"), " (2)");
    EXPECT_EQ(List()->Rows()[0]->Item(), m_laptop);
    EXPECT_EQ(List()->Rows()[1]->Item(), m_bar);
    EXPECT_TRUE(List()->Rows()[0]->InCart());
}

TEST_F(CartViewTest, TheFirstShowRefreshesAndLaterOnesDoNot) {
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({m_laptop}));
    ShowActive(m_window);
    FillForm(crimeLab);
    m_view->hide();
    m_view->show();
    EXPECT_EQ(From()->Value(), TaggedValue(11));
    EXPECT_NE(Destination()->SelectedLocation(), nullptr);
}

TEST_F(CartViewTest, AFirstShowWithoutATransactionShowsAnEmptyBatch) {
    ShowActive(m_window);
    EXPECT_EQ(Text("lblTitle"), "Transfer Evidence");
    EXPECT_EQ(Text("lblItemCount"), " (0)");
    EXPECT_TRUE(Named("picNoResults")->IsShown());
}

TEST_F(CartViewTest, AChangeOfTheStoreReplacesWhatWasChosen) {
    BeginSignOut();
    FillForm(crimeLab);
    GetActions().RemoveFromCart(m_bar);
    EXPECT_EQ(Text("lblItemCount"), " (1)");
    EXPECT_TRUE(From()->Value().HasNoValue());
    EXPECT_TRUE(By()->Value().HasNoValue());
    EXPECT_TRUE(Reason()->Value().HasNoValue());
    EXPECT_EQ(Destination()->SelectedLocation(), nullptr);
}

TEST_F(CartViewTest, TheStoresTransferDataFillsTheForm) {
    BeginSignOut();
    auto details = std::make_shared<TransferData>();
    details->ReceivedFrom = 12;
    details->ReceivedBy = 11;
    details->Reason = 1;
    details->Location = GetStores().Locations->GetLocation(digitalForensics);
    GetActions().SetTransferData(details);
    EXPECT_EQ(From()->Value(), TaggedValue(12));
    EXPECT_EQ(By()->Value(), TaggedValue(11));
    EXPECT_EQ(Reason()->Value(), TaggedValue(1));
    EXPECT_EQ(Destination()->SelectedLocation()->ID(), digitalForensics);
}

TEST_F(CartViewTest, WithoutATransactionAChangeLeavesTheViewAsItStands) {
    BeginSignOut();
    FillForm(crimeLab);
    GetActions().CancelTransaction();
    EXPECT_EQ(Text("lblTitle"), "Sign Out Evidence");
    EXPECT_EQ(Text("lblItemCount"), " (2)");
    EXPECT_EQ(From()->Value(), TaggedValue(11));
}

TEST_F(CartViewTest, AFailureWhileFollowingTheStoreStaysInTheView) {
    BeginSignOut();
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    int served = 0;
    const Subscription later = Cart()->OnChange.connect([&] { ++served; });
    faults->FailAtStatement(3, Error(7, "Engine", "The link is down."));
    m_log.Announce("SearchResultList.DisplayVisibleItems");
    const StoredItemRef fresh = MakeItem(77);
    GetActions().AddToCart(ListOf({fresh}));
    EXPECT_EQ(served, 1);
    EXPECT_TRUE(Cart()->IsItemInCart(fresh));
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages().front().title, "Unexpected Error");
}

const RecordingScreen::Message NoItems = {
    "You have no items to transfer.\r\n\r\nAfter clicking OK, you can either scan your items with a barcode scanner, or go "
    "back to the main screen to select items manually.",
    16, "No items to transfer"};
const RecordingScreen::Message NoDestination = {"Please specify where this evidence is going.", 16,
                                                "Missing destination"};
const RecordingScreen::Message NoGiver = {"Please specify the officer or employee who is transferring this evidence.",
                                          16, "Missing transferring officer/employee"};
const RecordingScreen::Message NoTaker = {"Please specify the officer or employee who is receiving this evidence.", 16,
                                          "Missing receiving officer/employee"};
const RecordingScreen::Message NoReason = {"Please indicate why this evidence is being transferred.", 16,
                                           "Missing transfer reason"};

TEST_F(CartViewTest, AnEmptyBatchIsReportedAndTheFocusLeftAlone) {
    BeginSignOut();
    GetActions().BulkRemoveFromCart(ListOf({m_laptop, m_bar}));
    Reason()->Dropdown()->Box()->setFocus();
    const QWidget* before = QApplication::focusWidget();
    ASSERT_NE(before, nullptr);
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoItems});
    EXPECT_EQ(QApplication::focusWidget(), before);
    EXPECT_TRUE(IsOnShow());
}

TEST_F(CartViewTest, EachFaultIsReportedInItsOrderAndItsFieldTakesTheFocus) {
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
    EXPECT_TRUE(IsOnShow());
}

TEST_F(CartViewTest, ATransferWritesOneRowAnItemAndGoesBack) {
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

TEST_F(CartViewTest, TheSameOfficerMayGiveAndTake) {
    BeginSignOut();
    FillForm(crimeLab);
    By()->SetValue(11);
    Transfer()->Click();
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_FALSE(IsOnShow());
}

TEST_F(CartViewTest, AFailedTransferMovesNothingClearsTheBatchAndGoesBack) {
    BeginSignOut();
    FillForm(crimeLab);
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    const std::string before = m_database.Snapshot();
    std::string told;
    struct Listener : DispatcherCallback {
        std::string* told = nullptr;
        void Handle(const Action& action) override {
            if (action.ActionType == ActionTypes::CART_TRANSACTION_FAILED) *told = ToText(action.Payload);
        }
        std::string CallbackTypeName() const override { return "Listener"; }
    };
    auto listener = std::make_shared<Listener>();
    listener->told = &told;
    GetDispatcher()->Register(listener);
    faults->FailAtCommit(Error(7, "Engine", "The link is down."));
    m_log.Announce("Actions.ProcessTransaction");
    Transfer()->Click();
    EXPECT_TRUE(faults->HasStruck());
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_EQ(told, "The link is down.");
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, AnErrorBeforeTheTransferIsReportedAndTheViewStays) {
    Begin(7, {m_laptop});
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(),
              (Messages{{"An unexpected error occurred while transferring these items. No items were moved in the "
                         "system.\r\n\r\nlocationField has not been loaded yet. Call LoadLocations first.",
                         16, "Unexpected error"}}));
    EXPECT_TRUE(IsOnShow());
    EXPECT_FALSE(Cart()->IsEmpty());
    EXPECT_EQ(Text("lblItemCount"), " (1)");
}

TEST_F(CartViewTest, NothingIsDisposedOfWithoutAFinalDisposition) {
    Begin(TransactionType::Dispose, {m_laptop});
    const std::string before = m_database.Snapshot();
    FillForm(disposal);
    Transfer()->Click();
    const Messages messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages.front().title, "Unexpected error");
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_TRUE(IsOnShow());
    EXPECT_TRUE(Cart()->IsItemInCart(m_laptop));
    EXPECT_EQ(From()->Value(), TaggedValue(11));
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
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages().front().title, "Unexpected Error");
    EXPECT_EQ(m_screen.Messages().front().prompt.find("No items were moved"), std::string::npos);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking WHERE SeqNo = 2")), 2);
}

TEST_F(CartViewTest, CancelAnsweredWithYesEmptiesTheBatchAndGoesBack) {
    BeginSignOut();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Cancel());
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_FALSE(IsOnShow());
}

TEST_F(CartViewTest, CancelAnsweredWithNoGoesBackAndKeepsTheBatch) {
    BeginSignOut();
    SearchResultRow elsewhere;
    elsewhere.SetItem(m_laptop);
    m_screen.AnswerNext(MessageAnswer::No);
    Click(Cancel());
    EXPECT_FALSE(IsOnShow());
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::SignOut);
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(elsewhere.InCart());
}

TEST_F(CartViewTest, CloseGoesBackAndKeepsTheBatch) {
    BeginSignOut();
    Click(Named("lnkClose"));
    EXPECT_FALSE(IsOnShow());
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, ADoubleClickOpensTheItem) {
    BeginSignOut();
    DoubleClick(Find<GroupBox>(*List(), "picContainer"), QPoint(300, 150));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
    EXPECT_EQ(ToObject<StoredItem>(GetStores().View->ViewParameters()->Value("Item")), m_bar);
}

TEST_F(CartViewTest, TheMenuOffersOpenByDefaultWhichDoesNothing) {
    BeginSignOut();
    const auto* menu = Find<QMenu>(*m_view, "mnuItems");
    EXPECT_EQ(menu->title(), "Items");
    QStringList entries;
    for (const QAction* entry : menu->actions()) entries += entry->isSeparator() ? "-" : entry->text();
    EXPECT_EQ(entries, (QStringList{"Open", "-", "Remove from this batch"}));
    EXPECT_TRUE(Entry("mnuGroup")->isSeparator());

    bool opened = false;
    QObject::connect(menu, &QMenu::aboutToShow, m_view, [&] {
        QTimer::singleShot(0, m_view, [&] {
            auto* shown = Find<QMenu>(*m_view, "mnuItems");
            opened = shown->isVisible() && shown->defaultAction() == Entry("mnuOpen");
            QTest::keyClick(shown, Qt::Key_Down);
            QTest::keyClick(shown, Qt::Key_Return);
        });
    });
    RightClick(Find<GroupBox>(*List(), "picContainer"), QPoint(300, 150));
    EXPECT_TRUE(opened);
    EXPECT_EQ(List()->SelectedItem(), m_bar);
    EXPECT_TRUE(IsOnShow());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, RemovingAsksAndTakesTheItemOut) {
    BeginSignOut();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(m_screen.TakeMessages(),
              (Messages{{"Do you want really want to remove the following property from the current evidence "
                         "transfer?\r\n\r\n    \u2022 2026-0417-03 ('Laptop computer')",
                         36, "Confirm Remove"}}));
    EXPECT_FALSE(Cart()->IsItemInCart(m_laptop));
    EXPECT_TRUE(Cart()->IsItemInCart(m_bar));
    EXPECT_EQ(Text("lblItemCount"), " (1)");
    EXPECT_EQ(List()->SelectedItem(), m_bar);
    EXPECT_TRUE(IsOnShow());
}

TEST_F(CartViewTest, TheQuestionNamesAVehicle) {
    const StoredItemRef car = AddVehicle("KTR4821", shelf);
    Begin(TransactionType::SignOut, {car, m_bar});
    m_screen.AnswerNext(MessageAnswer::No);
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(
        m_screen.TakeMessages().front().prompt.rfind("Do you want really want to remove the following vehicle from", 0),
        0u);
    EXPECT_TRUE(Cart()->IsItemInCart(car));
}

TEST_F(CartViewTest, AnyAnswerButYesKeepsTheItem) {
    BeginSignOut();
    for (const int32_t answer : {MessageAnswer::No, MessageAnswer::Cancel}) {
        m_screen.AnswerNext(answer);
        Entry("mnuRemove")->trigger();
        EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    }
}

TEST_F(CartViewTest, RemovingTheLastItemEndsTheTransferAndGoesBack) {
    Begin(TransactionType::SignOut, {m_laptop});
    m_screen.AnswerNext(MessageAnswer::Yes);
    Entry("mnuRemove")->trigger();
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages().front().title, "Confirm Remove");
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_FALSE(IsOnShow());
}

TEST_F(CartViewTest, AnItemCanBeRemovedThroughTheMenuItself) {
    BeginSignOut();
    const auto* menu = Find<QMenu>(*m_view, "mnuItems");
    QObject::connect(menu, &QMenu::aboutToShow, m_view, [&] {
        QTimer::singleShot(0, m_view, [&] {
            auto* shown = Find<QMenu>(*m_view, "mnuItems");
            shown->setActiveAction(Entry("mnuRemove"));
            QTest::keyClick(shown, Qt::Key_Return);
        });
    });
    m_screen.AnswerNext(MessageAnswer::Yes);
    RightClick(List()->Rows()[1]->findChild<Label*>("lblID"));
    ServeEvents();
    EXPECT_FALSE(Cart()->IsItemInCart(m_bar));
    EXPECT_EQ(List()->Rows().front()->Item(), m_laptop);
}

TEST_F(CartViewTest, AViewDestroyedBehindAMessageEndsQuietly) {
    BeginSignOut();
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) { delete m_view; };
    Transfer()->Click();
    EXPECT_EQ(m_screen.TakeMessages(), Messages{NoDestination});
}

TEST_F(CartViewTest, PartsAreLaidOutAtTwoSizes) {
    BeginSignOut();
    for (const QSize& size : {QSize(1280, 760), QSize(1920, 1040)}) {
        m_view->Move(0, 0, ToTwips(size.width()), ToTwips(size.height()));
        const Control &form = *Named("formPanel"), &list = *Named("listPanel"), &title = *Named("picTitleArea");
        EXPECT_EQ(title.width(), size.width());
        EXPECT_EQ(Named("lnkClose")->Left(), m_view->Width() - Named("lnkClose")->Width() - 240);
        EXPECT_EQ(Named("lnkClose")->Top(), 0);
        EXPECT_EQ(Named("lblItemCount")->Left(), Named("lblListCaption")->Right());
        EXPECT_EQ(form.Left(), 240);
        EXPECT_EQ(form.Top(), title.Height());
        EXPECT_EQ(form.Width(), ToTwips(360));
        EXPECT_EQ(form.Bottom(), m_view->Height() - 240);
        EXPECT_EQ(list.Left(), form.Right() + 240);
        EXPECT_EQ(list.Top(), form.Top());
        EXPECT_EQ(list.Height(), form.Height());
        EXPECT_EQ(list.Right(), m_view->Width() - 240);
        EXPECT_EQ(List()->Left(), 0);
        EXPECT_EQ(List()->Top(), ToTwips(36));
        EXPECT_EQ(List()->Width(), list.Width());
        EXPECT_EQ(List()->Bottom(), list.Height());
        EXPECT_EQ(Transfer()->Right(), form.Width() - 240);
        EXPECT_EQ(Transfer()->Bottom(), form.Height() - 240);
        EXPECT_EQ(Cancel()->Top(), Transfer()->Top());
        EXPECT_EQ(Cancel()->Right(), Transfer()->Left() - 135);
        const auto* line = Find<Line>(*m_view, "lnUnderline");
        EXPECT_EQ(line->Left(), List()->Left());
        EXPECT_EQ(line->Right(), List()->Right());
        EXPECT_EQ(line->geometry().bottom() + 1, List()->geometry().top());
        for (const char* name : {"Label4", "receivedFromField", "Label3", "receivedByField", "Label2", "locationField",
                                 "Label1", "reasonField"}) {
            EXPECT_GE(Named(name)->Left(), 240) << name;
            EXPECT_LE(Named(name)->Right(), form.Width() - 240) << name;
        }
    }
}

TEST_F(CartViewTest, ControlsBeyondTheFormsMarginsArePutInside) {
    BeginSignOut();
    From()->Move(30, From()->Top(), 9000, From()->Height());
    m_view->SetWidth(ToTwips(1300));
    EXPECT_EQ(From()->Left(), 240);
    EXPECT_EQ(From()->Right(), Named("formPanel")->Width() - 240);
}

TEST_F(CartViewTest, TheFormComesBeforeTheListInTheTabOrder) {
    BeginSignOut();
    EXPECT_EQ(TabOrder(*m_view),
              (std::vector<std::string>{"receivedFromField", "receivedByField", "cboLocations", "reasonField",
                                        "btnCancel", "btnTransfer", "itemList", "lnkClose"}));
}

TEST_F(CartViewTest, FieldsAreNamedForReadersByTheirCaptions) {
    EXPECT_EQ(Named("lnkClose")->accessibleName(), "Close");
    EXPECT_EQ(List()->accessibleName(), "Items in this batch");
    EXPECT_EQ(Destination()->accessibleName(), "and will be going to");
}

}  // namespace
}  // namespace quellbrook::testing
