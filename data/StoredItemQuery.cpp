#include "data/StoredItemQuery.h"
#include "host/QueryServices.h"

#include "access/User.h"
#include "base/Error.h"
#include "base/Text.h"
#include "host/HostDatabase.h"

namespace quellbrook {

namespace {

constexpr int32_t InnerJoin = 0;
constexpr int32_t LeftJoin = 1;

QueryFactory& Factory() { return QueryServices::Factory(); }

QueryExpression Coalesce(const QueryArgument& value, const char* otherwise) {
    return Factory().Function("COALESCE", {value, TaggedValue(otherwise)}, 0);
}

// The column with a blank behind it, or the empty text.
QueryExpression Part(const QueryExpression& column) {
    return Coalesce(Factory().Concat({column, TaggedValue(" ")}, 0), "");
}

// Each item with its current custody row, where it has one.
QuerySource JoinCurrentCustody(const QuerySource& source, const QuerySource& items, const QuerySource& tracking,
                               const std::string& key) {
    return source.Join(tracking, LeftJoin)
        .On(tracking.Column(key)
                .Equals(items.Column(key))
                .And(items.Column("CurrTrackSeq").Equals(tracking.Column("SeqNo"))));
}

QuerySource JoinIncidents(const QuerySource& source, const QuerySource& items, const QuerySource& link,
                          const QuerySource& incident, const std::string& key) {
    const QuerySource linked =
        link.Join(incident, InnerJoin).On(incident.Column("IncidentNo").Equals(link.Column("IncidentNo")));
    return source.Join(linked, LeftJoin).On(link.Column(key).Equals(items.Column(key)));
}

struct Tables {
    QuerySource property = Factory().Table("Property");
    QuerySource propertyTracking = Factory().Table("PropertyTracking");
    QuerySource vehicle = Factory().Table("Vehicle");
    QuerySource vehicleInfo = Factory().Table("vwVehicleDisplayInfo");
    QuerySource vehicleTracking = Factory().Table("VehicleTracking");
    QuerySource incident = Factory().Table("Incident");
};

QuerySource SelectProperty(const Tables& tables) {
    const QuerySource& p = tables.property;
    const QuerySource& pt = tables.propertyTracking;
    const QuerySource source = JoinIncidents(JoinCurrentCustody(p, p, pt, "PropertyNo"), p,
                                             Factory().Table("IncdProperty"), tables.incident, "PropertyNo");
    return source.Select({
        "1 AS ItemType",
        p.Column("PropertyNo").As("ID"),
        p.Column("CategoryNo"),
        p.Column("CurrTrackSeq"),
        pt.Column("StorageLocNo"),
        p.Column("PropertyID").As("DisplayID"),
        p.Column("Description"),
        p.Column("Quantity"),
        p.Column("PropertyValue").As("Value"),
        p.Column("ManufacNbr").As("Make"),
        p.Column("ModelNbr").As("Model"),
        p.Column("SerialNbr").As("Serial"),
        p.Column("RecordTypeInd"),
    });
}

QuerySource SelectVehicles(const Tables& tables) {
    const QuerySource& v = tables.vehicle;
    const QuerySource& vd = tables.vehicleInfo;
    const QuerySource& vt = tables.vehicleTracking;
    const QuerySource shown = v.Join(vd, InnerJoin).On(v.Column("VehicleNo").Equals(vd.Column("VehicleNo")));
    const QuerySource source = JoinIncidents(JoinCurrentCustody(shown, v, vt, "VehicleNo"), v,
                                             Factory().Table("IncdVehicle"), tables.incident, "VehicleNo");

    const QueryExpression display = Factory().Concat({Coalesce(vd.Column("RegNumber"), "[No Tag Number]"),
                                                      TaggedValue(" ("), vd.Column("RegStateCode"), TaggedValue(")")},
                                                     0);
    const QueryExpression make = Part(vd.Column("MakeCode"));
    const QueryExpression model = Coalesce(vd.Column("VehModel"), "");
    const QueryExpression description =
        Factory().Concat({Part(vd.Column("VehYear")), Part(vd.Column("ColorCode")), make, model}, 0);
    return source.Select({
        "2 AS ItemType",
        v.Column("VehicleNo").As("ID"),
        v.Column("CategoryNo"),
        v.Column("CurrTrackSeq"),
        vt.Column("StorageLocNo"),
        display.As("DisplayID"),
        description.As("Description"),
        "1 AS Quantity, NULL AS Value",
        make.As("Make"),
        model.As("Model"),
        "NULL AS Serial",
        v.Column("RecordTypeInd"),
    });
}

QuerySource ChooseByRights(const QuerySource& propertyQuery, const QuerySource& vehicleQuery) {
    const bool mayViewProperty = GetUser().Can(GetPermissions().VIEW_PROPERTY());
    const bool mayViewVehicles = GetUser().Can(GetPermissions().VIEW_VEHICLE());
    if (mayViewProperty && mayViewVehicles) return propertyQuery.Union(vehicleQuery);
    return mayViewProperty ? propertyQuery : vehicleQuery;
}

// The query in its parts; conditions added to either kind's query, and to the whole, take effect in it.
struct Composition {
    Tables tables;
    QuerySource property = SelectProperty(tables);
    QuerySource vehicles = SelectVehicles(tables);
    QuerySource base = ChooseByRights(property, vehicles);
    QuerySource whole = base.As("Results").Select({"*"});
};

QueryCondition IsKey(const QueryExpression& column, int32_t key, KeyForm form) {
    return form == KeyForm::Place ? column.EqualsKeyPlace() : column.Equals(key);
}

QueryCondition IsLike(const QueryExpression& column, const std::string& pattern, KeyForm form) {
    return form == KeyForm::Place ? column.LikeKeyPlace() : column.Like(pattern);
}

// One criterion a function

void KeepToLocation(Composition& query, const StoredItemCriteria& criteria, KeyForm keys) {
    if (!criteria.location) return;
    query.whole.Where(IsKey(query.base.Column("StorageLocNo"), criteria.location->ID(), keys));
}

void KeepToDescription(Composition& query, const StoredItemCriteria& criteria) {
    if (criteria.description.empty()) return;
    query.whole.Where(query.base.Column("Description").Like(criteria.description));
}

void KeepToIncident(Composition& query, const QueryCondition& condition) {
    query.vehicles.Where(condition);
    query.property.Where(condition);
}

void KeepToPropertyNumber(Composition& query, StoredItemCriteria& criteria, const QueryCondition& condition) {
    query.property.Where(condition);
    criteria.itemType = static_cast<int32_t>(StoredItemTypes::Property);
}

void KeepToVehicleNumber(Composition& query, StoredItemCriteria& criteria, const QueryCondition& condition) {
    query.vehicles.Where(condition);
    criteria.itemType = static_cast<int32_t>(StoredItemTypes::vehicle);
}

void KeepToNumber(Composition& query, StoredItemCriteria& criteria, KeyForm keys) {
    const QuerySource& property = query.tables.property;
    const QuerySource& vehicle = query.tables.vehicle;
    const QuerySource& incident = query.tables.incident;
    switch (static_cast<NumberSearchTypes>(criteria.numberType)) {
    case NumberSearchTypes::IncidentId:
        return KeepToIncident(query, IsLike(incident.Column("IncidentId"), criteria.number, keys));
    case NumberSearchTypes::CaseNumber:
        return KeepToIncident(query, IsLike(incident.Column("CaseNbr"), criteria.number, keys));
    case NumberSearchTypes::PropertyID:
        return KeepToPropertyNumber(query, criteria, IsLike(property.Column("PropertyID"), criteria.number, keys));
    case NumberSearchTypes::VehicleTag:
        return KeepToVehicleNumber(query, criteria, IsLike(vehicle.Column("RegNumber"), criteria.number, keys));
    case NumberSearchTypes::PropertyPK:
        return KeepToPropertyNumber(query, criteria,
                                    IsKey(property.Column("PropertyNo"), ParseInt32(criteria.number), keys));
    case NumberSearchTypes::VehiclePK:
        return KeepToVehicleNumber(query, criteria,
                                   IsKey(vehicle.Column("VehicleNo"), ParseInt32(criteria.number), keys));
    }
}

// After KeepToNumber, which may change the kind.
void KeepToKind(Composition& query, const StoredItemCriteria& criteria) {
    if (criteria.itemType >= 1) query.whole.Where(query.base.Column("ItemType").Equals(criteria.itemType));
}

void KeepToTracked(Composition& query, const StoredItemCriteria& criteria) {
    const QueryExpression place = query.base.Column("StorageLocNo");
    if (criteria.untracked)
        query.whole.Where(place.Equals(Null()).And(query.base.Column("CurrTrackSeq").Equals(Null())));
    else
        query.whole.Where(place.NotEquals(Null()));
}

void KeepToTagged(Composition& query, const StoredItemCriteria& criteria) {
    if (criteria.tagged) query.whole.Where(query.base.Column("RecordTypeInd").Equals(1));
}

}  // namespace

bool StoredItemCriteria::IsEmpty() const { return description.empty() && !location && number.empty() && itemType == 0; }

QuerySource ComposeQuery(StoredItemCriteria& criteria, KeyForm keys) {
    Composition query;
    KeepToLocation(query, criteria, keys);
    KeepToDescription(query, criteria);
    KeepToNumber(query, criteria, keys);
    KeepToKind(query, criteria);
    KeepToTracked(query, criteria);
    KeepToTagged(query, criteria);
    return query.whole;
}

RowList QueryStoredItems(StoredItemCriteria& criteria) {
    if (criteria.IsEmpty()) return {};
    return HostDatabase().QueryRows(StoredItemQueryText(criteria));
}

void ForEachStoredItem(StoredItemCriteria& criteria, const std::function<void(const Row&)>& receiver) {
    if (criteria.IsEmpty()) return;
    HostDatabase().ForEachRow(StoredItemQueryText(criteria), [&](const Row& row) {
        receiver(row);
        return true;
    });
}

int32_t CountStoredItems(StoredItemCriteria& criteria) {
    if (criteria.IsEmpty()) return 0;
    const std::string sql = StoredItemQueryText(criteria);
    const auto row = HostDatabase().QueryRow("SELECT COUNT(ID) AS ResultCount FROM (" + sql + ") QueryResult");
    return ToInt32(Require(row, "StoredItemSearch.Count")->Value("ResultCount"));
}

}  // namespace quellbrook
