#include "core/CartStore.h"

#include "core/ActionTypes.h"
#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"

#include <stdexcept>

namespace quellbrook {

namespace {

using testing::FindItem;
using testing::ListOf;
using testing::MakeItem;

std::string Describe(const AllowedTasks& tasks) {
    std::string text;
    if (tasks.CanPrint) text += "print ";
    if (tasks.CanCheckIn) text += "in ";
    if (tasks.CanCheckOut) text += "out ";
    if (tasks.CanMove) text += "move ";
    if (tasks.CanDispose) text += "dispose ";
    return text.empty() ? "nothing" : text.substr(0, text.size() - 1);
}

class CartStoreTest : public testing::DatabaseTest {
protected:
    CartStoreTest() {
        m_store.OnChange.connect([this] { ++m_changes; });
    }

    void Add(std::initializer_list<ObjectRef> items) { m_store.Handle({ActionTypes::CART_ADD_ITEMS, ListOf(items)}); }
    void Remove(std::initializer_list<ObjectRef> items) {
        m_store.Handle({ActionTypes::CART_REMOVE_ITEMS, ListOf(items)});
    }
    void SetType(const TaggedValue& type) { m_store.Handle({ActionTypes::CART_SET_TRANSACTION_TYPE, type}); }

    StoredItemRef ItemAt(StorageLocationTypes type, int32_t id = 1) {
        const int32_t location = m_database.AddLocation("Location " + std::to_string(++m_locations), type);
        GetStorageLocationStatic().Refresh();
        return MakeItem(id, StoredItemTypes::Property, location);
    }
    std::string TasksAt(StorageLocationTypes type) { return Describe(m_store.GetAllowedTasks(ItemAt(type))); }
    std::vector<int32_t> IDs() const {
        std::vector<int32_t> ids;
        for (int32_t i = 0; i < m_store.GetItems()->Count(); ++i) ids.push_back(m_store.GetItems()->ItemAt(i)->ID());
        return ids;
    }

    CartStore m_store;
    int m_changes = 0;
    int m_locations = 0;
};

}  // namespace

TEST_F(CartStoreTest, AtFirstNoBatchIsOpen) {
    EXPECT_EQ(m_store.GetTransactionType(), TransactionType::None);
    EXPECT_TRUE(m_store.IsEmpty());
    EXPECT_EQ(m_store.GetItems()->Count(), 0);
    ASSERT_NE(m_store.GetTransferData(), nullptr);
    EXPECT_EQ(m_store.GetTransferData()->Timestamp(), m_clock.Now());
    EXPECT_TRUE(m_store.GetTransferData()->ReceivedBy.IsEmpty());
    EXPECT_EQ(m_store.GetTransferData()->Location, nullptr);
    EXPECT_EQ(m_store.GetTransferData()->FinalDisposition, nullptr);
}

TEST_F(CartStoreTest, ItemsKeepTheOrderOfTheirAdding) {
    Add({MakeItem(7), MakeItem(3, StoredItemTypes::vehicle)});
    Add({MakeItem(5)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{7, 3, 5}));
    EXPECT_EQ(m_changes, 2);
    EXPECT_FALSE(m_store.IsEmpty());
}

TEST_F(CartStoreTest, AddingTheSameItemTwiceKeepsOneEntryInItsFirstPositionAndRaisesChangeEachTime) {
    const auto first = MakeItem(7);
    Add({first, MakeItem(8)});
    Add({MakeItem(7)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{7, 8}));
    EXPECT_EQ(m_store.GetItems()->ItemAt(0), first);
    EXPECT_EQ(m_changes, 2);
}

TEST_F(CartStoreTest, PropertyAndVehicleOfOneIDCountAsTheSameEntry) {
    Add({MakeItem(5, StoredItemTypes::vehicle)});
    EXPECT_TRUE(m_store.IsItemInCart(MakeItem(5, StoredItemTypes::Property)));
    Add({MakeItem(5, StoredItemTypes::Property)});
    EXPECT_EQ(m_store.GetItems()->Count(), 1);
    EXPECT_EQ(m_store.GetItems()->ItemAt(0)->ItemType(), StoredItemTypes::vehicle);
}

TEST_F(CartStoreTest, EntriesThatAreNoItemsAreSkipped) {
    Add({MakeItem(1), std::make_shared<StorageLocation>(), nullptr, MakeItem(2)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{1, 2}));
    EXPECT_EQ(m_changes, 1);
}

TEST_F(CartStoreTest, AnItemThatCannotBeCreatedIsSkipped) {
    struct PartlyBroken : ObjectVector {
        ObjectRef At(int32_t index) const override {
            if (index == 0) throw std::runtime_error("out of reach");
            return ObjectVector::At(index);
        }
    };
    const auto list = std::make_shared<PartlyBroken>();
    for (const int32_t id : {1, 2}) list->Add(MakeItem(id));
    m_store.Handle({ActionTypes::CART_ADD_ITEMS, list});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{2}));
    m_store.Handle({ActionTypes::CART_REMOVE_ITEMS, list});
    EXPECT_TRUE(m_store.IsEmpty());
}

