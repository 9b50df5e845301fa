#include "data/StorageLocationStatic.h"

namespace quellbrook {

namespace {

std::string KeyOf(StorageLocationTypes type) { return std::to_string(static_cast<int32_t>(type)); }

}  // namespace

StorageLocationStatic::StorageLocationStatic() {
    constexpr std::pair<StorageLocationTypes, const char*> roots[] = {
        {StorageLocationTypes::Internal, "Sign-In Locations"},
        {StorageLocationTypes::External, "Sign-Out Locations"},
        {StorageLocationTypes::DisposalLocation, "Final Disposition"},
        {StorageLocationTypes::Other, "Other Locations"},
        {StorageLocationTypes::Unassigned, "Uncategorized Locations"},
    };
    for (const auto& [type, name] : roots) {
        auto root = std::make_shared<StorageLocation>();
        root->InitializeAs(name, type);
        root->MakeRoot();
        m_roots.Add(std::move(root), KeyOf(type));
    }
}

StorageLocationRef StorageLocationStatic::GetRoot(StorageLocationTypes locationType) const {
    const std::string key = KeyOf(locationType);
    if (!m_roots.Contains(key)) Raise(ErrorNumber::General, "StorageLocationStatic.GetRoot", "Unknown root.");
    return m_roots.Item(key);
}

StorageLocationRef StorageLocationStatic::FindByID(int32_t id) const {
    const auto document = HostLocationData().GetDocument();
    const pugi::xml_node node = document->FindByID(id);
    if (!node) return nullptr;
    auto location = std::make_shared<StorageLocation>();
    location->LoadFromXMLDOMNode(node);
    return location;
}

TaggedValue StorageLocationStatic::Refresh() { return HostLocationData().Reload(); }

StorageLocationStatic& GetStorageLocationStatic() {
    static StorageLocationStatic instance;
    return instance;
}

}  // namespace quellbrook
