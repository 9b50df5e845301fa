#include "data/StoredItem.h"

#include "base/Error.h"
#include "base/KeyedCollection.h"
#include "data/CustodyRecords.h"
#include "data/PlannedQueries.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "sql/query/QueryFactory.h"

#include <compare>
#include <string>

namespace quellbrook {

namespace {

bool IsProperty(const StoredItem& item) { return item.ItemType() == StoredItemTypes::Property; }

std::string KeyColumn(StoredItemTypes kind) { return kind == StoredItemTypes::Property ? "PropertyNo" : "VehicleNo"; }

bool SeesSecuredIncidents() {
    HostSession& session = HostServices::Current().Session();
    const bool first = session.HasPermission("Incident", 6);
    const bool second = session.HasPermission("Incident", 5);
    return first || second;
}

enum class Related { Incidents, OpenIncidents, Cases };

struct RelatedShape {
    StoredItemTypes kind;
    Related related;

    auto operator<=>(const RelatedShape&) const = default;
};

// Its only parameter is the item's key.
QuerySource ComposeRelated(const RelatedShape& shape) {
    const QueryFactory& factory = QueryServices::Factory();
    const QuerySource link = factory.Table(shape.kind == StoredItemTypes::Property ? "IncdProperty" : "IncdVehicle");
    const QuerySource incident = factory.Table("Incident");
    const QuerySource linked = link.Join(incident, 0)
                                   .On(link.Column("IncidentNo")
                                           .Equals(incident.Column("IncidentNo"))
                                           .And(link.Column(KeyColumn(shape.kind)).Equals(factory.Parameter(0))));
    if (shape.related == Related::Cases) return linked.Select({incident.Column("CaseNbr")});
    QuerySource query =
        linked.Select({incident.Column("IncidentNo"), incident.Column("IncidentId"), incident.Column("IsSecured")});
    if (shape.related == Related::OpenIncidents) query.Where(incident.Column("IsSecured").Equals(0));
    return query;
}

RowList QueryRelated(const StoredItem& item, Related related) {
    static PlannedQueries<RelatedShape> queries(ComposeRelated);
    const ParameterizedQuery& query = queries.Get({item.ItemType(), related});
    return HostDatabase().QueryRows(query.text, query.ValuesFor({item.ID()}));
}

RowList QueryIncidents(const StoredItem& item) {
    return QueryRelated(item, SeesSecuredIncidents() ? Related::Incidents : Related::OpenIncidents);
}

RowList QueryCases(const StoredItem& item) { return QueryRelated(item, Related::Cases); }

std::string KeyOf(const IncidentInfo& incident) { return "K" + std::to_string(incident.ID()); }
std::string KeyOf(const CaseInfo& info) { return "K" + info.CaseNumber(); }

// Each entry once, in the order of first appearance.
template <typename Info>
std::vector<std::shared_ptr<Info>> LoadDistinct(const RowList& rows) {
    KeyedCollection<std::shared_ptr<Info>> seen;
    for (const Row& row : rows) {
        auto info = std::make_shared<Info>();
        info->LoadFromRow(row);
        const std::string key = KeyOf(*info);
        seen.TryAdd(std::move(info), key);
    }
    return seen.Values();
}

// In a catch block: rethrows the failure with the item in its description.
[[noreturn]] void RaiseForItem(const StoredItem& item, const std::string& what) {
    const Error error = CurrentError();
    Raise(error.Number(), error.Source(),
          "Error retrieving related " + what + " data for " + (IsProperty(item) ? "property " : "vehicle ") +
              item.DisplayID() + " (PK = " + std::to_string(item.ID()) + "): " + error.Description());
}

}  // namespace

const IncidentList& StoredItem::RelatedIncidents() {
    try {
        if (!m_relatedIncidents)
            m_relatedIncidents = std::make_shared<IncidentList>(LoadDistinct<IncidentInfo>(QueryIncidents(*this)));
    } catch (...) {
        RaiseForItem(*this, "incident");
    }
    return *m_relatedIncidents;
}

const CaseList& StoredItem::RelatedCases() {
    try {
        if (!m_relatedCases) m_relatedCases = std::make_shared<CaseList>(LoadDistinct<CaseInfo>(QueryCases(*this)));
    } catch (...) {
        RaiseForItem(*this, "case");
    }
    return *m_relatedCases;
}

TrackingRecordList StoredItem::TrackingRecords() const {
    const std::string table = IsProperty(*this) ? "PropertyTracking" : "VehicleTracking";
    const std::string sql = "SELECT * FROM " + table + " WHERE " + KeyColumn(ItemType()) + " = " +
                            std::to_string(ID()) + " ORDER BY DateReceived DESC, LastUpdated DESC";
    TrackingRecordList records;
    for (const Row& row : HostDatabase().QueryRows(sql)) {
        auto record = std::make_shared<TrackingRecord>();
        record->SetRow(row);
        if (!records.empty()) records.back()->SetPrevious(record);
        records.push_back(std::move(record));
    }
    return records;
}

}  // namespace quellbrook
