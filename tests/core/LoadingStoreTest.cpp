#include "core/LoadingStore.h"

#include "core/ActionTypes.h"

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

class LoadingStoreTest : public ::testing::Test {
protected:
    LoadingStoreTest() {
        m_store.OnChange.connect([this] { ++m_changes; });
    }

    LoadingStore m_store;
    int m_changes = 0;
};

}  // namespace

TEST_F(LoadingStoreTest, NothingIsLoadingAtFirst) { EXPECT_FALSE(m_store.IsLoading()); }

TEST_F(LoadingStoreTest, OneFinishEndsAnyNumberOfStarts) {
    m_store.Handle({ActionTypes::LOADING_STARTED, {}});
    m_store.Handle({ActionTypes::LOADING_STARTED, {}});
    EXPECT_TRUE(m_store.IsLoading());
    m_store.Handle({ActionTypes::LOADING_FINISHED, {}});
    EXPECT_FALSE(m_store.IsLoading());
}

TEST_F(LoadingStoreTest, EachActionRaisesChangeAlsoWhenTheValueStays) {
    m_store.Handle({ActionTypes::LOADING_FINISHED, {}});
    m_store.Handle({ActionTypes::LOADING_STARTED, {}});
    m_store.Handle({ActionTypes::LOADING_STARTED, {}});
    EXPECT_EQ(m_changes, 3);
}

TEST_F(LoadingStoreTest, OtherActionsChangeNothing) {
    m_store.Handle({ActionTypes::LOADING_STARTED, {}});
    m_store.Handle({ActionTypes::VIEW_GO_BACK, {}});
    EXPECT_TRUE(m_store.IsLoading());
    EXPECT_EQ(m_changes, 1);
}

}  // namespace quellbrook
