#include "ui/common/ScannedItems.h"

#include "base/Screen.h"
#include "data/StoredItemSearch.h"
#include "input/BarcodeListener.h"

namespace quellbrook {

std::shared_ptr<StoredItemList> FindScannedItems(int32_t barcodeType, const std::string& barcodeData) {
    switch (barcodeType) {
    case BarcodeType::Property:
        return StoredItemSearch().WithNumber(NumberSearchTypes::PropertyPK, barcodeData).Execute();
    case BarcodeType::Vehicle:
        return StoredItemSearch().WithNumber(NumberSearchTypes::VehiclePK, barcodeData).Execute();
    default: return nullptr;
    }
}

void ShowItemNotFound() {
    ShowMessage("The barcode you scanned refers to a item that is no longer in your database.", MessageStyle::Critical,
                "Item Not Found");
}

}  // namespace quellbrook
