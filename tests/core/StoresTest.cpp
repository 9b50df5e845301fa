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

TEST_F(StoresTest, TheStoresAreRegisteredInTheirOrder) {
    std::string order;
    StoresRecord stores = GetStores();
    // A slot ends with its store, and the dispatcher releases the stores in the order in which it serves them.
    const auto observe = [&](auto& store, const char* name) {
        const std::shared_ptr<void> end(nullptr, [&order, name](void*) { order += name; });
        store->OnChange.connect([end] {});
    };
    observe(stores.View, "view ");
    observe(stores.Loading, "loading ");
    observe(stores.Cart, "cart ");
    observe(stores.Locations, "locations ");
    stores = {};
    DiscardStores();
    EXPECT_EQ(order, "");
    DiscardDispatcher();
    EXPECT_EQ(order, "locations cart loading view ");
}

TEST_F(StoresTest, AFailureNamesTheStoreThatFailed) {
    const StoresRecord stores = GetStores();
    const auto fail = [] { Raise(99, "View.Redraw", "The view is broken."); };
    const auto expectNamed = [](const char* store, const Action& action) {
        const Error error = testing::RaisedBy([&] { GetDispatcher()->Dispatch(action); });
        EXPECT_EQ(error.Number(), 99);
        EXPECT_EQ(error.Description(), "Error executing callback '" + std::string(store) + "': The view is broken.");
    };
    stores.Locations->OnChange.connect(fail);
    stores.Cart->OnChange.connect(fail);
    stores.Loading->OnChange.connect(fail);
    stores.View->OnChange.connect(fail);
    const auto root = GetStorageLocationStatic().GetRoot(StorageLocationTypes::Other);
    expectNamed("LocationStore", {ActionTypes::LOCATION_CREATE_SUCCESS, root});
    expectNamed("CartStore", {ActionTypes::CART_SET_TRANSACTION_TYPE, 3});
    expectNamed("LoadingStore", {ActionTypes::LOADING_STARTED, {}});
    expectNamed("ViewStore", {ActionTypes::VIEW_NAVIGATE_TO, std::make_shared<ViewState>("cart", nullptr)});
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
