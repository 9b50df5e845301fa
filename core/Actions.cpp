#include "core/Actions.h"

#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/Screen.h"
#include "core/ActionTypes.h"
#include "core/Stores.h"

namespace quellbrook {

Action Actions::CreateAction(const char* actionType, TaggedValue payload) { return {actionType, std::move(payload)}; }

void Actions::NavigateTo(const std::string& viewName, std::shared_ptr<Dictionary> viewParameters) {
    auto state = std::make_shared<ViewState>(viewName, std::move(viewParameters));
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::VIEW_NAVIGATE_TO, std::move(state)));
}

void Actions::GoBack() { GetDispatcher()->Dispatch(CreateAction(ActionTypes::VIEW_GO_BACK)); }

void Actions::CreateLocation(const std::string& name, StorageLocationTypes locationType, int32_t containerId) {
    std::string failure;
    try {
        const StorageLocationStatic& locations = GetStorageLocationStatic();
        const StorageLocationRef parent =
            containerId != 0 ? locations.FindByID(containerId) : locations.GetRoot(locationType);
        StorageLocationRef created = Require(parent, "Actions.CreateLocation")->CreateSubLocation(name);
        GetDispatcher()->Dispatch(CreateAction(ActionTypes::LOCATION_CREATE_SUCCESS, std::move(created)));
        return;
    } catch (...) {
        failure = CurrentError().Description();
    }
    try {
        GetDispatcher()->Dispatch(CreateAction(ActionTypes::LOCATION_CREATE_FAILED, failure));
    } catch (...) {
        LogFailure("Actions.CreateLocation", CurrentError().Description());
    }
}

void Actions::BeginTransaction(int32_t transactionType, std::shared_ptr<ObjectList> items) {
    SetTransactionType(transactionType);
    AddToCart(std::move(items));
}

void Actions::AddToCart(std::shared_ptr<ObjectList> items) {
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_ADD_ITEMS, std::move(items)));
}

void Actions::SetTransactionType(int32_t transactionType) {
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_SET_TRANSACTION_TYPE, transactionType));
}

void Actions::RemoveFromCart(const StoredItemRef& item) {
    auto items = std::make_shared<ObjectVector>();
    items->Add(item);
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_REMOVE_ITEMS, std::move(items)));
    if (GetStores().Cart->GetItems()->Count() == 0)
        GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_CANCEL_TRANSACTION));
}

void Actions::BulkRemoveFromCart(std::shared_ptr<ObjectList> items) {
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_REMOVE_ITEMS, std::move(items)));
}

void Actions::CancelTransactionWithPrompt() {
    const int32_t answer = ShowMessage("Are you sure you want to cancel this evidence transfer?",
                                       MessageStyle::YesNoQuestion, "Cancel evidence transfer?");
    if (answer == MessageAnswer::Yes) GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_CANCEL_TRANSACTION));
}

void Actions::CancelTransaction() { GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_CANCEL_TRANSACTION)); }

void Actions::SetTransferData(std::shared_ptr<TransferData> data) {
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_SET_TRANSFER_DATA, std::move(data)));
}

void Actions::NotifyUser(const std::string& message) {
    GetDispatcher()->Dispatch(CreateAction(ActionTypes::NOTIFY_USER, message));
}

void Actions::LoadingStarted() { GetDispatcher()->Dispatch(CreateAction(ActionTypes::LOADING_STARTED)); }

void Actions::LoadingFinished() { GetDispatcher()->Dispatch(CreateAction(ActionTypes::LOADING_FINISHED)); }

void Actions::OpenStoredItem(const StoredItemRef& item) {
    auto parameters = std::make_shared<Dictionary>();
    parameters->Set("Item", item);
    NavigateTo(ViewNames::ItemView, std::move(parameters));
}

Actions& GetActions() {
    static Actions actions;
    return actions;
}

}  // namespace quellbrook
