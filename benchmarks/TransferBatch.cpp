#include "benchmarks/TransferBatch.h"

#include "data/StoredItemSearch.h"

namespace quellbrook::bench {

TransferBatch::TransferBatch(const std::vector<int32_t>& properties, const std::vector<int32_t>& vehicles, int count,
                             int offset, TrackSeqs& trackSeqs) {
    for (int i = 0; i < count; ++i) {
        const bool isVehicle = i % 10 == 9;
        const auto& keys = isVehicle ? vehicles : properties;
        const int32_t key = keys.at(static_cast<size_t>(i + offset) * 6007 % keys.size());
        const auto type = isVehicle ? NumberSearchTypes::VehiclePK : NumberSearchTypes::PropertyPK;
        const StoredItemRef item = StoredItemSearch().WithNumber(type, std::to_string(key)).Execute()->ItemAt(0);
        std::shared_ptr<int32_t>& trackSeq = trackSeqs[{isVehicle, key}];
        if (!trackSeq) trackSeq = std::make_shared<int32_t>(ToInt32(item->CurrTrackSeq()));
        m_items.push_back({item, isVehicle, key, trackSeq});
    }
}

}  // namespace quellbrook::bench
