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

// A place where evidence can be: a snapshot of one row of StorageLocation, or one of the five roots that stand for the
// categories and are no rows. Two objects for one row are told to be the same by IsSame. Always held by shared
// reference.
//
// Move, CreateSubLocation, SetEnabled, Rename and Delete write to the database, all of it or nothing, and read the
// location document again. They fail with error 5 and a sentence for the custodian; where it was the reading that
// failed, what has been written stands all the same. They test no right.
class StorageLocation : public Object, public std::enable_shared_from_this<StorageLocation> {
public:
    std::string TypeName() const override { return "StorageLocation"; }

    bool IsDeleted() const { return m_isDeleted; }
    int32_t ID() const { return m_id; }  // 0 for a root
    const std::string& Name() const { return m_name; }
    // Null for a root, and where the container's row has gone.
    StorageLocationRef Parent() const;
    // Puts this location and all below it into another container, or under the root of a category, which all of them
    // then belong to. Nothing is sent where it stands there already. Error 91 for null.
    void Move(const StorageLocationRef& newParent);
    // The trimmed names from the top down.
    std::string FullPath(const std::string& pathSeparator = "/", bool includeRoot = false) const;
    StorageLocationTypes LocationType() const { return m_type; }
    // A new, enabled location in this one, which may be a root; the name is stored as given.
    StorageLocationRef CreateSubLocation(const std::string& name);
    // Sets the flag of this location alone; its sublocations keep theirs.
    void SetEnabled(bool rhs);
    bool Enabled() const { return m_enabled; }
    // The direct children in document order. Error 5 on a deleted object.
    StorageLocationList SubLocations() const;
    // What lies here now, sublocations not included. Error 5 on a deleted object.
    std::shared_ptr<StoredItemList> StoredItems();
    int32_t StoredItemsCount();
    bool IsRoot() const { return m_id == 0; }
    // The name is stored as given; one of blanks alone is refused.
    void Rename(const std::string& newName);
    // Prints the location's label, also of one that is deleted. Error 5 with a sentence: for a root, and for any
    // failure.
    void PrintBarcodeLabel() const;
    // Removes this location and all below it, or nothing where one of them is in use.
    void Delete();
    // False for null; the type is compared too, since all roots have identifier 0.
    bool IsSame(const StorageLocation* other) const;
    // Reads the whole table again; a vanished row leaves this object deleted. A root does nothing.
    void Refresh();
    // This location and all below it, depth first, containers before their contents.
    std::vector<int32_t> GetSelfAndDescendantIDs() const;

    // For the module's own use.
    void InitializeAs(const std::string& name, StorageLocationTypes type);
    void MakeRoot();
    const LocationPath& GetPath() const { return m_path; }
    void LoadFromXMLDOMNode(const pugi::xml_node& node);

private:
    // Error 5 on a deleted object.
    void RequireStanding(const char* source) const;
    // Asks the database, not the document.
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
