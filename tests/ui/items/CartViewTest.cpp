#include "tests/ui/items/CartViewTest.h"

#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "ui/controls/Line.h"

namespace quellbrook::testing {
namespace {

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

TEST_F(CartViewTest, TheFieldsAreInOrder) {
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

TEST_F(CartViewTest, AFirstShowThatFailsIsRepeated) {
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({m_laptop}));
    ShowActive(m_window);
    auto* late = new CartView(&m_window);
    late->Move(0, 0, ToTwips(1280), ToTwips(760));
    m_laptop->Refresh();
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    late->show();
    EXPECT_EQ(RaisedBy([&] { late->RaiseShowError(); }).Description(), "The link is down.");
    late->hide();
    late->show();
    late->RaiseShowError();
    EXPECT_EQ(Find<Label>(*late, "lblItemCount")->Caption(), " (1)");
    EXPECT_EQ(Find<SearchResultList>(*late, "itemList")->SelectedItem(), m_laptop);
    Find<TessarineDropdown>(*late, "receivedFromField")->SetValue(11);
    late->hide();
    late->show();
    EXPECT_EQ(Find<TessarineDropdown>(*late, "receivedFromField")->Value(), TaggedValue(11));
}

TEST_F(CartViewTest, AFirstShowWithoutATransactionShowsAnEmptyBatch) {
    ShowActive(m_window);
    EXPECT_EQ(Text("lblTitle"), "Transfer Evidence");
    EXPECT_EQ(Text("lblItemCount"), " (0)");
    EXPECT_TRUE(Named("picNoResults")->IsShown());
}

TEST_F(CartViewTest, AChangeOfTheStoreReplacesTheUsersChoices) {
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

TEST_F(CartViewTest, WithoutATransactionAChangeDoesNotAffectTheView) {
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
    EXPECT_EQ(m_screen.TakeMessages(), OneMessage("DisplayVisibleItems: The link is down.", 16, "Unexpected Error"));
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

TEST_F(CartViewTest, TheButtonsCoverNoFieldAtSmallHeights) {
    BeginSignOut();
    for (const int height : {760, 560, 448, 420}) {
        m_view->Move(0, 0, ToTwips(960), ToTwips(height));
        const std::vector<QWidget*> column = {Named("Label4"), From(),        Named("Label3"), By(),
                                              Named("Label2"), Destination(), Named("Label1"), Reason(),
                                              Transfer()};
        for (size_t i = 1; i < column.size(); ++i)
            EXPECT_GT(column[i]->y(), column[i - 1]->geometry().bottom()) << height << ", control " << i;
        EXPECT_EQ(Named("formPanel")->height() - Transfer()->geometry().bottom() - 1, 16) << height;
    }
}

}  // namespace
}  // namespace quellbrook::testing
