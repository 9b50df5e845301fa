#include "demo/sample/Chains.h"
#include "demo/sample/Departments.h"
#include "demo/sample/KnownItems.h"
#include "demo/sample/Locations.h"
#include "demo/sample/Numbering.h"
#include "demo/sample/SmallEdgeCases.h"
#include "demo/sample/SmallLocations.h"
#include "demo/sample/Words.h"

#include <algorithm>
#include <map>

namespace quellbrook::sample {

namespace {

constexpr int32_t propertyCount = 300, vehicleCount = 40, generatedIncidents = 118;

// "2026-0417" for an incident of this day: a department of this size has about 1.6 a day.
std::string IncidentId(int32_t day) {
    const DateTime date{FirstDay.milliseconds + day * DayLength};
    const DateTime::Parts parts = date.ToParts();
    const DateTime newYear = DateTime::FromParts({parts.year, 1, 1, 0, 0, 0, 0});
    const auto dayOfYear = static_cast<int32_t>((date.milliseconds - newYear.milliseconds) / DayLength);
    return std::to_string(parts.year) + "-" + Padded(dayOfYear * 8 / 5 + 1, 4);
}

class SmallDepartment {
public:
    SmallDepartment(DepartmentWriter& writer, const SampleProgress& progress)
        : m_writer(writer), m_progress(progress), m_tree(MakeSmallTree()), m_small(SmallLocationsOf(m_tree)) {}

    void Write() {
        for (const Location& location : m_tree.All()) m_writer.AddLocation(location);
        for (const Incident& incident : KnownIncidents()) AddIncident(incident);
        AddKnownProperty();
        AddKnownVehicles();
        for (const KnownLink& link : KnownLinks()) Link(m_incidents.at(link.incident), link.item);
        while (m_generated < generatedIncidents) AddGeneratedIncident();
        while (m_properties < propertyCount || m_vehicles < vehicleCount) AddLoneItem();
    }

private:
    int32_t At(const char* fullName) const { return m_tree.Find(fullName); }

    void AddIncident(Incident incident) {
        incident.no = static_cast<int32_t>(m_incidents.size()) + 1;
        m_writer.AddIncident(incident);
        m_incidents.emplace(incident.id, incident.no);
    }

    void Link(int32_t incident, const std::string& item) {
        const int32_t no = m_items.at(item);
        if (no >= FirstVehicleNo) {
            m_writer.LinkVehicle(incident, no);
        } else {
            m_writer.LinkProperty(incident, no);
        }
    }

    void AddProperty(Property property, const std::vector<Custody>& chain) {
        property.no = ++m_properties;
        property.disposition = DispositionOf(chain);
        m_items.emplace(*property.id, property.no);
        AddSampleEdgeCases(property);
        AttachInSample(property);
        m_writer.AddProperty(property, chain);
        Report();
    }

    void AddVehicle(Vehicle vehicle, const std::vector<Custody>& chain) {
        vehicle.no = FirstVehicleNo + m_vehicles++;
        vehicle.disposition = DispositionOf(chain);
        m_items.emplace(vehicle.tag, vehicle.no);
        AddSampleEdgeCases(vehicle);
        AttachInSample(vehicle);
        m_writer.AddVehicle(vehicle, chain);
        Report();
    }

    void Report() {
        if (m_progress) m_progress((m_properties + m_vehicles) * 100 / (propertyCount + vehicleCount));
    }

    // The fate of an item that is now in this location.
    Fate FateThatEndsAt(int32_t location, int32_t day) {
        Fate fate;
        fate.day = day;
        fate.endLocation = location;
        fate.home = location;
        const int32_t type = m_tree.All()[static_cast<size_t>(location) - 1].type;
        if (type != Internal) fate.home = m_random.Pick(m_small.shelves);
        fate.end = type == Internal ? End::InStorage : type == External ? End::SignedOut : End::Disposed;
        fate.journeys = m_random.Below(2);
        return fate;
    }

