#include "core/Stores.h"

#include "core/ActionTypes.h"
#include "core/Singletons.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

class StoresTest : public testing::DatabaseTest {};

}  // namespace

TEST_F(StoresTest, TwoCallsGiveRecordsWithTheSameFourStores) {
    const StoresRecord first = GetStores();
    const StoresRecord second = GetStores();
    EXPECT_TRUE(first.Initialized);
    EXPECT_NE(first.Locations, nullptr);
    EXPECT_NE(first.Cart, nullptr);
    EXPECT_NE(first.Loading, nullptr);
    EXPECT_NE(first.View, nullptr);
    EXPECT_EQ(first.Locations, second.Locations);
    EXPECT_EQ(first.Cart, second.Cart);
    EXPECT_EQ(first.Loading, second.Loading);
    EXPECT_EQ(first.View, second.View);
}

TEST_F(StoresTest, TheStoresAreRegisteredWithTheDispatcher) {
    const StoresRecord stores = GetStores();
    GetDispatcher()->Dispatch({ActionTypes::LOADING_STARTED, {}});
    GetDispatcher()->Dispatch({ActionTypes::CART_SET_TRANSACTION_TYPE, 3});
    GetDispatcher()->Dispatch({ActionTypes::VIEW_NAVIGATE_TO, std::make_shared<ViewState>("cart", nullptr)});
    const auto other = GetStorageLocationStatic().GetRoot(StorageLocationTypes::Other);
    GetDispatcher()->Dispatch({ActionTypes::LOCATION_CREATE_SUCCESS, other});
    EXPECT_TRUE(stores.Loading->IsLoading());
    EXPECT_EQ(stores.Cart->GetTransactionType(), 3);
    EXPECT_EQ(stores.View->ViewName(), "cart");
    EXPECT_EQ(stores.Locations->GetSelectedLocation(), other);
}

TEST_F(StoresTest, AfterTheGateFourNewStoresAreBuiltAndTheOldOnesReceiveNothing) {
    const StoresRecord before = GetStores();
    EXPECT_TRUE(GetSingletons().InitializeQuellbrook());
    const StoresRecord after = GetStores();
    EXPECT_NE(after.Locations, before.Locations);
    EXPECT_NE(after.Cart, before.Cart);
    EXPECT_NE(after.Loading, before.Loading);
    EXPECT_NE(after.View, before.View);

    GetDispatcher()->Dispatch({ActionTypes::LOADING_STARTED, {}});
    EXPECT_TRUE(after.Loading->IsLoading());
    EXPECT_FALSE(before.Loading->IsLoading());
}

TEST_F(StoresTest, TheFirstAccessFailsWithTheDatabaseAndTheNextOneWorks) {
    const auto faulty = std::make_shared<testing::FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faulty);
    faulty->FailAtStatement(1, Error(1234, "Test", "The server is gone."));
    EXPECT_EQ(testing::RaisedBy([] { GetStores(); }).Description(), "The server is gone.");

    const StoresRecord stores = GetStores();
    GetDispatcher()->Dispatch({ActionTypes::LOADING_STARTED, {}});
    EXPECT_TRUE(stores.Loading->IsLoading());
}

}  // namespace quellbrook
