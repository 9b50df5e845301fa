#pragma once

#include "data/Transfer.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook::bench {

// A batch that several transfers use, so that it keeps the present numbers of the custody rows.
class TransferBatch : public TransferItems {
public:
    struct Item {
        StoredItemRef stored;
        bool isVehicle;
        int32_t id;
        std::shared_ptr<int32_t> trackSeq;  // shared by all batches that contain the item
    };
    using TrackSeqs = std::map<std::pair<bool, int32_t>, std::shared_ptr<int32_t>>;

    // `count` items, spread over the keys. Nine in ten are property.
    TransferBatch(const std::vector<int32_t>& properties, const std::vector<int32_t>& vehicles, int count, int offset,
                  TrackSeqs& trackSeqs);

    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return static_cast<int32_t>(m_items.size()); }
    StoredItemRef ItemAt(int32_t index) const override { return m_items.at(static_cast<size_t>(index)).stored; }
    TaggedValue TrackSeqAt(int32_t index) const override { return *m_items.at(static_cast<size_t>(index)).trackSeq; }

    const std::vector<Item>& Items() const { return m_items; }
    void CountTransfer() const {
        for (const Item& item : m_items) ++*item.trackSeq;
    }

private:
    std::vector<Item> m_items;
};

}  // namespace quellbrook::bench
