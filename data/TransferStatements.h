#pragma once

#include "data/StoredItemList.h"
#include "data/TransferData.h"

#include <string>
#include <vector>

namespace quellbrook {

// "NULL" for a NULL or empty value, otherwise the value as text, unquoted.
std::string DbPrepField(const TaggedValue& value);
// The decimal identifier. Error 5 for a root, 91 for null.
std::string DbPrepStorageLocationField(const StorageLocation* location);

// The statements that transfer the items, for one batch: 3 + 3n for n items, n more with a final disposition.
std::vector<std::string> MakeTransferStatements(const StoredItemList& items, const TransferData& xfer);

}  // namespace quellbrook
