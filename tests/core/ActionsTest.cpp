#include "core/Actions.h"

#include "core/ActionTypes.h"
#include "core/Stores.h"
#include "tests/support/Callbacks.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

using testing::ListOf;
using testing::MakeItem;
using Types = std::vector<std::string>;

class ActionsTest : public testing::DatabaseTest {
protected:
    ActionsTest() {
        m_stores = GetStores();
        GetDispatcher()->Register(m_seen);
        m_stores.Cart->OnChange.connect([this] { ++m_cartChanges; });
    }

    const TaggedValue& LastPayload() const { return m_seen->actions.back().Payload; }

    StoresRecord m_stores;
    std::shared_ptr<testing::RecordingCallback> m_seen = std::make_shared<testing::RecordingCallback>();
    int m_cartChanges = 0;
};

}  // namespace

TEST_F(ActionsTest, NavigatingCarriesAViewState) {
    const auto parameters = std::make_shared<Dictionary>();
    GetActions().NavigateTo(ViewNames::Cart, parameters);
    EXPECT_EQ(m_seen->Types(), Types{"VIEW_NAVIGATE_TO"});
    EXPECT_EQ(ToObject<ViewState>(LastPayload())->ViewName(), "cart");
    EXPECT_EQ(m_stores.View->ViewParameters(), parameters);

    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    EXPECT_EQ(m_stores.View->ViewParameters(), nullptr);
    GetActions().GoBack();
    EXPECT_TRUE(LastPayload().IsEmpty());
    EXPECT_EQ(m_stores.View->ViewName(), "cart");
}

TEST_F(ActionsTest, BeginningABatchSetsTheTypeAndThenAddsTheItems) {
    const auto items = ListOf({MakeItem(1), MakeItem(2)});
    GetActions().BeginTransaction(TransactionType::Move, items);
    EXPECT_EQ(m_seen->Types(), (Types{"CART_SET_TRANSACTION_TYPE", "CART_ADD_ITEMS"}));
    EXPECT_EQ(m_seen->actions[0].Payload, TaggedValue(TransactionType::Move));
    EXPECT_EQ(ToObject<ObjectVector>(LastPayload()), items) << "the caller's own collection";
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::Move);
    EXPECT_EQ(m_stores.Cart->GetItems()->Count(), 2);
}

TEST_F(ActionsTest, IfTheItemsCannotBeAddedTheTypeIsKept) {
    EXPECT_EQ(testing::RaisedBy([] { GetActions().BeginTransaction(TransactionType::Move, nullptr); }).Number(),
              ErrorNumber::NullObject);
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::Move);
}

TEST_F(ActionsTest, BeginningWithAnEmptyCollectionLeavesABatchOpenAndEmpty) {
    GetActions().BeginTransaction(TransactionType::SignIn, ListOf({}));
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::SignIn);
    EXPECT_TRUE(m_stores.Cart->IsEmpty());
}

TEST_F(ActionsTest, BeginningDuringAnOpenBatchIsNotRefused) {
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({MakeItem(1)}));
    GetActions().BeginTransaction(TransactionType::Move, ListOf({MakeItem(2)}));
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::Move);
    EXPECT_EQ(m_stores.Cart->GetItems()->Count(), 2);
}

TEST_F(ActionsTest, AddingGoesToTheOpenBatch) {
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({MakeItem(1)}));
    GetActions().AddToCart(ListOf({MakeItem(2)}));
    EXPECT_EQ(m_stores.Cart->GetItems()->Count(), 2);
}

TEST_F(ActionsTest, RemovingTheOnlyItemRaisesTwoChangesAndEndsTheBatch) {
    const auto item = MakeItem(1);
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({item}));
    m_cartChanges = 0;
    m_seen->actions.clear();
    GetActions().RemoveFromCart(item);
    EXPECT_EQ(m_seen->Types(), (Types{"CART_REMOVE_ITEMS", "CART_CANCEL_TRANSACTION"}));
    EXPECT_EQ(m_cartChanges, 2);
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::None);
}

TEST_F(ActionsTest, RemovingOneOfSeveralItemsKeepsTheBatch) {
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({MakeItem(1), MakeItem(2)}));
    GetActions().RemoveFromCart(MakeItem(1));
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::SignOut);
    EXPECT_EQ(m_stores.Cart->GetItems()->Count(), 1);
    EXPECT_EQ(m_seen->Types().back(), "CART_REMOVE_ITEMS");
    EXPECT_EQ(ToObject<ObjectList>(LastPayload())->Count(), 1);
}

TEST_F(ActionsTest, RemovingAnItemThatIsNotThereStillEndsAnEmptyBatch) {
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({}));
    m_seen->actions.clear();
    GetActions().RemoveFromCart(MakeItem(9));
    EXPECT_EQ(m_seen->Types(), (Types{"CART_REMOVE_ITEMS", "CART_CANCEL_TRANSACTION"}));
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::None);
}

