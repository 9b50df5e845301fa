#include "demo/sample/Chains.h"
#include "demo/sample/Departments.h"
#include "demo/sample/Locations.h"
#include "demo/sample/Numbering.h"
#include "demo/sample/Words.h"

namespace quellbrook::sample {

namespace {

constexpr int32_t propertyCount = 60, vehicleCount = 6;

LocationPurposes PurposesOf(const LocationTree& tree) {
    LocationPurposes purposes;
    purposes.intake = {tree.Find("Intake Lockers")};
    purposes.labs = {tree.Find("Crime Lab"), tree.Find("Crime Lab > Digital Forensics")};
    purposes.courts = {tree.Find("Circuit Court"), tree.Find("Circuit Court > Clerk Vault")};
    purposes.officers = {tree.Find("Officer Custody")};
    purposes.prosecutors = {tree.Find("Prosecutor's Office")};
    purposes.review = {tree.Find("Unknown (2014 import)")};
    return purposes;
}

Fate FateAt(Random& random, int32_t home) {
    Fate fate;
    fate.day = random.Below(DayCount - LongestChain);
    fate.home = home;
    fate.journeys = random.Below(2);
    fate.end = random.Chance(85) ? End::InStorage : End::SignedOut;
    return fate;
}

}  // namespace

void WriteUncategorizedDepartment(DepartmentWriter& writer, const SampleProgress& progress) {
    const LocationTree tree = MakeUncategorizedTree();
    for (const Location& location : tree.All()) writer.AddLocation(location);
    Random random(20261121);
    LocationPurposes purposes = PurposesOf(tree);
    const std::vector<int32_t> shelves = {
        tree.Find("Evidence Room > Aisle 1 > Shelf 1A"), tree.Find("Evidence Room > Aisle 1 > Shelf 1B"),
        tree.Find("Evidence Room > Aisle 2 > Shelf 2A"), tree.Find("Refrigerated Storage")};
    for (int32_t no = 1; no <= propertyCount; ++no) {
        Property property;
        property.no = no;
        property.id = "F-" + Padded(no, 4);
        DescribeProperty(random, property);
        writer.AddProperty(property, MakeChain(random, purposes, FateAt(random, random.Pick(shelves))));
        if (progress) progress(no * 100 / propertyCount);
    }
    const int32_t lot = tree.Find("Impound Lot");
    purposes.intake = {lot};
    for (int32_t no = 0; no < vehicleCount; ++no) {
        Vehicle vehicle;
        DescribeVehicle(random, vehicle);
        vehicle.no = FirstVehicleNo + no;
        writer.AddVehicle(vehicle, MakeChain(random, purposes, FateAt(random, lot)));
    }
}

}  // namespace quellbrook::sample
