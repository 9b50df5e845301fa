#include "data/StoredItemQuery.h"

#include "access/User.h"
#include "base/Error.h"
#include "base/Text.h"
#include "data/PlannedQueries.h"
#include "data/StoredItemComposition.h"
#include "host/HostDatabase.h"

#include <vector>

namespace quellbrook {

namespace {

struct BoundQuery {
    std::string text;
    std::vector<TaggedValue> values;  // one for each marker
};

bool IsPrimaryKey(NumberSearchTypes type) {
    return type == NumberSearchTypes::PropertyPK || type == NumberSearchTypes::VehiclePK;
}

TaggedValue NumberOf(const StoredItemCriteria& criteria) {
    if (IsPrimaryKey(static_cast<NumberSearchTypes>(criteria.numberType))) return ParseInt32(criteria.number);
    return criteria.number;
}

// The literal pattern of a number that has to be compared with LIKE.
std::optional<std::string> NumberPatternOf(const StoredItemCriteria& criteria) {
    switch (static_cast<NumberSearchTypes>(criteria.numberType)) {
    case NumberSearchTypes::IncidentId:
    case NumberSearchTypes::CaseNumber:
    case NumberSearchTypes::PropertyID:
    case NumberSearchTypes::VehicleTag: break;
    default: return std::nullopt;
    }
    const bool hasWildcard = criteria.number.find('*') != std::string::npos;
    if (!hasWildcard && HostServices::Current().Pool().GetDialect().equalsLikeLike) return std::nullopt;
    return criteria.number;
}

// The item type of the criteria, or the one that the type of the number implies.
int32_t ItemTypeOf(const StoredItemCriteria& criteria) {
    switch (static_cast<NumberSearchTypes>(criteria.numberType)) {
    case NumberSearchTypes::PropertyID:
    case NumberSearchTypes::PropertyPK: return static_cast<int32_t>(StoredItemTypes::Property);
    case NumberSearchTypes::VehicleTag:
    case NumberSearchTypes::VehiclePK: return static_cast<int32_t>(StoredItemTypes::vehicle);
    default: return criteria.itemType;
    }
}

BoundQuery Bind(StoredItemCriteria& criteria) {
    const TaggedValue number = NumberOf(criteria);
    criteria.itemType = ItemTypeOf(criteria);
    static PlannedQueries<SearchShape> queries(ComposeQuery);
    const ParameterizedQuery& query = queries.Get({.inLocation = criteria.location != nullptr,
                                                   .itemType = criteria.itemType,
                                                   .numberType = criteria.numberType,
                                                   .numberPattern = NumberPatternOf(criteria),
                                                   .description = criteria.description,
                                                   .untracked = criteria.untracked,
                                                   .anywhere = criteria.anywhere,
                                                   .tagged = criteria.tagged,
                                                   .seesProperty = GetUser().Can(GetPermissions().VIEW_PROPERTY()),
                                                   .seesVehicles = GetUser().Can(GetPermissions().VIEW_VEHICLE())});
    return {query.text, query.ValuesFor({criteria.location ? criteria.location->ID() : 0, number})};
}

}  // namespace

bool StoredItemCriteria::IsEmpty() const { return description.empty() && !location && number.empty() && itemType == 0; }

RowList QueryStoredItems(StoredItemCriteria& criteria) {
    if (criteria.IsEmpty()) return {};
    const BoundQuery query = Bind(criteria);
    return HostDatabase().QueryRows(query.text, query.values);
}

void ForEachStoredItem(StoredItemCriteria& criteria, const std::function<void(const Row&)>& receiver) {
    if (criteria.IsEmpty()) return;
    const BoundQuery query = Bind(criteria);
    const auto receive = [&](const Row& row) {
        receiver(row);
        return true;
    };
    HostDatabase().ForEachRow(query.text, receive, query.values);
}

int32_t CountStoredItems(StoredItemCriteria& criteria) {
    if (criteria.IsEmpty()) return 0;
    const BoundQuery query = Bind(criteria);
    const auto row =
        HostDatabase().QueryRow("SELECT COUNT(ID) AS ResultCount FROM (" + query.text + ") QueryResult", query.values);
    return ToInt32(Require(row, "StoredItemSearch.Count")->Value("ResultCount"));
}

}  // namespace quellbrook
