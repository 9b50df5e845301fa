#include "data/StorageLocationStatic.h"

namespace quellbrook {

StorageLocationRef StorageLocation::Parent() const {
    if (IsRoot()) return nullptr;
    const std::vector<int32_t>& ids = m_path.Ids();
    if (ids.size() < 2) return GetStorageLocationStatic().GetRoot(m_type);
    return GetStorageLocationStatic().FindByID(ids.back());
}

}  // namespace quellbrook
