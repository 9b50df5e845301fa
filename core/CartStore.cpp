#include "core/CartStore.h"

#include "access/User.h"
#include "base/Error.h"
#include "core/ActionTypes.h"

namespace quellbrook {

namespace {

// The items of a payload. Other entries, and items that can't be created, are skipped.
std::vector<StoredItemRef> ItemsOf(const ObjectList& list) {
    std::vector<StoredItemRef> items;
    for (int32_t i = 0; i < list.Count(); ++i) {
        try {
            if (auto item = std::dynamic_pointer_cast<StoredItem>(list.At(i))) items.push_back(std::move(item));
        } catch (const std::exception&) {
        }
    }
    return items;
}

}  // namespace

const CartItems::Entry& CartItems::EntryAt(int32_t index) const {
    if (index < 0 || index >= Count()) Raise(ErrorNumber::SubscriptOutOfRange, "CartItems.ItemAt");
    if (m_byPosition.empty()) m_byPosition = m_items.Values();
    return m_byPosition[static_cast<size_t>(index)];
}

bool CartItems::TryAdd(const StoredItemRef& item) {
    m_byPosition.clear();
    return m_items.TryAdd({item, item->CurrTrackSeq()}, KeyOf(*item));
}

bool CartItems::TryRemove(const StoredItem& item) {
    if (!Contains(item)) return false;
    m_byPosition.clear();
    m_items.Remove(KeyOf(item));
    return true;
}

bool CartItems::Contains(const StoredItem& item) const { return m_items.Contains(KeyOf(item)); }

std::string CartItems::KeyOf(const StoredItem& item) { return "K" + std::to_string(item.ID()); }

CartStore::CartStore() { Clear(); }

AllowedTasks CartStore::GetAllowedTasks(const StoredItemRef& item) const {
    AllowedTasks tasks;
    const int32_t present = GetTransactionType();
    const StorageLocationRef location = Require(item, "CartStore.GetAllowedTasks")->Location();
    if (!location) {
        tasks.CanCheckOut = tasks.CanMove = tasks.CanDispose = false;
        return tasks;
    }

    if (IsItemInCart(item)) tasks.CanCheckIn = tasks.CanCheckOut = tasks.CanMove = tasks.CanDispose = false;

    const auto keepWithRight = [](bool& flag, const PermissionDefinition& right) {
        const bool granted = GetUser().Can(right);
        flag = flag && granted;
    };
    keepWithRight(tasks.CanCheckIn, GetPermissions().APPEND_CHAIN_OF_CUSTODY());
    keepWithRight(tasks.CanCheckOut, GetPermissions().APPEND_CHAIN_OF_CUSTODY());
    keepWithRight(tasks.CanMove, GetPermissions().APPEND_CHAIN_OF_CUSTODY());
    keepWithRight(tasks.CanDispose, GetPermissions().ADD_FINAL_DISPOSITION());
    keepWithRight(tasks.CanPrint, GetPermissions().PRINT_BARCODE_LABELS());

    const StorageLocationTypes type = location->LocationType();
    const auto keepAt = [&](bool& flag, StorageLocationTypes locationType, int32_t transaction) {
        const bool rightLocation = type == StorageLocationTypes::Other || type == locationType;
        const bool rightTime = present == TransactionType::None || present == transaction;
        flag = flag && rightLocation && rightTime;
    };
    keepAt(tasks.CanCheckIn, StorageLocationTypes::External, TransactionType::SignIn);
    keepAt(tasks.CanCheckOut, StorageLocationTypes::Internal, TransactionType::SignOut);
    keepAt(tasks.CanMove, StorageLocationTypes::Internal, TransactionType::Move);
    keepAt(tasks.CanDispose, StorageLocationTypes::Internal, TransactionType::Dispose);
    return tasks;
}

bool CartStore::IsItemInCart(const StoredItemRef& item) const {
    if (!item) return false;
    try {
        return m_items->Contains(*item);
    } catch (const std::exception&) {
        return false;
    }
}

void CartStore::Handle(const Action& action) {
    const std::string& type = action.ActionType;
    if (type == ActionTypes::CART_ADD_ITEMS)
        AddItems(*ToObject<ObjectList>(action.Payload));
    else if (type == ActionTypes::CART_REMOVE_ITEMS)
        RemoveItems(*ToObject<ObjectList>(action.Payload));
    else if (type == ActionTypes::CART_SET_TRANSACTION_TYPE)
        m_transactionType = ToInt32(action.Payload);
    else if (type == ActionTypes::CART_CANCEL_TRANSACTION || type == ActionTypes::CART_TRANSACTION_SUCCESS)
        Clear();
    else if (type == ActionTypes::CART_SET_TRANSFER_DATA)
        m_transferData = ToObject<TransferData>(action.Payload);
    else
        return;
    OnChange();
}

void CartStore::AddItems(const ObjectList& items) {
    for (const StoredItemRef& item : ItemsOf(items)) {
        try {
            m_items->TryAdd(item);
        } catch (const std::exception&) {
        }
    }
}

void CartStore::RemoveItems(const ObjectList& items) {
    for (const StoredItemRef& item : ItemsOf(items)) {
        try {
            m_items->TryRemove(*item);
        } catch (const std::exception&) {
        }
    }
}

void CartStore::Clear() {
    m_transactionType = TransactionType::None;
    m_items = std::make_shared<CartItems>();
    m_transferData = std::make_shared<TransferData>();
}

}  // namespace quellbrook