TEST_F(CartStoreTest, AnItemWhoseKeyCannotBeBuiltIsSkipped) {
    Add({std::make_shared<StoredItem>(), MakeItem(2)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{2}));
    Remove({std::make_shared<StoredItem>(), MakeItem(2)});
    EXPECT_TRUE(m_store.IsEmpty());
    EXPECT_FALSE(m_store.IsItemInCart(std::make_shared<StoredItem>()));
}

TEST_F(CartStoreTest, RemovingSkipsItemsThatAreNotThere) {
    Add({MakeItem(1), MakeItem(2), MakeItem(3)});
    Remove({MakeItem(9), MakeItem(2)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{1, 3}));
    Remove({MakeItem(9)});
    EXPECT_EQ(m_changes, 3);
}

static_assert(std::is_same_v<decltype(std::declval<CartStore>().GetItems()), std::shared_ptr<const CartItems>>,
              "only actions change the batch");

TEST_F(CartStoreTest, GetItemsIsTheLiveCollectionUntilTheBatchIsCleared) {
    const auto items = m_store.GetItems();
    Add({MakeItem(1)});
    EXPECT_EQ(items->Count(), 1);
    EXPECT_EQ(items->At(0), items->ItemAt(0));
    m_store.Handle({ActionTypes::CART_CANCEL_TRANSACTION, {}});
    EXPECT_EQ(items->Count(), 1) << "the old collection is dead, not emptied";
    EXPECT_NE(m_store.GetItems(), items);
    EXPECT_EQ(m_store.GetItems()->Count(), 0);
}

TEST_F(CartStoreTest, TheCustodyRowOfEachItemIsTheOneItHadWhenItWasAdded) {
    const int32_t counter = m_database.AddLocation("Counter", StorageLocationTypes::Internal);
    const int32_t id = m_database.AddProperty();
    m_database.AddCustodyRow(StoredItemTypes::Property, id, counter);
    const StoredItemRef item = FindItem(StoredItemTypes::Property, id), fresh = MakeItem(100);
    Add({fresh, item});
    m_database.AddCustodyRow(StoredItemTypes::Property, id, counter);
    item->Refresh();
    EXPECT_EQ(item->CurrTrackSeq(), TaggedValue(2));
    Add({FindItem(StoredItemTypes::Property, id)});
    EXPECT_EQ(m_store.GetItems()->TrackSeqAt(0), TaggedValue(Null()));
    EXPECT_EQ(m_store.GetItems()->TrackSeqAt(1), TaggedValue(1));
    EXPECT_EQ(testing::RaisedBy([&] { m_store.GetItems()->TrackSeqAt(2); }).Number(), ErrorNumber::SubscriptOutOfRange);
    Remove({item});
    Add({item});
    EXPECT_EQ(m_store.GetItems()->TrackSeqAt(1), TaggedValue(2)) << "a new addition";
}

TEST_F(CartStoreTest, PositionsFollowEachChange) {
    Add({MakeItem(1), MakeItem(2)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{1, 2}));
    Add({MakeItem(3)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{1, 2, 3}));
    Remove({MakeItem(1)});
    EXPECT_EQ(IDs(), (std::vector<int32_t>{2, 3}));
}

