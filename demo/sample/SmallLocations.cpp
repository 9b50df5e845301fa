#include "demo/sample/SmallLocations.h"

#include "demo/sample/Codes.h"

namespace quellbrook::sample {

SmallLocations SmallLocationsOf(const LocationTree& smallTree) {
    const auto at = [&smallTree](const char* fullName) { return smallTree.Find(fullName); };
    SmallLocations small;
    small.purposes.intake = {at("Intake Lockers > Locker 11"), at("Intake Lockers > Locker 12"),
                             at("Intake Lockers > Locker 13"), at("Intake Lockers > Locker 14 \"Oversize\"")};
    small.purposes.labs = {at("Crime Lab > Biology"), at("Crime Lab > Digital Forensics"), at("Crime Lab > Firearms"),
                           at("Crime Lab > Latent Prints"), at("Crime Lab > Toxicology")};
    small.purposes.courts = {at("Circuit Court"), at("Municipal Court")};
    small.purposes.officers = {at("Officer Custody")};
    small.purposes.prosecutors = {at("Prosecutor's Office")};
    small.purposes.review = {at("Pending Review"), at("Pending Review > Missing Paperwork")};
    small.dispositions = {
        {at("Auction"), {Status::SoldAtAuction, "Sold as part of the quarterly lot."}},
        {at("Destroyed > Incineration"), {Status::Destroyed, "Destroyed in the presence of two officers."}},
        {at("Destroyed > Shredding"), {Status::Destroyed, "Destroyed in the presence of two officers."}},
        {at("Released to Agency"), {Status::ReleasedToAgency, ""}},
        {at("Returned to Owner"), {Status::ReturnedToOwner, "Receipt signed by owner."}},
    };
    for (const auto& [location, disposition] : small.dispositions) small.purposes.disposal.push_back(location);
    for (const char* name :
         {"Property Room > Aisle 1 > Shelf A", "Property Room > Aisle 1 > Shelf B", "Property Room > Aisle 1 > Shelf C",
          "Property Room > Aisle 2 > Shelf A", "Property Room > Aisle 2 > Shelf B", "Property Room > Aisle 2 > Shelf C",
          "Property Room > Aisle 2 > Shelf D", "Property Room > Aisle 3 > Shelf A",
          "Property Room > Aisle 3 > Shelf B > Bin B-1 > Tray 1", "Property Room > Aisle 3 > Shelf B > Bin B-2",
          "Property Room > Aisle 3 > Shelf C"}) {
        small.shelves.push_back(at(name));
    }
    small.vaults = {at("Property Room > Drug Vault > Safe 1"), at("Property Room > Drug Vault > Safe 2 > Drawer 1"),
                    at("Property Room > Drug Vault > Safe 2 > Drawer 2  ")};
    small.rows = {at("Impound Lot > Row 1"), at("Impound Lot > Row 1"), at("Impound Lot > Row 2"),
                  at("Impound Lot > Row 3"), at("Impound Lot > Row 3"), at("Impound Lot > Covered Bay")};
    return small;
}

}  // namespace quellbrook::sample
