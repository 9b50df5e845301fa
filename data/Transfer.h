#pragma once

#include "data/StoredItemList.h"
#include "data/TransferData.h"

namespace quellbrook {

// The items of a batch.
class TransferItems : public StoredItemList {
public:
    // The item's CurrTrackSeq when it was put into the batch. Error 9 outside the list.
    virtual TaggedValue TrackSeqAt(int32_t index) const = 0;
};

// Writes one custody row for each item, all in one transaction. Before that, in the same transaction, checks that no
// item has got another custody row since it was put into the batch, and that the destination still exists, is enabled
// and has the category under which it was chosen. Otherwise Error 5 with a description for the custodian: what has
// become of the destination, and where at most five of the items are now.
void ExecuteTransfer(const TransferItems& items, const TransferData& xfer);

}  // namespace quellbrook
