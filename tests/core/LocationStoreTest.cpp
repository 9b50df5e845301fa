#include "core/LocationStore.h"

#include "core/ActionTypes.h"
#include "core/Stores.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

class LocationStoreTest : public testing::DatabaseTest {};

int32_t RootCount(StorageLocationTypes type) {
    return static_cast<int32_t>(GetStorageLocationStatic().GetRoot(type)->SubLocations().size());
}

}  // namespace

TEST_F(LocationStoreTest, ConstructionSelectsTheFirstRootAndLoadsTheLocationDocument) {
    m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const LocationStore store;
    EXPECT_TRUE(
        store.GetSelectedLocation()->IsSame(GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal).get()));

    m_database.AddLocation("Bin", StorageLocationTypes::Internal);
    EXPECT_EQ(RootCount(StorageLocationTypes::Internal), 1) << "the constructor loaded the document";
}

TEST_F(LocationStoreTest, TheModelsGettersAreFronted) {
    const int32_t id = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const LocationStore store;
    EXPECT_EQ(store.GetLocation(id)->Name(), "Shelf");
    EXPECT_EQ(store.GetLocation(id + 1), nullptr);
    EXPECT_EQ(&store.GetRootLocations(), &GetStorageLocationStatic().Roots());
    EXPECT_EQ(store.GetRootLocation(StorageLocationTypes::Other)->Name(), "Other Locations");
    EXPECT_EQ(testing::RaisedBy([&] { store.GetRootLocation(static_cast<StorageLocationTypes>(3)); }).Description(),
              "Unknown root.");
}

TEST_F(LocationStoreTest, GettersKeepNothingOfTheirOwn) {
    const LocationStore store;
    const int32_t id = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    EXPECT_EQ(store.GetLocation(id), nullptr);
    GetStorageLocationStatic().Refresh();
    EXPECT_NE(store.GetLocation(id), nullptr);
}

TEST_F(LocationStoreTest, ACreatedLocationBecomesTheSelectedOne) {
    const int32_t id = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    LocationStore store;
    int changes = 0;
    store.OnChange.connect([&] { ++changes; });
    const StorageLocationRef created = store.GetLocation(id);
    store.Handle({ActionTypes::LOCATION_CREATE_SUCCESS, created});
    EXPECT_EQ(store.GetSelectedLocation(), created);
    EXPECT_EQ(changes, 1);
}

TEST_F(LocationStoreTest, AFailedCreationAndOtherActionsChangeNothing) {
    LocationStore store;
    int changes = 0;
    store.OnChange.connect([&] { ++changes; });
    const StorageLocationRef selected = store.GetSelectedLocation();
    store.Handle({ActionTypes::LOCATION_CREATE_FAILED, "No."});
    store.Handle({ActionTypes::VIEW_GO_BACK, {}});
    EXPECT_EQ(store.GetSelectedLocation(), selected);
    EXPECT_EQ(changes, 0);
}

TEST_F(LocationStoreTest, APayloadOfTheWrongTypeFails) {
    LocationStore store;
    EXPECT_EQ(testing::RaisedBy([&] {
                  store.Handle({ActionTypes::LOCATION_CREATE_SUCCESS, "Shelf"});
              }).Number(),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(testing::RaisedBy([&] {
                  store.Handle({ActionTypes::LOCATION_CREATE_SUCCESS, StorageLocationRef()});
              }).Number(),
              91);
}

}  // namespace quellbrook
