#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/WhileFormOpen.h"
#include "tests/ui/items/CartViewTest.h"
#include "ui/common/Dialogs.h"
#include "ui/controls/FlatTextArea.h"
#include "ui/items/FinalDisposition.h"

#include <functional>
#include <utility>

namespace quellbrook::testing {
namespace {

class CartViewDisposalTest : public CartViewTest {
protected:
    CartViewDisposalTest() {
        m_database.AddCode(CodeTable::FinalDispositionStatus, 4, "Returned to owner");
        GetDialogs().SetParent(std::make_shared<WindowReference>(&m_window));
    }
    ~CartViewDisposalTest() override { GetDialogs().SetParent(nullptr); }

    void BeginDisposal(std::initializer_list<ObjectRef> items) {
        Begin(TransactionType::Dispose, items);
        FillForm(disposal);
    }
    static void Save(frmFinalDisposition& form, const QString& notes) {
        Find<TessarineDropdown>(form, "dispositionField")->SetValue(4);
        Find<FlatTextArea>(form, "notesField")->SetText(notes);
        Find<FlatButton>(form, "btnSave")->Click();
    }
    // The view is open with the batch and the form as they were.
    void ExpectKept(const std::string& before) {
        EXPECT_EQ(m_database.Snapshot(), before);
        EXPECT_TRUE(IsCurrent());
        EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::Dispose);
        EXPECT_TRUE(Cart()->IsItemInCart(m_laptop));
        EXPECT_EQ(From()->Value(), TaggedValue(11));
        EXPECT_EQ(By()->Value(), TaggedValue(12));
        EXPECT_EQ(Reason()->Value(), TaggedValue(2));
        ASSERT_NE(Destination()->SelectedLocation(), nullptr);
        EXPECT_EQ(Destination()->SelectedLocation()->ID(), disposal);
    }
    void ExpectDisposed(const std::string& table, const StoredItemRef& item, const std::string& note) {
        const std::string where = " WHERE " + table + "No = " + std::to_string(item->ID());
        const RowList chain = m_database.QueryRows("SELECT * FROM " + table + "Tracking" + where + " ORDER BY SeqNo");
        ASSERT_EQ(chain.size(), 2u) << table;
        const Row& row = chain.back();
        EXPECT_EQ(ToInt32(row.Value("SeqNo")), 2);
        EXPECT_EQ(ToInt32(row.Value("ReceivedFrom")), 11);
        EXPECT_EQ(ToInt32(row.Value("ReceivedBy")), 12);
        EXPECT_EQ(ToText(row.Value("DateReceived")), "2026-11-20T13:14:15.123");
        EXPECT_EQ(ToInt32(row.Value("CustodyReasonNo")), 2);
        EXPECT_EQ(ToInt32(row.Value("StorageLocNo")), disposal);
        const Row stored = m_database.QueryRows("SELECT * FROM " + table + where).front();
        EXPECT_EQ(ToInt32(stored.Value("CurrTrackSeq")), 2);
        EXPECT_EQ(ToInt32(stored.Value("HasFinalDisposition")), 1);
        EXPECT_EQ(ToInt32(stored.Value("CurrStatusNo")), 4);
        EXPECT_EQ(ToText(stored.Value("DisposalNote")), note);
    }
};

TEST_F(CartViewDisposalTest, WritesTheCustodyRowsTheNoteAndTheStatusOfEveryItem) {
    const StoredItemRef car = AddVehicle("KTR4821", shelf);
    BeginDisposal({m_bar, car});
    m_clock.Set(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}));
    WhileFormOpen<frmFinalDisposition>([this](frmFinalDisposition& form) {
        m_clock.Advance(60'000);  // the time of the click counts
        Save(form, "Owner's receipt:\nnumber 7; 'signed'");
    });
    Click(Transfer());
    EXPECT_TRUE(m_screen.Messages().empty());
    ExpectDisposed("Property", m_bar, "Owner's receipt:\r\nnumber 7; 'signed'");
    ExpectDisposed("Vehicle", car, "Owner's receipt:\r\nnumber 7; 'signed'");
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM Property WHERE HasFinalDisposition = 1")), 1);
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_TRUE(Cart()->IsEmpty());
}

TEST_F(CartViewDisposalTest, WithoutNotesTheDisposalNoteIsEmpty) {
    BeginDisposal({m_bar});
    m_clock.Set(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}));
    WhileFormOpen<frmFinalDisposition>([](frmFinalDisposition& form) { Save(form, ""); });
    Click(Transfer());
    ExpectDisposed("Property", m_bar, "");
}

