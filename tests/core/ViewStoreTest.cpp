#include "core/ViewStore.h"

#include "core/ActionTypes.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

class ViewStoreTest : public ::testing::Test {
protected:
    ViewStoreTest() {
        m_store.OnChange.connect([this] { ++m_changes; });
    }

    void NavigateTo(const std::string& view, std::shared_ptr<Dictionary> parameters = nullptr) {
        m_store.Handle({ActionTypes::VIEW_NAVIGATE_TO, std::make_shared<ViewState>(view, std::move(parameters))});
    }
    void GoBack() { m_store.Handle({ActionTypes::VIEW_GO_BACK, {}}); }

    ViewStore m_store;
    int m_changes = 0;
};

std::shared_ptr<Dictionary> Parameters(int32_t value) {
    auto parameters = std::make_shared<Dictionary>();
    parameters->Set("Item", value);
    return parameters;
}

}  // namespace

TEST_F(ViewStoreTest, BeforeTheFirstNavigationTheViewNameIsEmpty) {
    EXPECT_EQ(m_store.ViewName(), "");
    EXPECT_EQ(m_store.ViewParameters(), nullptr);
    GoBack();
    EXPECT_EQ(m_changes, 0);
    EXPECT_EQ(m_store.ViewName(), "");
}

TEST_F(ViewStoreTest, GoingBackFromTheFirstViewEmptiesTheHistoryAndRaisesNothing) {
    NavigateTo(ViewNames::Explorer);
    m_changes = 0;
    GoBack();
    EXPECT_EQ(m_store.ViewName(), "explorer");
    GoBack();
    EXPECT_EQ(m_store.ViewName(), "explorer");
    EXPECT_EQ(m_changes, 0);

    // The history is empty: the first view is not in it.
    NavigateTo(ViewNames::Cart);
    GoBack();
    EXPECT_EQ(m_store.ViewName(), "cart");
}

TEST_F(ViewStoreTest, NavigatingToTheCurrentViewIsIgnoredWithItsParameters) {
    const auto first = Parameters(1);
    NavigateTo(ViewNames::Explorer, first);
    NavigateTo(ViewNames::Explorer, Parameters(2));
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(m_store.ViewParameters(), first);

    NavigateTo(ViewNames::Cart);
    GoBack();
    EXPECT_EQ(m_store.ViewName(), "explorer");
    m_changes = 0;
    GoBack();  // only one entry was there
    EXPECT_EQ(m_changes, 0);
}

TEST_F(ViewStoreTest, NamesAreComparedExactly) {
    NavigateTo("explorer");
    NavigateTo("Explorer");
    EXPECT_EQ(m_changes, 2);
    EXPECT_EQ(m_store.ViewName(), "Explorer");
}

TEST_F(ViewStoreTest, ThereAndBackRaisesOneChangeAStepAndRestoresTheParameters) {
    NavigateTo(ViewNames::Explorer);
    EXPECT_EQ(m_changes, 1);
    const auto item = Parameters(7);
    NavigateTo(ViewNames::ItemView, item);
    EXPECT_EQ(m_changes, 2);
    EXPECT_EQ(m_store.ViewName(), "itemView");
    EXPECT_EQ(m_store.ViewParameters(), item);
    GoBack();
    EXPECT_EQ(m_changes, 3);
    EXPECT_EQ(m_store.ViewName(), "explorer");

    GoBack();  // the history had one entry left
    EXPECT_EQ(m_changes, 3);
}

TEST_F(ViewStoreTest, AnEarlierViewReturnsWithItsOwnParameters) {
    const auto item = Parameters(7);
    NavigateTo(ViewNames::ItemView, item);
    NavigateTo(ViewNames::Cart);
    GoBack();
    EXPECT_EQ(m_store.ViewParameters(), item);
}

TEST_F(ViewStoreTest, ARepeatedNameFurtherDownIsANewEntry) {
    NavigateTo(ViewNames::Explorer);
    NavigateTo(ViewNames::ItemView);
    NavigateTo(ViewNames::Explorer);
    GoBack();
    EXPECT_EQ(m_store.ViewName(), "itemView");
    GoBack();
    EXPECT_EQ(m_store.ViewName(), "explorer");
}

TEST_F(ViewStoreTest, ANameThatNoViewHasIsAccepted) {
    NavigateTo("nowhere");
    EXPECT_EQ(m_store.ViewName(), "nowhere");
    EXPECT_EQ(m_changes, 1);
}

TEST_F(ViewStoreTest, APayloadOfTheWrongTypeFails) {
    EXPECT_EQ(testing::RaisedBy([&] {
                  m_store.Handle({ActionTypes::VIEW_NAVIGATE_TO, "explorer"});
              }).Number(),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(testing::RaisedBy([&] {
                  m_store.Handle({ActionTypes::VIEW_NAVIGATE_TO, std::make_shared<Dictionary>()});
              }).Number(),
              13);
    EXPECT_EQ(m_changes, 0);
}

TEST_F(ViewStoreTest, OtherActionsChangeNothing) {
    NavigateTo(ViewNames::Explorer);
    m_store.Handle({ActionTypes::LOADING_STARTED, {}});
    m_store.Handle({"view_go_back", {}});
    EXPECT_EQ(m_changes, 1);
}

}  // namespace quellbrook
