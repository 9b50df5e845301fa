#include "base/ObjectList.h"
#include "base/Screen.h"
#include "core/Actions.h"
#include "data/StoredItemSearch.h"
#include "ui/controls/BarcodeListenerControl.h"
#include "ui/items/CartView.h"
#include "ui/platform/Guard.h"

#include <memory>

namespace quellbrook {

namespace {

std::shared_ptr<StoredItemList> FindScannedItems(int32_t barcodeType, const std::string& barcodeData) {
    switch (barcodeType) {
    case BarcodeType::Property:
        return StoredItemSearch().WithNumber(NumberSearchTypes::PropertyPK, barcodeData).Execute();
    case BarcodeType::Vehicle:
        return StoredItemSearch().WithNumber(NumberSearchTypes::VehiclePK, barcodeData).Execute();
    default: return nullptr;
    }
}

}  // namespace

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
        ShowMessage("The barcode you scanned refers to a item that is no longer in your database.",
                    MessageStyle::Critical, "Item Not Found");
        return;
    }
    const StoredItemRef first = found->ItemAt(0);
    auto items = std::make_shared<ObjectVector>();
    for (int32_t i = 0; i < found->Count(); ++i) items->Add(found->ItemAt(i));
    GetActions().AddToCart(items);
    GetActions().NotifyUser("Added 1 item ('" + first->Description() + "') scanned from barcode");
}

}  // namespace quellbrook
