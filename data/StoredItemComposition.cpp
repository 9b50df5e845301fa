#include "data/StoredItemComposition.h"

#include "data/Types.h"
#include "host/QueryServices.h"

namespace quellbrook {

namespace {

constexpr int32_t InnerJoin = 0;
constexpr int32_t LeftJoin = 1;

QueryFactory& Factory() { return QueryServices::Factory(); }

QueryExpression Coalesce(const QueryArgument& value, const char* otherwise) {
    return Factory().Function("COALESCE", {value, TaggedValue(otherwise)}, 0);
}

// The column followed by a blank, or the empty text.
QueryExpression Part(const QueryExpression& column) {
    return Coalesce(Factory().Concat({column, TaggedValue(" ")}, 0), "");
}

// Each item with its current custody row, if it has one.
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
    return source
        .Select({
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
        })
        .ListItems();
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
    return source
        .Select({
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
        })
        .ListItems();
}

QuerySource ChooseByRights(const SearchShape& shape, const QuerySource& property, const QuerySource& vehicles) {
    if (shape.seesProperty && shape.seesVehicles) return property.Union(vehicles);
    return shape.seesProperty ? property : vehicles;
}

// The parts of the query. A condition added to the query of either kind also takes effect in the union.
struct Composition {
    explicit Composition(const SearchShape& shape) : base(ChooseByRights(shape, property, vehicles)) {}

    Tables tables;
    QuerySource property = SelectProperty(tables);
    QuerySource vehicles = SelectVehicles(tables);
    QuerySource base;
    QuerySource whole = base.As("Results").Select({"*"});
};

QueryCondition IsKey(const QueryExpression& column) { return column.Equals(Factory().Parameter(NumberParameter)); }

QueryCondition IsNumber(const QueryExpression& column, const SearchShape& shape) {
    return shape.numberPattern ? column.Like(*shape.numberPattern) : IsKey(column);
}

// One function per criterion

void FilterByLocation(Composition& query, const SearchShape& shape) {
    if (shape.inLocation)
        query.whole.Where(query.base.Column("StorageLocNo").Equals(Factory().Parameter(LocationParameter)));
}

void FilterByDescription(Composition& query, const SearchShape& shape) {
    if (!shape.description.empty()) query.whole.Where(query.base.Column("Description").Like(shape.description));
}

void FilterByIncident(Composition& query, const char* column, const SearchShape& shape) {
    const QueryCondition condition = IsNumber(query.tables.incident.Column(column), shape);
    query.vehicles.Where(condition);
    query.property.Where(condition);
}

void FilterByNumber(Composition& query, const SearchShape& shape) {
    const QuerySource& property = query.tables.property;
    const QuerySource& vehicle = query.tables.vehicle;
    switch (static_cast<NumberSearchTypes>(shape.numberType)) {
    case NumberSearchTypes::IncidentId: FilterByIncident(query, "IncidentId", shape); break;
    case NumberSearchTypes::CaseNumber: FilterByIncident(query, "CaseNbr", shape); break;
    case NumberSearchTypes::PropertyID: query.property.Where(IsNumber(property.Column("PropertyID"), shape)); break;
    case NumberSearchTypes::VehicleTag: query.vehicles.Where(IsNumber(vehicle.Column("RegNumber"), shape)); break;
    case NumberSearchTypes::PropertyPK: query.property.Where(IsKey(property.Column("PropertyNo"))); break;
    case NumberSearchTypes::VehiclePK: query.vehicles.Where(IsKey(vehicle.Column("VehicleNo"))); break;
    }
}

void FilterByType(Composition& query, const SearchShape& shape) {
    if (shape.itemType >= 1) query.whole.Where(query.base.Column("ItemType").Equals(shape.itemType));
}

void FilterByCustody(Composition& query, const SearchShape& shape) {
    if (shape.anywhere) return;
    const QueryExpression location = query.base.Column("StorageLocNo");
    if (shape.untracked)
        query.whole.Where(location.Equals(Null()).And(query.base.Column("CurrTrackSeq").Equals(Null())));
    else
        query.whole.Where(location.NotEquals(Null()));
}

void FilterByTag(Composition& query, const SearchShape& shape) {
    if (shape.tagged) query.whole.Where(query.base.Column("RecordTypeInd").Equals(1));
}

}  // namespace

QuerySource ComposeQuery(const SearchShape& shape) {
    Composition query(shape);
    FilterByLocation(query, shape);
    FilterByDescription(query, shape);
    FilterByNumber(query, shape);
    FilterByType(query, shape);
    FilterByCustody(query, shape);
    FilterByTag(query, shape);
    return query.whole;
}

}  // namespace quellbrook
