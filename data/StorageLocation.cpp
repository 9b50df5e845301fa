#include "data/StorageLocation.h"

#include "base/Error.h"
#include "base/Text.h"

#include <set>

namespace quellbrook {

namespace {

// The result views the document.
std::string_view ChildText(const pugi::xml_node& node, const char* name) {
    const pugi::xml_node child = node.child(name);
    if (!child) Raise(ErrorNumber::NullObject, "StorageLocation.LoadFromXMLDOMNode");
    return child.text().get();
}

}  // namespace

std::string StorageLocation::FullPath(const std::string& pathSeparator, bool includeRoot) const {
    std::string result;
    std::set<int32_t> seen;
    auto current = shared_from_this();
    while (current && (includeRoot || !current->IsRoot()) && seen.insert(current->ID()).second) {
        if (!result.empty()) result.insert(0, pathSeparator);
        result.insert(0, Trim(current->Name()));
        current = current->Parent();
    }
    return result;
}

StorageLocationList StorageLocation::SubLocations() const {
    RequireNotDeleted("StorageLocation.SubLocations");
    const auto document = m_locationData.GetDocument();
    StorageLocationList children;
    for (const pugi::xml_node& node : document->Children(m_path.Append(m_id).ToText(), static_cast<int32_t>(m_type))) {
        auto child = std::make_shared<StorageLocation>();
        child->LoadFromXMLDOMNode(node);
        children.push_back(std::move(child));
    }
    return children;
}

bool StorageLocation::IsSame(const StorageLocation* other) const {
    return other && other->ID() == m_id && other->LocationType() == m_type;
}

void StorageLocation::Refresh() {
    if (IsRoot()) return;
    m_locationData.Reload();
    const auto document = m_locationData.GetDocument();
    if (const pugi::xml_node node = document->FindByID(m_id))
        LoadFromXMLDOMNode(node);
    else
        m_isDeleted = true;
}

std::vector<int32_t> StorageLocation::GetSelfAndDescendantIDs() const {
    std::vector<int32_t> ids{m_id};
    for (const StorageLocationRef& child : SubLocations()) {
        const std::vector<int32_t> below = child->GetSelfAndDescendantIDs();
        ids.insert(ids.end(), below.begin(), below.end());
    }
    return ids;
}

void StorageLocation::RequireNotDeleted(const char* source) const {
    if (m_isDeleted) Raise(ErrorNumber::General, source, "The current location has been deleted.");
}

void StorageLocation::InitializeAs(const std::string& name, StorageLocationTypes type) {
    m_name = name;
    m_type = type;
    m_path = LocationPath().Append(0);
}

void StorageLocation::MakeRoot() {
    m_id = 0;
    m_path = LocationPath();
}

void StorageLocation::LoadFromXMLDOMNode(const pugi::xml_node& node) {
    int step = 1;
    try {
        m_id = ParseInt32(ChildText(node, "IdNo"));
        step = 2;
        m_name = ChildText(node, "Name");
        step = 3;
        m_path = LocationPath().Parse(ChildText(node, "Path"));
        step = 4;
        m_type = static_cast<StorageLocationTypes>(ParseInt32(ChildText(node, "Type")));
        step = 5;
        if (node.child("ActiveFlag")) m_enabled = ToBool(ChildText(node, "ActiveFlag"));
        step = 6;
        m_lastUpdated = ToDateTime(ChildText(node, "LastUpdated"));
    } catch (...) {
        const Error error = CurrentError();
        Raise(error.Number(), TypeName() + ".LoadFromXMLDOMNode (line " + std::to_string(step) + ")",
              "Error loading StorageLocation from XML node: " + error.Description());
    }
}

}  // namespace quellbrook