TEST_F(CartViewDisposalTest, ACanceledDispositionWritesNothingAndKeepsTheBatch) {
    BeginDisposal({m_laptop});
    const std::string before = m_database.Snapshot();
    bool wasOpen = false;
    WhileFormOpen<frmFinalDisposition>([&](frmFinalDisposition& form) {
        wasOpen = true;
        Find<FlatTextArea>(form, "notesField")->SetText("Court order");
        Find<FlatButton>(form, "btnCancel")->Click();
    });
    Click(Transfer());
    EXPECT_TRUE(wasOpen);
    ExpectKept(before);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewDisposalTest, AFormWithAFaultAsksForNoDisposition) {
    BeginDisposal({m_laptop});
    Reason()->SetValue(Null());
    GetDialogs().SetParent(nullptr);  // a dialog would fail
    Click(Transfer());
    EXPECT_EQ(m_screen.TakeMessages(),
              (Messages{{"Please indicate why this evidence is being transferred.", 16, "Missing transfer reason"}}));
    EXPECT_TRUE(IsCurrent());
}

TEST_F(CartViewDisposalTest, AFailureOfTheDialogIsReportedAndKeepsTheBatch) {
    BeginDisposal({m_laptop});
    const std::string before = m_database.Snapshot();
    GetDialogs().SetParent(nullptr);
    Click(Transfer());
    EXPECT_EQ(m_screen.TakeMessages(),
              (Messages{{"An unexpected error occurred while transferring these items. No items were moved in the "
                         "system.\r\n\r\nNo dialog parent has been set.",
                         16, "Unexpected error"}}));
    ExpectKept(before);
}

TEST_F(CartViewDisposalTest, AFailedDisposalLeavesEveryItemAsItWas) {
    const StoredItemRef car = AddVehicle("KTR4821", shelf);
    BeginDisposal({m_bar, car});
    const std::string before = m_database.Snapshot();
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    WhileFormOpen<frmFinalDisposition>([&](frmFinalDisposition& form) {
        faults->FailAtCommit(Error(7, "Engine", "The link is down."));
        Save(form, "Court order");
    });
    m_log.Announce("Actions.ProcessTransaction");
    Click(Transfer());
    EXPECT_TRUE(faults->HasStruck());
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_FALSE(IsCurrent());
}

TEST_F(CartViewDisposalTest, AViewThatIsDestroyedBehindTheDialogTransfersNothing) {
    BeginDisposal({m_laptop});
    const std::string before = m_database.Snapshot();
    WhileFormOpen<frmFinalDisposition>([&](frmFinalDisposition& form) {
        delete std::exchange(m_view, nullptr);
        Save(form, "Court order");
    });
    Transfer()->Click();
    EXPECT_EQ(m_view, nullptr) << "the dialog was open";
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_TRUE(IsCurrent());
    EXPECT_TRUE(Cart()->IsItemInCart(m_laptop));
}

TEST_F(CartViewDisposalTest, OnlyADisposalAsksForADisposition) {
    GetDialogs().SetParent(nullptr);  // a dialog would fail
    for (const int32_t type : {TransactionType::SignOut, TransactionType::SignIn, TransactionType::Move}) {
        GetActions().NavigateTo(ViewNames::Cart, nullptr);
        Begin(type, {m_laptop});
        FillForm(type == TransactionType::SignOut ? crimeLab : aisle);
        Click(Transfer());
        EXPECT_TRUE(Cart()->IsEmpty()) << type;
        m_laptop->Refresh();
    }
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM Property WHERE HasFinalDisposition <> 0")), 0);
}

TEST_F(CartViewDisposalTest, ABatchThatChangesBehindTheDialogIsNotDisposedOf) {
    const std::function<void()> changes[] = {
        [this] { GetActions().RemoveFromCart(m_bar); },
        [this] {
            GetActions().CancelTransaction();
            GetActions().BeginTransaction(TransactionType::SignOut, ListOf({m_laptop, m_bar}));
        },
        [this] {
            GetActions().RemoveFromCart(m_bar);
            GetActions().AddToCart(ListOf({AddProperty("E-2", "Camera", shelf)}));
        },
    };
    for (const std::function<void()>& change : changes) {
        BeginDisposal({m_laptop, m_bar});
        std::string before;
        WhileFormOpen<frmFinalDisposition>([&](frmFinalDisposition& form) {
            change();
            before = m_database.Snapshot();
            Save(form, "");
        });
        Transfer()->Click();
        EXPECT_FALSE(before.empty());
        EXPECT_EQ(m_database.Snapshot(), before);
        EXPECT_EQ(
            m_screen.TakeMessages(),
            OneMessage("An unexpected error occurred while transferring these items. No items were moved in the system."
                       "\r\n\r\nThe batch was changed while its final disposition was being entered. Check the "
                       "items and try again.",
                       16, "Unexpected error"));
        GetActions().CancelTransaction();
    }
}

}  // namespace
}  // namespace quellbrook::testing
