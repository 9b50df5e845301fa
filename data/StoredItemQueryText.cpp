#include "access/User.h"
#include "base/Text.h"
#include "data/StoredItemQuery.h"
#include "host/HostServices.h"
#include "host/PlannedQueries.h"
#include "host/QueryServices.h"

#include <optional>
#include <string>
#include <tuple>
#include <variant>

namespace quellbrook {

namespace {

// Everything that decides the text but for the key, and the item type that composing leaves in the criteria.
using Shape = std::tuple<bool, int32_t, int32_t, bool, bool, bool, bool>;
struct Planned {
    QueryTemplate text;
    int32_t itemType;
};

bool IsPrimaryKey(int32_t numberType) {
    return numberType == static_cast<int32_t>(NumberSearchTypes::PropertyPK) ||
           numberType == static_cast<int32_t>(NumberSearchTypes::VehiclePK);
}

bool IsPlainNumber(const StoredItemCriteria& criteria) {
    return criteria.numberType >= static_cast<int32_t>(NumberSearchTypes::IncidentId) &&
           criteria.numberType <= static_cast<int32_t>(NumberSearchTypes::VehicleTag) &&
           criteria.number.find('*') == std::string::npos && HostServices::Current().Pool().GetDialect().equalsLikeLike;
}

using Key = std::variant<int32_t, std::string>;

// The one key that the criteria name; nothing where they name two, none, or a pattern.
std::optional<Key> OnlyKey(const StoredItemCriteria& criteria) {
    if (!criteria.description.empty()) return std::nullopt;
    if (criteria.location && criteria.numberType == 0) return criteria.location->ID();
    if (criteria.location) return std::nullopt;
    if (IsPrimaryKey(criteria.numberType)) return ParseInt32(criteria.number);
    if (IsPlainNumber(criteria)) return criteria.number;
    return std::nullopt;
}

Shape ShapeOf(const StoredItemCriteria& criteria) {
    return {criteria.location != nullptr,
            criteria.numberType,
            criteria.itemType,
            criteria.untracked,
            criteria.tagged,
            GetUser().Can(GetPermissions().VIEW_PROPERTY()),
            GetUser().Can(GetPermissions().VIEW_VEHICLE())};
}

}  // namespace

std::string StoredItemQueryText(StoredItemCriteria& criteria) {
    const std::optional<Key> key = OnlyKey(criteria);
    if (!key) return QueryServices::Factory().ToSql(ComposeQuery(criteria));

    static PlannedQueries<Shape, Planned> queries;
    const Planned& planned = queries.Get(ShapeOf(criteria), [&] {
        QueryTemplate text = QueryServices::Factory().ToTemplate(ComposeQuery(criteria, KeyForm::Place));
        return Planned{std::move(text), criteria.itemType};
    });
    criteria.itemType = planned.itemType;
    return std::visit([&](const auto& value) { return planned.text.With(value); }, *key);
}

}  // namespace quellbrook
