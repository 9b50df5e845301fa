#include "tests/sql/query/ComposedSearch.h"
#include "host/QueryServices.h"

#include "base/Text.h"

namespace quellbrook::testing {

namespace {

struct SearchSources {
    QueryFactory& f = QueryServices::Factory();
    QuerySource p = f.Table("Property");
    QuerySource pt = f.Table("PropertyTracking");
    QuerySource v = f.Table("Vehicle");
    QuerySource vd = f.Table("vwVehicleDisplayInfo");
    QuerySource vt = f.Table("VehicleTracking");
    QuerySource i = f.Table("Incident");
    QuerySource ip = f.Table("IncdProperty");
    QuerySource iv = f.Table("IncdVehicle");

    QueryExpression Part(const char* column) const {
        return f.Function("COALESCE", {f.Concat({vd.Column(column), TaggedValue(" ")}, 0), TaggedValue("")}, 0);
    }

    QuerySource PropertyQuery() const {
        const QuerySource tracked = p.Join(pt, 1).On(pt.Column("PropertyNo")
                                                         .Equals(p.Column("PropertyNo"))
                                                         .And(p.Column("CurrTrackSeq").Equals(pt.Column("SeqNo"))));
        const QuerySource linked = ip.Join(i, 0).On(i.Column("IncidentNo").Equals(ip.Column("IncidentNo")));
        const QuerySource source = tracked.Join(linked, 1).On(ip.Column("PropertyNo").Equals(p.Column("PropertyNo")));
        return source.Select(
            {"1 AS ItemType", p.Column("PropertyNo").As("ID"), p.Column("CategoryNo"), p.Column("CurrTrackSeq"),
             pt.Column("StorageLocNo"), p.Column("PropertyID").As("DisplayID"), p.Column("Description"),
             p.Column("Quantity"), p.Column("PropertyValue").As("Value"), p.Column("ManufacNbr").As("Make"),
             p.Column("ModelNbr").As("Model"), p.Column("SerialNbr").As("Serial"), p.Column("RecordTypeInd")});
    }

    QuerySource VehicleQuery() const {
        const QuerySource shown = v.Join(vd, 0).On(v.Column("VehicleNo").Equals(vd.Column("VehicleNo")));
        const QuerySource tracked = shown.Join(vt, 1).On(vt.Column("VehicleNo")
                                                             .Equals(v.Column("VehicleNo"))
                                                             .And(v.Column("CurrTrackSeq").Equals(vt.Column("SeqNo"))));
        const QuerySource linked = iv.Join(i, 0).On(i.Column("IncidentNo").Equals(iv.Column("IncidentNo")));
        const QuerySource source = tracked.Join(linked, 1).On(iv.Column("VehicleNo").Equals(v.Column("VehicleNo")));
        const QueryExpression tag = f.Function("COALESCE", {vd.Column("RegNumber"), TaggedValue("[No Tag Number]")}, 0);
        const QueryExpression display =
            f.Concat({tag, TaggedValue(" ("), vd.Column("RegStateCode"), TaggedValue(")")}, 0);
        const QueryExpression make = Part("MakeCode");
        const QueryExpression model = f.Function("COALESCE", {vd.Column("VehModel"), TaggedValue("")}, 0);
        const QueryExpression description = f.Concat({Part("VehYear"), Part("ColorCode"), make, model}, 0);
        return source.Select({"2 AS ItemType", v.Column("VehicleNo").As("ID"), v.Column("CategoryNo"),
                              v.Column("CurrTrackSeq"), vt.Column("StorageLocNo"), display.As("DisplayID"),
                              description.As("Description"), "1 AS Quantity, NULL AS Value", make.As("Make"),
                              model.As("Model"), "NULL AS Serial", v.Column("RecordTypeInd")});
    }
};

void AddNumber(const SearchSources& s, QuerySource& propertyQuery, QuerySource& vehicleQuery,
               SearchCriteria& criteria) {
    switch (criteria.numberType) {
    case 1:
    case 2: {
        const QueryCondition linked =
            s.i.Column(criteria.numberType == 1 ? "IncidentId" : "CaseNbr").Like(criteria.number);
        vehicleQuery.Where(linked);
        propertyQuery.Where(linked);
        break;
    }
    case 3:
        propertyQuery.Where(s.p.Column("PropertyID").Like(criteria.number));
        criteria.itemType = 1;
        break;
    case 4:
        vehicleQuery.Where(s.v.Column("RegNumber").Like(criteria.number));
        criteria.itemType = 2;
        break;
    case 5:
        propertyQuery.Where(s.p.Column("PropertyNo").Equals(ParseInt32(criteria.number)));
        criteria.itemType = 1;
        break;
    case 6:
        vehicleQuery.Where(s.v.Column("VehicleNo").Equals(ParseInt32(criteria.number)));
        criteria.itemType = 2;
        break;
    default: break;
    }
}

}  // namespace

QuerySource ComposeSearch(const SearchCriteria& asked) {
    SearchCriteria criteria = asked;
    const SearchSources s;
    QuerySource propertyQuery = s.PropertyQuery();
    QuerySource vehicleQuery = s.VehicleQuery();
    QuerySource base = criteria.seesProperty ? propertyQuery : vehicleQuery;
    if (criteria.seesProperty && criteria.seesVehicles) base = propertyQuery.Union(vehicleQuery);
    QuerySource outer = base.As("Results").Select({"*"});
    if (criteria.location) outer.Where(base.Column("StorageLocNo").Equals(*criteria.location));
    if (!criteria.description.empty()) outer.Where(base.Column("Description").Like(criteria.description));
    AddNumber(s, propertyQuery, vehicleQuery, criteria);
    if (criteria.itemType >= 1) outer.Where(base.Column("ItemType").Equals(criteria.itemType));
    if (criteria.untracked)
        outer.Where(base.Column("StorageLocNo").Equals(Null()).And(base.Column("CurrTrackSeq").Equals(Null())));
    else
        outer.Where(base.Column("StorageLocNo").NotEquals(Null()));
    if (criteria.tagged) outer.Where(base.Column("RecordTypeInd").Equals(1));
    return outer;
}

std::string Describe(const SearchCriteria& criteria) {
    return "location " + (criteria.location ? std::to_string(*criteria.location) : "-") + ", type " +
           std::to_string(criteria.itemType) + ", number " + std::to_string(criteria.numberType) + " '" +
           criteria.number + "', description '" + criteria.description + "'" +
           (criteria.untracked ? ", untracked" : "") + (criteria.tagged ? ", tagged" : "") +
           (criteria.seesProperty ? "" : ", no property") + (criteria.seesVehicles ? "" : ", no vehicles");
}

}  // namespace quellbrook::testing
