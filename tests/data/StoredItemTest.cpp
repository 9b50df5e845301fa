#include "data/StoredItem.h"

#include "data/StorageLocationStatic.h"
#include "host/CodeTableLookup.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

using testing::FindItem;
using testing::MakeItem;
using testing::RaisedBy;

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;

class StoredItemTest : public testing::DatabaseTest {
protected:
    StoredItemTest() { m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal); }

    StoredItemRef Stored(const testing::PropertyFields& fields) {
        return FindItem(Property, m_database.AddStored(fields, m_shelf));
    }
    StoredItemRef Stored(const testing::VehicleFields& fields) {
        return FindItem(Vehicle, m_database.AddStored(fields, m_shelf));
    }

    int32_t m_shelf = 0;
};

StoredItemRef LoadRow(std::vector<std::pair<std::string, TaggedValue>> changes) {
    std::vector<std::pair<std::string, TaggedValue>> cells = {
        {"ItemType", 1},    {"ID", 5},           {"CategoryNo", 3},   {"CurrTrackSeq", 1}, {"StorageLocNo", Null()},
        {"DisplayID", "E"}, {"Description", ""}, {"Quantity", 2},     {"Value", 1.5},      {"Make", Null()},
        {"Model", Null()},  {"Serial", Null()},  {"RecordTypeInd", 1}};
    for (const auto& [name, value] : changes)
        for (auto& cell : cells)
            if (cell.first == name) cell.second = value;
    auto item = std::make_shared<StoredItem>();
    item->LoadFromRow(Row::Of(cells));
    return item;
}

}  // namespace

TEST_F(StoredItemTest, ReadsTheValuesOfAPropertyRow) {
    const auto item = Stored(testing::PropertyFields{.PropertyID = "E-17",
                                                     .Description = "blue bicycle",
                                                     .CategoryNo = 3,
                                                     .Quantity = 2,
                                                     .PropertyValue = 12.5,
                                                     .ManufacNbr = "Acme",
                                                     .ModelNbr = "B7",
                                                     .SerialNbr = "123"});
    EXPECT_EQ(item->ItemType(), Property);
    EXPECT_EQ(item->ItemTypeCode(), "P");
    EXPECT_EQ(item->DisplayID(), "E-17");
    EXPECT_EQ(item->Description(), "blue bicycle");
    EXPECT_EQ(item->CategoryID(), 3);
    EXPECT_EQ(ToDouble(item->Quantity()), 2);
    EXPECT_EQ(ToDouble(item->Value()), 12.5);
    EXPECT_EQ(item->Make(), "Acme");
    EXPECT_EQ(item->Model(), "B7");
    EXPECT_EQ(item->SerialNumber(), "123");
}

TEST_F(StoredItemTest, ReadsTheValuesOfAVehicleRow) {
    const auto item = Stored(testing::VehicleFields{.RegNumber = "ABC 123",
                                                    .RegStateCode = "ME",
                                                    .VehYear = "1999",
                                                    .ColorCode = "Red",
                                                    .MakeCode = "Ford",
                                                    .VehModel = "Focus",
                                                    .CategoryNo = 4});
    EXPECT_EQ(item->ItemType(), Vehicle);
    EXPECT_EQ(item->ItemTypeCode(), "V");
    EXPECT_EQ(item->DisplayID(), "ABC 123 (ME)");
    EXPECT_EQ(item->Description(), "1999 Red Ford Focus");
    EXPECT_EQ(ToInt32(item->Quantity()), 1);
    EXPECT_TRUE(item->Value().IsNull());
    EXPECT_EQ(item->Make(), "Ford ");
    EXPECT_EQ(item->Model(), "Focus");
    EXPECT_EQ(item->SerialNumber(), "");
}

