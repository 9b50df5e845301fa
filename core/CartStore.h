#pragma once

#include "base/Event.h"
#include "core/Dispatcher.h"
#include "data/Transfer.h"

#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// The tasks that are allowed for one item.
struct AllowedTasks {
    bool CanPrint = true;
    bool CanCheckIn = true;
    bool CanCheckOut = true;
    bool CanMove = true;
    bool CanDispose = true;
};

// The batch's items in insertion order, each under "K" and its ID; the key does not include the item type. Remembers
// the CurrTrackSeq that each item had when it was added, whatever happens to the item later.
class CartItems : public TransferItems {
public:
    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return static_cast<int32_t>(m_items.Count()); }
    StoredItemRef ItemAt(int32_t index) const override { return EntryAt(index).item; }
    TaggedValue TrackSeqAt(int32_t index) const override { return EntryAt(index).trackSeq; }

    bool TryAdd(const StoredItemRef& item);  // false if the key exists
    bool TryRemove(const StoredItem& item);  // false if the key is absent
    bool Contains(const StoredItem& item) const;

private:
    struct Entry {
        StoredItemRef item;
        TaggedValue trackSeq;
    };

    static std::string KeyOf(const StoredItem& item);
    const Entry& EntryAt(int32_t index) const;

    KeyedCollection<Entry> m_items;
    mutable std::vector<Entry> m_byPosition;  // cache of m_items in order, filled by EntryAt
};

// The current transfer batch: its items, type (TransactionType) and details. Changes only through actions.
class CartStore : public DispatcherCallback {
public:
    CartStore();

    // Error 91 for null.
    AllowedTasks GetAllowedTasks(const StoredItemRef& item) const;
    bool IsEmpty() const { return m_items->IsEmpty(); }
    int32_t GetTransactionType() const { return m_transactionType; }
    std::shared_ptr<TransferData> GetTransferData() const { return m_transferData; }
    // The live collection, not a copy. Clearing the batch replaces it, so fetch it again at each OnChange.
    std::shared_ptr<const CartItems> GetItems() const { return m_items; }
    bool IsItemInCart(const StoredItemRef& item) const;  // false for null

    void Handle(const Action& action) override;
    std::string CallbackTypeName() const override { return "CartStore"; }

    Event<> OnChange;

private:
    void AddItems(const ObjectList& items);
    void RemoveItems(const ObjectList& items);
    void Clear();

    int32_t m_transactionType = TransactionType::None;
    std::shared_ptr<CartItems> m_items;
    std::shared_ptr<TransferData> m_transferData;
};

}  // namespace quellbrook
