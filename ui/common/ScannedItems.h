#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quellbrook {

class StoredItemList;

// The stored items with the number in an item barcode; null if the barcode type is not that of an item.
std::shared_ptr<StoredItemList> FindScannedItems(int32_t barcodeType, const std::string& barcodeData);

void ShowItemNotFound();

}  // namespace quellbrook
