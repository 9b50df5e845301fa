#pragma once

#include "base/ObjectList.h"
#include "data/StoredItemSearch.h"

#include <initializer_list>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// An item built from a search row, without a database.
inline StoredItemRef MakeItem(int32_t id, StoredItemTypes kind = StoredItemTypes::Property,
                              TaggedValue locationNo = Null(), TaggedValue displayId = Null()) {
    auto item = std::make_shared<StoredItem>();
    item->LoadFromRow(Row::Of({{"ItemType", static_cast<int32_t>(kind)},
                               {"ID", id},
                               {"CategoryNo", Null()},
                               {"CurrTrackSeq", Null()},
                               {"StorageLocNo", locationNo},
                               {"DisplayID", displayId},
                               {"Description", Null()},
                               {"Quantity", 1},
                               {"Value", Null()},
                               {"Make", Null()},
                               {"Model", Null()},
                               {"Serial", Null()},
                               {"RecordTypeInd", 1}}));
    return item;
}

// The item as a search finds it. Fails the test if it is not found.
inline StoredItemRef FindItem(StoredItemTypes kind, int32_t id) {
    const bool isProperty = kind == StoredItemTypes::Property;
    const auto number = isProperty ? NumberSearchTypes::PropertyPK : NumberSearchTypes::VehiclePK;
    auto found = StoredItemSearch().WithNumber(number, std::to_string(id)).Execute();
    if (found->IsEmpty()) found = StoredItemSearch().WithNumber(number, std::to_string(id)).Untracked().Execute();
    if (found->IsEmpty()) {
        ADD_FAILURE() << "No item " << id << " of kind " << static_cast<int>(kind);
        return MakeItem(id, kind);
    }
    return found->ItemAt(0);
}

inline std::shared_ptr<ObjectVector> ListOf(std::initializer_list<ObjectRef> objects) {
    auto list = std::make_shared<ObjectVector>();
    for (const ObjectRef& object : objects) list->Add(object);
    return list;
}

}  // namespace quellbrook::testing
