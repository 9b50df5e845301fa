#pragma once

#include "core/Dispatcher.h"
#include "core/ViewStore.h"
#include "data/StoredItemList.h"
#include "data/TransferData.h"

namespace quellbrook {

// The only way a view changes state. Do not call it during a dispatch, that is, from an OnChange handler.
class Actions {
public:
    void NavigateTo(const std::string& viewName, std::shared_ptr<Dictionary> viewParameters);
    void GoBack();
    // Creates a location in the container or, if containerId is 0, at the top of the category. Does not throw: the
    // reason for a failure is the payload of LOCATION_CREATE_FAILED.
    void CreateLocation(const std::string& name, StorageLocationTypes locationType, int32_t containerId);
    // Two dispatches: the type, then the items.
    void BeginTransaction(int32_t transactionType, std::shared_ptr<ObjectList> items);
    void AddToCart(std::shared_ptr<ObjectList> items);
    // Also ends the batch if this was its last item.
    void RemoveFromCart(const StoredItemRef& item);
    // Keeps the batch open even if it becomes empty.
    void BulkRemoveFromCart(std::shared_ptr<ObjectList> items);
    void CancelTransactionWithPrompt();
    void CancelTransaction();
    void SetTransferData(std::shared_ptr<TransferData> data);
    // Writes one custody row for each item of the batch, all in one database transaction, and reports the outcome to
    // the stores and the user. Throws only before it starts; later failures are reported through actions.
    void ProcessTransaction(std::shared_ptr<TransferData> xfer);
    void NotifyUser(const std::string& message);
    void LoadingStarted();
    void LoadingFinished();
    void OpenStoredItem(const StoredItemRef& item);

private:
    static Action CreateAction(const char* actionType, TaggedValue payload = {});
    void SetTransactionType(int32_t transactionType);
};

Actions& GetActions();

}  // namespace quellbrook
