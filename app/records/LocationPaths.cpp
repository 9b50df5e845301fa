#include "app/records/LocationPaths.h"

#include "base/Text.h"
#include "host/HostDatabase.h"
#include "host/LocationPath.h"

#include <vector>

namespace quellbrook {

const std::optional<LocationPaths::Place>& LocationPaths::Find(int32_t id) {
    const auto known = m_places.find(id);
    if (known != m_places.end()) return known->second;
    std::optional<Place> place;
    if (const auto row = HostDatabase().QueryRow("SELECT Name, Path, Type FROM StorageLocation WHERE IdNo = " +
                                                 std::to_string(id))) {
        place = Place{std::string(Trim(ToText(row->Value("Name")))), ToText(row->Value("Path")),
                      ToInt32(row->Value("Type"))};
    }
    return m_places.emplace(id, std::move(place)).first->second;
}

std::string LocationPaths::FullPath(const TaggedValue& locationNo) {
    if (locationNo.HasNoValue()) return {};
    const auto& place = Find(ToInt32(locationNo));
    if (!place) return {};
    const LocationPath path = LocationPath().Parse(place->path);
    std::vector<std::string> names;
    for (const int32_t container : path.Ids()) {
        if (container == 0) continue;
        if (const auto& around = Find(container)) names.push_back(around->name);
    }
    names.push_back(place->name);
    return Join(names, " > ");
}

std::optional<int32_t> LocationPaths::Type(const TaggedValue& locationNo) {
    if (locationNo.HasNoValue()) return std::nullopt;
    const auto& place = Find(ToInt32(locationNo));
    return place ? std::optional(place->type) : std::nullopt;
}

}  // namespace quellbrook
