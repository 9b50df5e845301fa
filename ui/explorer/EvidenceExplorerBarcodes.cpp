#include "ui/explorer/EvidenceExplorer.h"

#include "base/Screen.h"
#include "base/Text.h"
#include "core/Actions.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "ui/common/ScannedItems.h"
#include "ui/controls/BarcodeListenerControl.h"
#include "ui/explorer/LocationTree.h"
#include "ui/platform/Guard.h"

#include <QPointer>

namespace quellbrook {

namespace {

void RequireNumeric(const std::string& barcodeData) {
    if (IsNumeric(barcodeData)) return;
    Raise(ErrorNumber::General, "EvidenceExplorer.itemBarcodeListener_BarcodeScanned",
          "The barcode you scanned is invalid. If you believe the barcode is OK, try re-scanning it.");
}

void ReportScanError(const Error& error) {
    ShowMessage("There was a problem with the barcode you scanned: \r\n\r\n" + error.Description(),
                MessageStyle::Critical, "Barcode Scan Error");
}

}  // namespace

void EvidenceExplorer::MakeBarcodeListener() {
    m_itemBarcodeListener = new BarcodeListenerControl(this);
    m_itemBarcodeListener->setObjectName("itemBarcodeListener");
    m_itemBarcodeListener->BarcodeScanned().connect([this](int32_t barcodeType, const std::string& barcodeData) {
        Guard([&] { itemBarcodeListener_BarcodeScanned(barcodeType, barcodeData); }, ReportScanError);
    });
}

void EvidenceExplorer::itemBarcodeListener_BarcodeScanned(int32_t barcodeType, const std::string& barcodeData) {
    switch (barcodeType) {
    case BarcodeType::Location: return OpenScannedLocation(barcodeData);
    case BarcodeType::Property:
    case BarcodeType::Vehicle: return OpenScannedItem(barcodeType, barcodeData);
    default: return;
    }
}

void EvidenceExplorer::OpenScannedLocation(const std::string& number) {
    RequireNumeric(number);
    const int32_t id = ParseInt32(number);
    if (const StorageLocationRef location = GetStorageLocationStatic().FindByID(id))
        return SetSelectedLocation(location);
    // Another workstation may have created it.
    GetStorageLocationStatic().Refresh();
    if (const StorageLocationRef location = GetStorageLocationStatic().FindByID(id)) {
        const QPointer<EvidenceExplorer> self(this);
        m_locationPane->RefreshInPlace();
        if (self) SetSelectedLocation(location);
        return;
    }
    ShowMessage("The location barcode you scanned refers to a location that is no longer in your database.",
                MessageStyle::Critical, "Location Not Found");
}

void EvidenceExplorer::OpenScannedItem(int32_t barcodeType, const std::string& number) {
    RequireNumeric(number);
    const auto found = FindScannedItems(barcodeType, number);
    if (!found->IsEmpty()) return GetActions().OpenStoredItem(found->ItemAt(0));
    ShowItemNotFound();
}

}  // namespace quellbrook