    std::vector<Custody> ChainOfLaptop() {
        std::vector<Custody> chain;
        for (const KnownRow& row : LaptopChain()) {
            Custody custody;
            custody.receivedFrom = row.from;
            if (row.to > 0) custody.receivedBy = row.to;
            custody.received = DateTime::FromParts(row.received);
            custody.written.milliseconds = custody.received.milliseconds + m_random.Between(20'000, 1'200'000);
            custody.reason = row.reason;
            custody.location = At(row.location);
            chain.push_back(custody);
        }
        return chain;
    }

    void AddKnownProperty() {
        for (const KnownItem& known : KnownProperty()) {
            Property property;
            property.id = known.id;
            property.category = known.category;
            property.description = known.description;
            std::vector<Custody> chain;
            if (property.id == LaptopId) {
                property.make = "Brandtmoor";
                property.model = "BX-40";
                property.serial = "4Q17-088213";
                property.cents = 85'000;
                chain = ChainOfLaptop();
            } else if (*known.location) {
                const int32_t day = m_random.Between(1020, 1070);
                chain = MakeChain(m_random, m_purposes, FateThatEndsAt(At(known.location), day));
            }
            AddProperty(property, chain);
            const auto incident = m_incidents.find(property.id->substr(0, 9));
            if (incident != m_incidents.end()) Link(incident->second, *property.id);
        }
    }

    void AddKnownVehicles() {
        const Fate fate = FateThatEndsAt(At("Impound Lot > Row 2"), 1015);
        AddVehicle({0, "KTR4821", "OR", 2018, "Silver", "Veldra", "Tarn", 1, true, std::nullopt, {}},
                   MakeChain(m_random, m_purposes, fate));
        AddVehicle({0, "LVN2077", "OR", 2021, "White", "Halden", "Courier", 3, true, std::nullopt, {}}, {});
    }

    // A day without an incident so far.
    int32_t FreeDay() {
        for (;;) {
            const int32_t day = m_random.Below(1010);
            if (m_incidents.find(IncidentId(day)) == m_incidents.end()) return day;
        }
    }

    void AddGeneratedIncident() {
        const int32_t day = FreeDay();
        Incident incident;
        incident.id = IncidentId(day);
        incident.secured = m_random.Chance(8);
        if (m_random.Chance(65)) {
            incident.caseNumber = "C-" + incident.id.substr(2, 2) + "-" + std::to_string(m_random.Between(1000, 1999));
        }
        AddIncident(incident);
        const int32_t no = m_incidents.at(incident.id);
        ++m_generated;
        const int32_t pieces = m_random.Between(1, 3);
        for (int32_t piece = 1; piece <= pieces && m_properties < propertyCount; ++piece) {
            AddGeneratedProperty(incident.id + "-" + Padded(piece, 2), day);
            m_writer.LinkProperty(no, m_properties);
            if (IsLinkedTwiceInSample(m_properties)) m_writer.LinkProperty(no, m_properties);
            if (m_random.Chance(8)) m_writer.LinkProperty(m_random.Between(1, no), m_properties);
        }
        if (m_random.Chance(25) && m_vehicles < vehicleCount) {
            AddGeneratedVehicle(day);
            const int32_t vehicle = FirstVehicleNo + m_vehicles - 1;
            m_writer.LinkVehicle(no, vehicle);
            if (IsLinkedTwiceInSample(vehicle)) m_writer.LinkVehicle(no, vehicle);
        }
    }

    // Found property and abandoned vehicles have no incident.
    void AddLoneItem() {
        const int32_t day = m_random.Below(DayCount - LongestChain);
        if (m_properties < propertyCount) {
            AddGeneratedProperty("F-" + Padded(++m_found, 4), day);
        } else {
            AddGeneratedVehicle(day);
        }
    }

    Fate GeneratedFate(int32_t day, int32_t home) {
        Fate fate;
        fate.day = day;
        fate.home = home;
        fate.journeys = std::max(0, m_random.Below(5) - 1);
        fate.startsInReview = m_random.Chance(15);
        const int32_t drawn = m_random.Below(100);
        fate.end = drawn < 72   ? End::InStorage
                   : drawn < 83 ? End::SignedOut
                   : drawn < 95 ? End::Disposed
                   : drawn < 97 ? End::UnderReview
                                : End::NoLocation;
        return fate;
    }

    // For an item whose last row disposed of it.
    std::optional<Disposition> DispositionOf(const std::vector<Custody>& chain) const {
        if (chain.empty()) return std::nullopt;
        const std::optional<int32_t>& location = chain.back().location;
        if (!location) return Disposition{Status::ReleasedToAgency, "Transferred with the case file."};
        const auto known = m_small.dispositions.find(*location);
        if (known == m_small.dispositions.end()) return std::nullopt;
        return known->second;
    }

    int32_t HomeOf(const Property& property) {
        if (m_random.Chance(4)) return m_random.Pick(m_purposes.intake);
        if (property.category == Category::Drugs) return m_random.Pick(m_small.vaults);
        if (property.category == Category::Firearms) return At("Property Room > Firearms Cage");
        if (property.category == Category::Biological) return At("Refrigerated Storage");
        return m_random.Pick(m_small.shelves);
    }

    void AddGeneratedProperty(const std::string& id, int32_t day) {
        Property property;
        property.id = id;
        DescribeProperty(m_random, property);
        Fate fate = GeneratedFate(day, HomeOf(property));
        if (const char* location = LocationOutOfUse(m_properties + 1)) fate.home = At(location);
        AddProperty(property, MakeChain(m_random, m_purposes, fate));
    }

    void AddGeneratedVehicle(int32_t day) {
        Vehicle vehicle;
        do {
            DescribeVehicle(m_random, vehicle);
        } while (m_items.find(vehicle.tag) != m_items.end());
        const int32_t row = m_random.Pick(m_small.rows);
        LocationPurposes purposes = m_purposes;
        purposes.intake = {row};
        purposes.labs = {At("Crime Lab > Latent Prints")};
        purposes.disposal = {At("Auction"), At("Returned to Owner")};
        AddVehicle(vehicle, MakeChain(m_random, purposes, GeneratedFate(day, row)));
    }

    DepartmentWriter& m_writer;
    const SampleProgress& m_progress;
    const LocationTree m_tree;
    Random m_random{20261120};
    const SmallLocations m_small;
    const LocationPurposes& m_purposes = m_small.purposes;
    std::map<std::string, int32_t> m_incidents;
    std::map<std::string, int32_t> m_items;
    int32_t m_properties = 0;
    int32_t m_vehicles = 0;
    int32_t m_generated = 0;
    int32_t m_found = 0;
};

}  // namespace

void WriteSmallDepartment(DepartmentWriter& writer, const SampleProgress& progress) {
    SmallDepartment(writer, progress).Write();
}

}  // namespace quellbrook::sample
