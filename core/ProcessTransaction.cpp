#include "core/Actions.h"

#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/FormatCount.h"
#include "core/ActionTypes.h"
#include "core/Stores.h"
#include "host/TransferOutcome.h"

#include <optional>

namespace quellbrook {

namespace {

const char* const source = "Actions.ProcessTransaction";

// Runs one step of reporting a finished transfer. A failure here does not change the transfer's outcome.
template <typename Step>
void Attempt(Step step) {
    try {
        step();
    } catch (...) {
        LogFailure(source, CurrentError().Description());
    }
}

// Writes the batch. Returns the description of the failure, or nothing if the batch was committed.
std::optional<std::string> Commit(const std::shared_ptr<TransferData>& xfer, std::shared_ptr<const CartItems>& items) {
    try {
        items = GetStores().Cart->GetItems();
        ExecuteTransfer(*items, *Require(xfer, source));
        return std::nullopt;
    } catch (const UnknownOutcome& failure) {
        return std::string(UnknownOutcomeText) + "\r\n\r\n" + failure.Description();
    } catch (...) {
        return CurrentError().Description();
    }
}

}  // namespace

void Actions::ProcessTransaction(std::shared_ptr<TransferData> xfer) {
    try {
        LoadingStarted();
    } catch (...) {
        Attempt([&] { LoadingFinished(); });
        throw;
    }
    std::shared_ptr<const CartItems> items;
    const std::optional<std::string> failure = Commit(xfer, items);

    Attempt([&] { LoadingFinished(); });
    if (failure) {
        Attempt([&] { CancelTransaction(); });
        Attempt([&] { GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_TRANSACTION_FAILED, *failure)); });
        LogFailure(source, *failure);
    } else {
        Attempt([&] { NotifyUser("Successfully transferred " + FormatCount(items->Count(), "%d item", "%d items")); });
        Attempt([&] { GetDispatcher()->Dispatch(CreateAction(ActionTypes::CART_TRANSACTION_SUCCESS, xfer)); });
    }
}

}  // namespace quellbrook