TEST_F(ActionsTest, RemovingInBulkLeavesTheTypeSetAndTheBatchEmpty) {
    const auto items = ListOf({MakeItem(1), MakeItem(2)});
    GetActions().BeginTransaction(TransactionType::Dispose, items);
    m_seen->actions.clear();
    GetActions().BulkRemoveFromCart(items);
    EXPECT_EQ(m_seen->Types(), Types{"CART_REMOVE_ITEMS"});
    EXPECT_TRUE(m_stores.Cart->IsEmpty());
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::Dispose);
}

TEST_F(ActionsTest, TheCancelPromptAsksBeforeItDispatches) {
    GetActions().BeginTransaction(TransactionType::Move, ListOf({MakeItem(1)}));
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_screen.WhileMessageOpen = [&](const testing::RecordingScreen::Message&) {
        EXPECT_FALSE(GetDispatcher()->IsDispatching());
        EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::Move);
    };
    GetActions().CancelTransactionWithPrompt();
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages()[0],
              (testing::RecordingScreen::Message{"Are you sure you want to cancel this evidence transfer?", 36,
                                                 "Cancel evidence transfer?"}));
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::None);
    EXPECT_TRUE(m_stores.Cart->IsEmpty());
}

TEST_F(ActionsTest, AnsweringNoToTheCancelPromptDispatchesNothing) {
    GetActions().BeginTransaction(TransactionType::Move, ListOf({MakeItem(1)}));
    m_seen->actions.clear();
    m_screen.AnswerNext(MessageAnswer::No);
    GetActions().CancelTransactionWithPrompt();
    EXPECT_TRUE(m_seen->actions.empty());
    EXPECT_EQ(m_stores.Cart->GetItems()->Count(), 1);
}

TEST_F(ActionsTest, APromptThatCannotBeShownReachesTheCallerAndDispatchesNothing) {
    GetActions().BeginTransaction(TransactionType::Move, ListOf({MakeItem(1)}));
    m_seen->actions.clear();
    m_screen.WhileMessageOpen = [](const testing::RecordingScreen::Message&) {
        Raise(ErrorNumber::NullObject, "Dialogs.ShowForm");
    };
    EXPECT_EQ(testing::RaisedBy([] { GetActions().CancelTransactionWithPrompt(); }).Number(), ErrorNumber::NullObject);
    EXPECT_TRUE(m_seen->actions.empty());
}

TEST_F(ActionsTest, CancellingAsksNothing) {
    GetActions().BeginTransaction(TransactionType::Move, ListOf({MakeItem(1)}));
    GetActions().CancelTransaction();
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_TRUE(LastPayload().IsEmpty());
    EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::None);
}

TEST_F(ActionsTest, TransferDataNotesAndLoadingAreDispatched) {
    const auto data = std::make_shared<TransferData>();
    GetActions().SetTransferData(data);
    EXPECT_EQ(m_stores.Cart->GetTransferData(), data);
    GetActions().NotifyUser("Done.");
    EXPECT_EQ(LastPayload(), TaggedValue("Done."));
    GetActions().LoadingStarted();
    EXPECT_TRUE(m_stores.Loading->IsLoading());
    GetActions().LoadingFinished();
    EXPECT_FALSE(m_stores.Loading->IsLoading());
    EXPECT_EQ(m_seen->Types(), (Types{"CART_SET_TRANSFER_DATA", "NOTIFY_USER", "LOADING_STARTED", "LOADING_FINISHED"}));
}

TEST_F(ActionsTest, OpeningAnItemNavigatesToItsViewWithTheItemItself) {
    const auto item = MakeItem(1);
    GetActions().OpenStoredItem(item);
    EXPECT_EQ(m_stores.View->ViewName(), "itemView");
    EXPECT_EQ(ToObject<StoredItem>(m_stores.View->ViewParameters()->Value("Item")), item);

    GetActions().OpenStoredItem(MakeItem(2));
    EXPECT_EQ(ToObject<StoredItem>(m_stores.View->ViewParameters()->Value("Item")), item)
        << "the item view is current already";
}

TEST_F(ActionsTest, TheDispatcherIsLookedUpForEveryDispatch) {
    GetActions().LoadingStarted();
    DiscardDispatcher();
    const auto later = std::make_shared<testing::RecordingCallback>();
    GetDispatcher()->Register(later);
    GetActions().LoadingFinished();
    EXPECT_EQ(later->Types(), Types{"LOADING_FINISHED"});
    EXPECT_EQ(m_seen->Types(), Types{"LOADING_STARTED"});
}

TEST_F(ActionsTest, FailuresOfADispatchReachTheCaller) {
    GetDispatcher()->Register(std::make_shared<testing::FunctionCallback>(
        "EvidenceUI", [](const Action&) { Raise(77, "EvidenceUI.Handle", "Broken."); }));
    const Error error = testing::RaisedBy([] { GetActions().NotifyUser("Hello"); });
    EXPECT_EQ(error.Number(), 77);
    EXPECT_EQ(error.Description(), "Error executing callback 'EvidenceUI': Broken.");
}

}  // namespace quellbrook