TEST_F(StoredItemTest, AnyOtherTypeHasNoCode) {
    for (const int32_t type : {7, 0, -1}) {
        const Error error = RaisedBy([&] { LoadRow({{"ItemType", type}})->ItemTypeCode(); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "Invalid item type '" + std::to_string(type) + "'");
    }
}

TEST_F(StoredItemTest, PropertyWithoutAnIdentifierShowsThatItIsMissing) {
    EXPECT_EQ(Stored(testing::PropertyFields{.PropertyID = Null()})->DisplayID(), "<missing ID>");
    EXPECT_EQ(Stored(testing::PropertyFields{.PropertyID = ""})->DisplayID(), "<missing ID>");
    EXPECT_EQ(Stored(testing::PropertyFields{.PropertyID = " "})->DisplayID(), " ");
}

TEST_F(StoredItemTest, AVehicleWithoutAStateShowsThatItsIdentifierIsMissing) {
    EXPECT_EQ(Stored(testing::VehicleFields{.RegNumber = "ABC 123"})->DisplayID(), "<missing ID>");
    EXPECT_EQ(Stored(testing::VehicleFields{.RegStateCode = "ME"})->DisplayID(), "[No Tag Number] (ME)");
}

TEST_F(StoredItemTest, MissingPartsOfAVehicleLeaveNoDoubleBlanks) {
    EXPECT_EQ(Stored(testing::VehicleFields{.VehYear = "1999", .VehModel = "Focus"})->Description(), "1999 Focus");
    EXPECT_EQ(Stored(testing::VehicleFields{.MakeCode = "Ford"})->Description(), "Ford ");
    const auto bare = Stored(testing::VehicleFields{});
    EXPECT_EQ(bare->Description(), "");
    EXPECT_EQ(bare->Make(), "");
    EXPECT_EQ(bare->Model(), "");
}

TEST_F(StoredItemTest, NullTextsReadAsEmpty) {
    const auto item = LoadRow({{"Description", Null()}});
    EXPECT_EQ(item->Description(), "");
    EXPECT_EQ(item->Make(), "");
    EXPECT_EQ(item->Model(), "");
    EXPECT_EQ(item->SerialNumber(), "");
}

TEST_F(StoredItemTest, TheKeyIsKeptAsTextAndReadAsANumber) {
    EXPECT_EQ(LoadRow({{"ID", 42}})->ID(), 42);
    EXPECT_EQ(RaisedBy([] { std::make_shared<StoredItem>()->ID(); }).Number(), ErrorNumber::TypeMismatch);
}

TEST_F(StoredItemTest, ANullCategoryFailsAsANumberAndHasNoName) {
    const auto item = LoadRow({{"CategoryNo", Null()}});
    EXPECT_EQ(RaisedBy([&] { item->CategoryID(); }).Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(item->CategoryName(), "");
}

TEST_F(StoredItemTest, TheCategoryNameIsLookedUpByKindAtEachCall) {
    m_database.AddCode(CodeTable::PropertyCategory, 3, "Bicycles", "Bicycles and parts");
    m_database.AddCode(CodeTable::VehicleCategory, 3, "Trucks", "Trucks over 3 t");
    const auto property = LoadRow({{"CategoryNo", 3}});
    EXPECT_EQ(property->CategoryName(), "Bicycles");
    for (const int32_t type : {2, 7, 0, -1})
        EXPECT_EQ(LoadRow({{"ItemType", type}, {"CategoryNo", 3}})->CategoryName(), "Trucks") << type;
    EXPECT_EQ(LoadRow({{"CategoryNo", 99}})->CategoryName(), "");
    m_database.Execute("UPDATE CodeTable SET Name = 'Cycles' WHERE Name = 'Bicycles'");
    EXPECT_EQ(property->CategoryName(), "Cycles");
}

TEST_F(StoredItemTest, TheLocationIsFetchedOnceAndKept) {
    const auto item = MakeItem(1, Property, m_shelf);
    const auto location = item->Location();
    ASSERT_NE(location, nullptr);
    EXPECT_EQ(location->Name(), "Shelf");
    EXPECT_EQ(item->Location(), location);
}

TEST_F(StoredItemTest, AnItemWithoutALocationNumberHasNoneUntilRefresh) {
    const int32_t id = m_database.AddProperty();
    const auto item = FindItem(Property, id);
    EXPECT_EQ(item->Location(), nullptr);
    m_database.AddCustodyRow(Property, id, m_shelf);
    EXPECT_EQ(item->Location(), nullptr);
    item->Refresh();
    ASSERT_NE(item->Location(), nullptr);
    EXPECT_EQ(item->Location()->ID(), m_shelf);
}

TEST_F(StoredItemTest, ALocationWhoseRowWasDeletedIsNull) {
    EXPECT_EQ(MakeItem(1, Property, 4711)->Location(), nullptr);
}

TEST_F(StoredItemTest, RefreshReadsTheRowAgainAndForgetsTheLocation) {
    for (const auto kind : {Property, Vehicle}) {
        const auto item = kind == Property ? Stored(testing::PropertyFields{.Description = "old"})
                                           : Stored(testing::VehicleFields{.VehModel = "old"});
        EXPECT_EQ(item->Location()->ID(), m_shelf);
        const int32_t other = m_database.AddLocation("Other " + item->ItemTypeCode(), StorageLocationTypes::Internal);
        GetStorageLocationStatic().Refresh();
        m_database.AddCustodyRow(kind, item->ID(), other);
        m_database.Execute(kind == Property ? "UPDATE Property SET Description = 'new'"
                                            : "UPDATE Vehicle SET VehModel = 'new'");
        EXPECT_EQ(item->Location()->ID(), m_shelf);
        item->Refresh();
        EXPECT_EQ(item->Location()->ID(), other);
        EXPECT_EQ(item->Description(), "new");
    }
}

TEST_F(StoredItemTest, RefreshOfAnItemThatTheSearchDoesNotFindChangesNothing) {
    const auto item = Stored(testing::PropertyFields{.Description = "old"});
    m_database.AddCustodyRow(Property, item->ID(), Null());
    m_database.Execute("UPDATE Property SET Description = 'new'");
    item->Refresh();
    EXPECT_EQ(item->Description(), "old");
    EXPECT_EQ(item->Location()->ID(), m_shelf);
}

TEST_F(StoredItemTest, ARowOfATypeThatDoesNotConvertFails) {
    EXPECT_EQ(RaisedBy([] { LoadRow({{"ItemType", "property"}}); }).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(RaisedBy([] { LoadRow({{"ID", Null()}}); }).Number(), ErrorNumber::InvalidUseOfNull);
}

}  // namespace quellbrook
