#include "demo/sample/Chains.h"
#include "demo/sample/Departments.h"
#include "demo/sample/EdgeCases.h"
#include "demo/sample/Locations.h"
#include "demo/sample/Numbering.h"
#include "demo/sample/Words.h"

#include <algorithm>

namespace quellbrook::sample {

namespace {

constexpr int32_t itemsOnFullShelf = 190, itemsAtCounter = 170;

class LargeDepartment {
public:
    LargeDepartment(DepartmentWriter& writer, int32_t items, const SampleProgress& progress)
        : m_writer(writer),
          m_progress(progress),
          m_vehicles(items / 10),
          m_properties(items - m_vehicles),
          m_incidents(std::max(1, items * 2 / 5)),
          m_large(MakeLargeTree(LocationsFor(items))) {}

    void Write() {
        for (const Location& location : m_large.tree.All()) m_writer.AddLocation(location);
        for (const StandIn& standIn : EdgeCaseStandIns()) m_writer.AddPerson(standIn.person);
        m_purposes.intake = {m_large.counter};
        m_purposes.labs = m_purposes.courts = m_purposes.officers = m_purposes.prosecutors = m_large.signOut;
        m_purposes.disposal = m_large.disposal;
        m_purposes.review = m_large.other;
        for (int32_t no = 1; no <= m_incidents; ++no) AddIncident(no);
        for (int32_t k = 0; k < m_properties; ++k) AddProperty(k);
        for (int32_t k = 0; k < m_vehicles; ++k) AddVehicle(k);
    }

private:
    // Incidents are in date order over the three years, so that the incident of an item determines its day.
    int32_t DayOf(int32_t incident) const {
        return static_cast<int32_t>(static_cast<int64_t>(incident - 1) * (DayCount - LongestChain) / m_incidents);
    }

    std::string IdOf(int32_t incident) const {
        const DateTime date{FirstDay.milliseconds + DayOf(incident) * DayLength};
        return std::to_string(date.ToParts().year) + "-" + Padded(incident, 6);
    }

    // One incident in forty has the case number of the previous one.
    void AddIncident(int32_t no) {
        Incident incident;
        incident.no = no;
        incident.id = IdOf(no);
        incident.secured = m_random.Chance(5);
        if (m_random.Chance(70)) {
            const int32_t number = no > 1 && no % 40 == 0 ? no - 1 : no;
            incident.caseNumber = "C-" + incident.id.substr(2, 2) + "-" + std::to_string(100'000 + number);
        }
        m_writer.AddIncident(incident);
    }

    // Spreads `count` marks evenly over the property. Returns whether the piece at this position has one.
    bool Marked(int32_t index, int32_t count) const {
        const int64_t marks = std::min(count, m_properties / 10);
        return index * marks / m_properties != (index + 1) * marks / m_properties;
    }

    // The location of the piece if it is fixed; 0 for most.
    int32_t MarkedLocation(int32_t index) const {
        if (Marked(index, itemsOnFullShelf)) return m_large.fullShelf;
        return Marked((index + m_properties / 3) % m_properties, itemsAtCounter) ? m_large.counter : 0;
    }

    Fate MakeFate(int32_t day) {
        Fate fate;
        fate.day = day;
        const int32_t drawn = m_random.Below(100);
        fate.end = drawn < 84   ? End::InStorage
                   : drawn < 89 ? End::SignedOut
                   : drawn < 95 ? End::Disposed
                                : End::NoLocation;
        const int32_t home = m_random.Below(100);
        fate.home = home < 2 ? m_large.warehouse : m_random.Pick(m_large.storage);
        const int32_t journeys = m_random.Below(100);
        fate.journeys = journeys < 34 ? 0 : journeys < 78 ? 1 : 2;
        fate.startsInReview = m_random.Chance(8);
        return fate;
    }

    void AddProperty(int32_t index) {
        const auto incident = static_cast<int32_t>(static_cast<int64_t>(index) * m_incidents / m_properties) + 1;
        m_piece = incident == m_lastIncident ? m_piece + 1 : 1;
        m_lastIncident = incident;
        Property property;
        property.no = index + 1;
        property.id = IdOf(incident) + "-" + Padded(m_piece, 2);
        DescribeProperty(m_random, property);
        Fate fate = MakeFate(DayOf(incident));
        bool untracked = m_random.Chance(3);
        if (const int32_t location = MarkedLocation(index); location > 0) {
            fate.home = location;
            fate.end = End::InStorage;
            untracked = false;
        }
        if (fate.end == End::Disposed && !untracked) property.disposition = Disposition{Status::Destroyed, ""};
        AddEdgeCases(index, property);
        if (const auto filing = FilingOf(index)) AttachPictures(property, *filing, index / 6);
        m_writer.AddProperty(property, ChainOf(index, untracked, fate));
        m_writer.LinkProperty(incident, property.no);
        if (m_random.Chance(25)) m_writer.LinkProperty(m_random.Between(1, m_incidents), property.no);
        if (IsLinkedTwice(index)) m_writer.LinkProperty(incident, property.no);
        Report(index);
    }

    std::vector<Custody> ChainOf(int32_t index, bool untracked, const Fate& fate) {
        if (untracked) return {};
        std::vector<Custody> chain = MakeChain(m_random, m_purposes, fate);
        AddEdgeCasePersons(index, chain);
        return chain;
    }

    void AddVehicle(int32_t index) {
        const int32_t incident = m_random.Between(1, m_incidents);
        Vehicle vehicle;
        vehicle.no = FirstVehicleNo + index;
        DescribeVehicle(m_random, vehicle);
        const Fate fate = MakeFate(DayOf(incident));
        const bool untracked = m_random.Chance(3);
        if (fate.end == End::Disposed && !untracked) vehicle.disposition = Disposition{Status::SoldAtAuction, ""};
        AddEdgeCases(index, vehicle);
        if (const auto filing = FilingOf(index)) AttachPictures(vehicle, *filing);
        m_writer.AddVehicle(vehicle, ChainOf(index, untracked, fate));
        m_writer.LinkVehicle(incident, vehicle.no);
        if (IsLinkedTwice(index)) m_writer.LinkVehicle(incident, vehicle.no);
        Report(m_properties + index);
    }

    void Report(int32_t done) {
        const auto percent = static_cast<int32_t>(static_cast<int64_t>(done + 1) * 100 / (m_properties + m_vehicles));
        if (percent == m_percent) return;
        m_percent = percent;
        if (m_progress) m_progress(percent);
    }

    DepartmentWriter& m_writer;
    const SampleProgress& m_progress;
    const int32_t m_vehicles;
    const int32_t m_properties;
    const int32_t m_incidents;
    const LargeTree m_large;
    Random m_random{5000};
    LocationPurposes m_purposes;
    int32_t m_lastIncident = 0;
    int32_t m_piece = 0;
    int32_t m_percent = 0;
};

}  // namespace

void WriteLargeDepartment(DepartmentWriter& writer, int32_t items, const SampleProgress& progress) {
    LargeDepartment(writer, items, progress).Write();
}

}  // namespace quellbrook::sample
