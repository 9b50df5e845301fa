#include "core/Actions.h"
#include "data/StoredItemSearch.h"
#include "ui/common/ScannedItems.h"
#include "ui/controls/BarcodeListenerControl.h"
#include "ui/items/CartView.h"
#include "ui/platform/Guard.h"

namespace quellbrook {

void CartView::BuildBarcodeListener() {
    auto* listener = new BarcodeListenerControl(this);
    listener->setObjectName("itemBarcodeLicenser");
    listener->BarcodeScanned().connect([this](int32_t barcodeType, const std::string& barcodeData) {
        Guard([&] { itemBarcodeLicenser_BarcodeScanned(barcodeType, barcodeData); });
    });
}

// Adds the item to the batch whether or not it can be transferred that way.
void CartView::itemBarcodeLicenser_BarcodeScanned(int32_t barcodeType, const std::string& barcodeData) {
    const auto found = FindScannedItems(barcodeType, barcodeData);
    if (!found || found->IsEmpty()) {
        ShowItemNotFound();
        return;
    }
    GetActions().AddToCart(found);
    GetActions().NotifyUser("Added 1 item ('" + found->ItemAt(0)->Description() + "') scanned from barcode");
}

}  // namespace quellbrook