TEST_F(CartStoreTest, APositionOutsideTheBatchFails) {
    Add({MakeItem(1)});
    EXPECT_EQ(testing::RaisedBy([&] { m_store.GetItems()->ItemAt(1); }).Number(), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(testing::RaisedBy([&] { m_store.GetItems()->ItemAt(-1); }).Number(), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(CartStoreTest, TheTypeIsSetWithoutACheckOfThePresentState) {
    SetType(TransactionType::SignOut);
    Add({MakeItem(1)});
    SetType(TransactionType::Dispose);
    EXPECT_EQ(m_store.GetTransactionType(), TransactionType::Dispose);
    EXPECT_EQ(m_store.GetItems()->Count(), 1);
    EXPECT_EQ(m_changes, 3);
}

TEST_F(CartStoreTest, CancelAndSuccessClearTheBatch) {
    for (const char* action : {ActionTypes::CART_CANCEL_TRANSACTION, ActionTypes::CART_TRANSACTION_SUCCESS}) {
        SetType(TransactionType::Move);
        Add({MakeItem(1)});
        m_changes = 0;
        m_store.Handle({action, {}});
        EXPECT_EQ(m_store.GetTransactionType(), TransactionType::None) << action;
        EXPECT_TRUE(m_store.IsEmpty()) << action;
        EXPECT_EQ(m_changes, 1) << action;
    }
}

TEST_F(CartStoreTest, ClearingCreatesTransferDataWithANewTimestamp) {
    const auto before = m_store.GetTransferData();
    m_clock.Advance(1500);
    m_store.Handle({ActionTypes::CART_CANCEL_TRANSACTION, {}});
    EXPECT_EQ(m_store.GetTransferData()->Timestamp(), m_clock.Now());
    EXPECT_NE(m_store.GetTransferData()->Timestamp(), before->Timestamp());
}

TEST_F(CartStoreTest, TransferDataIsTakenByReference) {
    const auto data = std::make_shared<TransferData>();
    m_store.Handle({ActionTypes::CART_SET_TRANSFER_DATA, data});
    EXPECT_EQ(m_store.GetTransferData(), data);
    EXPECT_EQ(m_changes, 1);
}

TEST_F(CartStoreTest, AFailedTransferAndOtherActionsChangeNothing) {
    SetType(TransactionType::Move);
    Add({MakeItem(1)});
    m_changes = 0;
    for (const char* action : {ActionTypes::CART_TRANSACTION_FAILED, ActionTypes::CART_PROCESS_TRANSACTION,
                               ActionTypes::NOTIFY_USER, ActionTypes::LOADING_STARTED, "cart_cancel_transaction"})
        m_store.Handle({action, "text"});
    EXPECT_EQ(m_changes, 0);
    EXPECT_EQ(m_store.GetItems()->Count(), 1);
}

TEST_F(CartStoreTest, PayloadsOfTheWrongTypeFail) {
    EXPECT_EQ(testing::RaisedBy([&] {
                  m_store.Handle({ActionTypes::CART_ADD_ITEMS, MakeItem(1)});
              }).Number(),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(testing::RaisedBy([&] {
                  m_store.Handle({ActionTypes::CART_REMOVE_ITEMS, {}});
              }).Number(),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(testing::RaisedBy([&] { SetType("move"); }).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(testing::RaisedBy([&] {
                  m_store.Handle({ActionTypes::CART_SET_TRANSFER_DATA, std::shared_ptr<TransferData>()});
              }).Number(),
              91);
    EXPECT_EQ(m_changes, 0);
}

TEST_F(CartStoreTest, NothingIsNeverInTheBatchAndHasNoTasks) {
    EXPECT_FALSE(m_store.IsItemInCart(nullptr));
    EXPECT_EQ(testing::RaisedBy([&] { m_store.GetAllowedTasks(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(CartStoreTest, AnItemWithoutALocationCanBePrintedAndSignedInWhateverTheRightsAndTheBatch) {
    m_session->GrantNothing();
    const auto item = MakeItem(1);
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "print in");
    SetType(TransactionType::Move);
    Add({item});
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "print in");
    EXPECT_EQ(m_session->questions, 0);
}

TEST_F(CartStoreTest, ALocationThatHasGoneCountsAsNone) {
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(MakeItem(1, StoredItemTypes::Property, 4711))), "print in");
}

TEST_F(CartStoreTest, AnItemInTheBatchCanOnlyBePrintedWithTheRight) {
    const auto item = ItemAt(StorageLocationTypes::Internal);
    Add({item});
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "print");
    m_session->Revoke(GetPermissions().PRINT_BARCODE_LABELS());
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "nothing");
}

TEST_F(CartStoreTest, AnItemInTheBatchCannotBeAddedAgainWhereverItIs) {
    const std::pair<int32_t, StorageLocationTypes> batches[] = {
        {TransactionType::SignIn, StorageLocationTypes::External},
        {TransactionType::SignIn, StorageLocationTypes::Other},
        {TransactionType::SignOut, StorageLocationTypes::Internal},
        {TransactionType::SignOut, StorageLocationTypes::Other},
        {TransactionType::Move, StorageLocationTypes::Other},
        {TransactionType::Dispose, StorageLocationTypes::Other},
    };
    for (const auto& [type, locationType] : batches) {
        const auto item = ItemAt(locationType), other = ItemAt(locationType, 2);
        SetType(type);
        Add({item});
        EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "print") << type << static_cast<int>(locationType);
        EXPECT_NE(Describe(m_store.GetAllowedTasks(other)), "print") << type << static_cast<int>(locationType);
        m_store.Handle({ActionTypes::CART_CANCEL_TRANSACTION, {}});
    }
}

TEST_F(CartStoreTest, WithoutABatchTheKindOfPlaceDecides) {
    EXPECT_EQ(TasksAt(StorageLocationTypes::Other), "print in out move dispose");
    EXPECT_EQ(TasksAt(StorageLocationTypes::Internal), "print out move dispose");
    EXPECT_EQ(TasksAt(StorageLocationTypes::External), "print in");
    EXPECT_EQ(TasksAt(StorageLocationTypes::DisposalLocation), "print");
    EXPECT_EQ(TasksAt(StorageLocationTypes::Unassigned), "print");
}

TEST_F(CartStoreTest, AnOpenBatchBlocksTheTasksOfAllOtherTypes) {
    const std::pair<int32_t, const char*> atOther[] = {{TransactionType::SignOut, "print out"},
                                                       {TransactionType::SignIn, "print in"},
                                                       {TransactionType::Move, "print move"},
                                                       {TransactionType::Dispose, "print dispose"}};
    for (const auto& [type, tasks] : atOther) {
        SetType(type);
        EXPECT_EQ(TasksAt(StorageLocationTypes::Other), tasks);
    }
    SetType(TransactionType::SignOut);
    EXPECT_EQ(TasksAt(StorageLocationTypes::External), "print");
    EXPECT_EQ(TasksAt(StorageLocationTypes::Internal), "print out");
}

TEST_F(CartStoreTest, EachTaskNeedsItsRight) {
    const auto item = ItemAt(StorageLocationTypes::Other);
    m_session->Revoke(GetPermissions().APPEND_CHAIN_OF_CUSTODY());
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "print dispose");
    m_session->Revoke(GetPermissions().ADD_FINAL_DISPOSITION());
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "print");
    m_session->Revoke(GetPermissions().PRINT_BARCODE_LABELS());
    EXPECT_EQ(Describe(m_store.GetAllowedTasks(item)), "nothing");
}

TEST_F(CartStoreTest, AFailureOfTheHostsSessionReachesTheCaller) {
    const auto item = ItemAt(StorageLocationTypes::Internal);
    HostServices::Current().SetSession(nullptr);
    EXPECT_EQ(testing::RaisedBy([&] { m_store.GetAllowedTasks(item); }).Number(), ErrorNumber::NullObject);
}

TEST_F(CartStoreTest, TheHostIsAskedFiveTimesForOneAnswer) {
    const auto item = ItemAt(StorageLocationTypes::DisposalLocation);
    Add({item});
    m_store.GetAllowedTasks(item);
    EXPECT_EQ(m_session->questions, 5);
}

}  // namespace quellbrook
