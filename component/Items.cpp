#include "component/Items.h"

#include "access/User.h"
#include "data/StoredItemQuery.h"

namespace quellbrook {

namespace {

bool May(const PermissionDefinition& right) { return GetUser().IsAuthenticated() && GetUser().Can(right); }

}  // namespace

StoredItemRef LoadItem(StoredItemTypes type, int32_t key) {
    if (!MayViewItems(type)) return nullptr;
    StoredItemCriteria criteria;
    criteria.numberType = static_cast<int32_t>(type == StoredItemTypes::Property ? NumberSearchTypes::PropertyPK
                                                                                 : NumberSearchTypes::VehiclePK);
    criteria.number = std::to_string(key);
    criteria.anywhere = true;
    const RowList rows = QueryStoredItems(criteria);
    if (rows.empty()) return nullptr;
    auto item = std::make_shared<StoredItem>();
    item->LoadFromRow(rows.front());
    return item;
}

bool MayViewItems(StoredItemTypes type) {
    return May(type == StoredItemTypes::Property ? GetPermissions().VIEW_PROPERTY() : GetPermissions().VIEW_VEHICLE());
}

bool MayViewChainOfCustody() { return May(GetPermissions().VIEW_CHAIN_OF_CUSTODY()); }

}  // namespace quellbrook
