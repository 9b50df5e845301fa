#pragma once

#include "core/Stores.h"
#include "data/StoredItemSearch.h"
#include "host/CodeTableLookup.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"

#include <QWidget>

#include <string>
#include <vector>

namespace quellbrook::testing {

// A list of stored items in memory.
class ItemVector : public StoredItemList {
public:
    explicit ItemVector(std::vector<StoredItemRef> items) : m_items(std::move(items)) {}

    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return static_cast<int32_t>(m_items.size()); }
    StoredItemRef ItemAt(int32_t index) const override {
        if (index < 0 || index >= Count()) Raise(ErrorNumber::SubscriptOutOfRange, "ItemVector.ItemAt");
        return m_items[static_cast<size_t>(index)];
    }

private:
    std::vector<StoredItemRef> m_items;
};

// The given number of items without a location, numbered from 1, with the identifiers "E-1" and so on.
inline std::shared_ptr<ItemVector> MakeItems(int32_t count) {
    std::vector<StoredItemRef> items;
    for (int32_t id = 1; id <= count; ++id)
        items.push_back(MakeItem(id, StoredItemTypes::Property, Null(), "E-" + std::to_string(id)));
    return std::make_shared<ItemVector>(std::move(items));
}

// A department of a few shelves, officers, reasons and items, with a session that has every right.
class SmallDepartment : public DatabaseTest {
protected:
    SmallDepartment() {
        propertyRoom = m_database.AddLocation("Property Room", StorageLocationTypes::Internal);
        aisle = m_database.AddLocation("Aisle 3", StorageLocationTypes::Internal, propertyRoom);
        shelf = m_database.AddLocation("Shelf B", StorageLocationTypes::Internal, aisle);
        crimeLab = m_database.AddLocation("Crime Lab", StorageLocationTypes::External);
        digitalForensics = m_database.AddLocation("Digital Forensics", StorageLocationTypes::External, crimeLab);
        disposal = m_database.AddLocation("Returned to Owner", StorageLocationTypes::DisposalLocation);
        review = m_database.AddLocation("Pending Review", StorageLocationTypes::Other);
        m_database.AddPerson(11, "Raman, Priya");
        m_database.AddPerson(12, "Kowalczyk, Lena");
        m_database.AddCode(CodeTable::CustodyReason, 1, "Initial storage");
        m_database.AddCode(CodeTable::CustodyReason, 2, "Laboratory analysis");
        m_database.AddCode(CodeTable::PropertyCategory, 5, "Electronics");
        m_database.AddCode(CodeTable::PropertyCategory, 6, "Tools");
        m_database.AddCode(CodeTable::VehicleCategory, 7, "Passenger Car");
    }

    // An item that was signed in to a location, as a search finds it.
    StoredItemRef AddProperty(const std::string& displayId, const std::string& description, int32_t location,
                              TaggedValue category = 5) {
        const PropertyFields fields{.PropertyID = displayId, .Description = description, .CategoryNo = category};
        const CustodyFields custody{.ReceivedBy = 11, .ReceivedFrom = 12, .CustodyReasonNo = 1};
        return FindItem(StoredItemTypes::Property, m_database.AddStored(fields, location, custody));
    }

    StoredItemRef AddVehicle(const std::string& plate, int32_t location) {
        const VehicleFields fields{.RegNumber = plate,
                                   .RegStateCode = "OR",
                                   .VehYear = 2018,
                                   .ColorCode = "Silver",
                                   .MakeCode = "Veldra",
                                   .VehModel = "Tarn",
                                   .CategoryNo = 7};
        return FindItem(StoredItemTypes::vehicle, m_database.AddStored(fields, location, {.CustodyReasonNo = 1}));
    }

    void LinkIncident(const StoredItemRef& item, const std::string& number, const TaggedValue& caseNumber,
                      bool secured = false) {
        m_database.LinkIncident(item->ItemType(), item->ID(), m_database.AddIncident(number, caseNumber, secured));
    }

    static std::shared_ptr<CartStore> Cart() { return GetStores().Cart; }

    int32_t propertyRoom = 0, aisle = 0, shelf = 0, crimeLab = 0, digitalForensics = 0, disposal = 0, review = 0;
};

}  // namespace quellbrook::testing
