#include "component/Items.h"
#include "tests/support/DatabaseTest.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;

// Three pieces of property, with the keys 1 to 3, and vehicles with the same keys.
class ItemsTest : public DatabaseTest {
protected:
    ItemsTest() {
        const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        m_database.AddStored(PropertyFields{.PropertyID = "stored"}, shelf);
        m_database.AddProperty({.PropertyID = "never stored"});
        m_database.AddStored(PropertyFields{.PropertyID = "returned"}, Null());
        m_database.AddStored(VehicleFields{.RegNumber = "STORED", .RegStateCode = "OR"}, shelf);
        m_database.AddVehicle({.RegNumber = "NEVER", .RegStateCode = "OR"});
        m_database.AddStored(VehicleFields{.RegNumber = "RETURNED", .RegStateCode = "OR"}, Null());
    }

    static std::vector<std::string> Loaded(StoredItemTypes type) {
        std::vector<std::string> ids;
        for (int32_t key = 1; key <= 4; ++key) {
            const StoredItemRef item = LoadItem(type, key);
            ids.push_back(item ? item->DisplayID() : "nothing");
        }
        return ids;
    }
};

using Ids = std::vector<std::string>;
const Ids None(4, "nothing");

TEST_F(ItemsTest, AnItemIsLoadedByItsKeyWhereverItIs) {
    EXPECT_EQ(Loaded(Property), (Ids{"stored", "never stored", "returned", "nothing"}));
    EXPECT_EQ(Loaded(Vehicle), (Ids{"STORED (OR)", "NEVER (OR)", "RETURNED (OR)", "nothing"}));
}

TEST_F(ItemsTest, AnItemIsLoadedOnlyWithTheRightToViewItsKind) {
    m_session->Revoke(GetPermissions().VIEW_PROPERTY());
    EXPECT_FALSE(MayViewItems(Property));
    EXPECT_EQ(Loaded(Property), None);
    EXPECT_TRUE(MayViewItems(Vehicle));
    EXPECT_NE(LoadItem(Vehicle, 1), nullptr);
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    m_session->Revoke(GetPermissions().VIEW_VEHICLE());
    EXPECT_NE(LoadItem(Property, 1), nullptr);
    EXPECT_EQ(Loaded(Vehicle), None);
}

TEST_F(ItemsTest, TheChainOfCustodyNeedsItsOwnRight) {
    EXPECT_TRUE(MayViewChainOfCustody());
    m_session->Revoke(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    EXPECT_FALSE(MayViewChainOfCustody());
    EXPECT_TRUE(MayViewItems(Property));
}

TEST_F(ItemsTest, WithoutAUserNothingIsShown) {
    m_session->username.clear();
    EXPECT_FALSE(MayViewItems(Property));
    EXPECT_FALSE(MayViewItems(Vehicle));
    EXPECT_FALSE(MayViewChainOfCustody());
    EXPECT_EQ(Loaded(Property), None);
}

}  // namespace
}  // namespace quellbrook::testing
