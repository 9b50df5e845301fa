#pragma once

#include "base/DateTime.h"
#include "base/Object.h"
#include "data/Types.h"
#include "host/HostLocationData.h"
#include "host/LocationPath.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

class StorageLocation;
class StoredItemList;
using StorageLocationRef = std::shared_ptr<StorageLocation>;
using StorageLocationList = std::vector<StorageLocationRef>;

// A storage location: a snapshot of one row of StorageLocation, or one of the five roots, which represent the
// categories and have no row. IsSame compares two objects by row. Use it only through shared references.
//
// Move, CreateSubLocation, SetEnabled, Rename and Delete write to the database in one transaction and reload the
// location document. They fail with Error 5 and a message for the custodian. If only the reload fails, what was written
// is kept. Move, SetEnabled and Rename also fail if the row has been deleted elsewhere, and this object then becomes
// deleted. Rights are not checked here.
class StorageLocation : public Object, public std::enable_shared_from_this<StorageLocation> {
public:
    std::string TypeName() const override { return "StorageLocation"; }

    bool IsDeleted() const { return m_isDeleted; }
    int32_t ID() const { return m_id; }  // 0 for a root
    const std::string& Name() const { return m_name; }
    // Null for a root or if the container's row was deleted.
    StorageLocationRef Parent() const;
    // Moves this location with its sublocations into another container or root; all of them get its category. Does
    // nothing if it is already there. Error 91 for null.
    void Move(const StorageLocationRef& newParent);
    // The trimmed names from the top down. Each location appears once, even if the stored paths contain a circle.
    std::string FullPath(const std::string& pathSeparator = "/", bool includeRoot = false) const;
    StorageLocationTypes LocationType() const { return m_type; }
    // A new, enabled location in this one, which may be a root; the name is stored as given.
    StorageLocationRef CreateSubLocation(const std::string& name);
    // Does not change sublocations.
    void SetEnabled(bool rhs);
    bool Enabled() const { return m_enabled; }
    // The direct children in document order. Error 5 on a deleted object.
    StorageLocationList SubLocations() const;
    // The items that are here now, without sublocations. Error 5 on a deleted object.
    std::shared_ptr<StoredItemList> StoredItems();
    int32_t StoredItemsCount();
    bool IsRoot() const { return m_id == 0; }
    // The name is stored as given; a blank name is rejected.
    void Rename(const std::string& newName);
    // Prints the location's label, even if the location has been deleted. Error 5 with a message for a root or any
    // failure.
    void PrintBarcodeLabel() const;
    // Deletes this location and its sublocations, or nothing if one of them is in use.
    void Delete();
    // False for null; the type is compared too, since all roots have identifier 0.
    bool IsSame(const StorageLocation* other) const;
    // Reloads the whole table; if the row is gone, this object becomes deleted. Does nothing for a root.
    void Refresh();
    // This location and its sublocations, depth first, containers before their contents.
    std::vector<int32_t> GetSelfAndDescendantIDs() const;

    // The path of the container.
    const LocationPath& GetPath() const { return m_path; }

private:
    friend class StorageLocationStatic;
    friend struct StorageLocationInternals;  // for tests
    void InitializeAs(const std::string& name, StorageLocationTypes type);
    void MakeRoot();
    void LoadFromXMLDOMNode(const pugi::xml_node& node);
    // Error 5 on a deleted object.
    void RequireNotDeleted(const char* source) const;
    // Queries the database, not the document.
    static bool NameExists(const std::string& path, const std::string& name, StorageLocationTypes locationType,
                           int32_t excludeId);

    mutable HostLocationData m_locationData;
    int32_t m_id = -1;
    std::string m_name;
    LocationPath m_path = LocationPath().Append(0);  // the container's path
    StorageLocationTypes m_type = StorageLocationTypes::Unassigned;
    bool m_enabled = true;
    DateTime m_lastUpdated;
    bool m_isDeleted = false;
};

}  // namespace quellbrook
