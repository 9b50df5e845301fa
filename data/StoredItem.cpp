#include "data/StoredItem.h"

#include "base/Error.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItemQuery.h"
#include "host/CodeTableLookup.h"

namespace quellbrook {

std::string StoredItem::ItemTypeCode() const {
    switch (m_itemType) {
    case StoredItemTypes::Property: return "P";
    case StoredItemTypes::vehicle: return "V";
    }
    Raise(ErrorNumber::General, "StoredItem.ItemTypeCode",
          "Invalid item type '" + std::to_string(static_cast<int32_t>(m_itemType)) + "'");
}

int32_t StoredItem::ID() const { return ToInt32(m_id); }

StorageLocationRef StoredItem::Location() {
    if (!m_location && !m_locationNo.HasNoValue())
        m_location = GetStorageLocationStatic().FindByID(ToInt32(m_locationNo));
    return m_location;
}

int32_t StoredItem::CategoryID() const { return ToInt32(m_categoryNo); }

std::string StoredItem::CategoryName() const {
    const bool isProperty = m_itemType == StoredItemTypes::Property;
    return ToTextOrEmpty(
        CodeTableLookup().Name(isProperty ? CodeTable::PropertyCategory : CodeTable::VehicleCategory, m_categoryNo));
}

void StoredItem::Refresh() {
    StoredItemCriteria criteria;
    criteria.numberType = static_cast<int32_t>(m_itemType == StoredItemTypes::Property ? NumberSearchTypes::PropertyPK
                                                                                       : NumberSearchTypes::VehiclePK);
    criteria.number = std::to_string(ID());
    const RowList rows = QueryStoredItems(criteria);
    if (rows.empty()) return;
    LoadFromRow(rows.front());
    if (m_refreshed) m_refreshed(rows.front());
}

void StoredItem::LoadFromRow(const Row& row) {
    m_itemType = static_cast<StoredItemTypes>(ToInt32(row.Value("ItemType")));
    m_id = ToText(row.Value("ID"));
    m_displayId = ToTextOrEmpty(row.Value("DisplayID"));
    if (m_displayId.empty()) m_displayId = "<missing ID>";
    m_description = ToTextOrEmpty(row.Value("Description"));
    m_currTrackSeq = row.Value("CurrTrackSeq");
    m_locationNo = row.Value("StorageLocNo");
    m_categoryNo = row.Value("CategoryNo");
    m_quantity = row.Value("Quantity");
    m_value = row.Value("Value");
    m_make = ToTextOrEmpty(row.Value("Make"));
    m_model = ToTextOrEmpty(row.Value("Model"));
    m_serialNumber = ToTextOrEmpty(row.Value("Serial"));
    m_location = nullptr;
}

}  // namespace quellbrook
