#include "data/StoredItemQuery.h"

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
        .On(tracking.Column(key).Equals(items.Column(key)).And(
            items.Column("CurrTrackSeq").Equals(tracking.Column("SeqNo"))));
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

    const QueryExpression display =
        Factory().Concat({Coalesce(vd.Column("RegNumber"), "[No Tag Number]"), TaggedValue(" ("),
                          vd.Column("RegStateCode"), TaggedValue(")")},
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

QueryCondition IsKey(const QueryExpression& column, int32_t key, KeyForm form) {
    return form == KeyForm::Place ? column.EqualsNumberPlace() : column.Equals(key);
}

void AddNumberCriterion(StoredItemCriteria& criteria, KeyForm keys, const Tables& tables, QuerySource& propertyQuery,
                        QuerySource& vehicleQuery) {
    const auto onIncident = [&](const char* column) {
        vehicleQuery.Where(tables.incident.Column(column).Like(criteria.number));
        propertyQuery.Where(tables.incident.Column(column).Like(criteria.number));
    };
    const auto onProperty = [&](const QueryCondition& condition) {
        propertyQuery.Where(condition);
        criteria.itemType = static_cast<int32_t>(StoredItemTypes::Property);
    };
    const auto onVehicles = [&](const QueryCondition& condition) {
        vehicleQuery.Where(condition);
        criteria.itemType = static_cast<int32_t>(StoredItemTypes::vehicle);
    };
    switch (static_cast<NumberSearchTypes>(criteria.numberType)) {
        case NumberSearchTypes::IncidentId: onIncident("IncidentId"); break;
        case NumberSearchTypes::CaseNumber: onIncident("CaseNbr"); break;
        case NumberSearchTypes::PropertyID:
            onProperty(tables.property.Column("PropertyID").Like(criteria.number));
            break;
        case NumberSearchTypes::VehicleTag:
            onVehicles(tables.vehicle.Column("RegNumber").Like(criteria.number));
            break;
        case NumberSearchTypes::PropertyPK:
            onProperty(IsKey(tables.property.Column("PropertyNo"), ParseInt32(criteria.number), keys));
            break;
        case NumberSearchTypes::VehiclePK:
            onVehicles(IsKey(tables.vehicle.Column("VehicleNo"), ParseInt32(criteria.number), keys));
            break;
    }
}

}  // namespace

bool StoredItemCriteria::IsEmpty() const { return description.empty() && !location && number.empty() && itemType == 0; }

QuerySource ComposeQuery(StoredItemCriteria& criteria, KeyForm keys) {
    const Tables tables;
    QuerySource propertyQuery = SelectProperty(tables);
    QuerySource vehicleQuery = SelectVehicles(tables);
    const QuerySource base = ChooseByRights(propertyQuery, vehicleQuery);
    QuerySource outer = base.As("Results").Select({"*"});

    if (criteria.location) outer.Where(IsKey(base.Column("StorageLocNo"), criteria.location->ID(), keys));
    if (!criteria.description.empty()) outer.Where(base.Column("Description").Like(criteria.description));
    AddNumberCriterion(criteria, keys, tables, propertyQuery, vehicleQuery);
    if (criteria.itemType >= 1) outer.Where(base.Column("ItemType").Equals(criteria.itemType));
    if (criteria.untracked)
        outer.Where(base.Column("StorageLocNo").Equals(Null()).And(base.Column("CurrTrackSeq").Equals(Null())));
    else
        outer.Where(base.Column("StorageLocNo").NotEquals(Null()));
    if (criteria.tagged) outer.Where(base.Column("RecordTypeInd").Equals(1));
    return outer;
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
