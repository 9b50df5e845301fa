#include "data/StorageLocationStatic.h"

#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

class StorageLocationStaticTest : public testing::DatabaseTest {};

}  // namespace

TEST_F(StorageLocationStaticTest, TheFiveRootsStandInTheirOrderUnderTheirTypes) {
    const std::pair<StorageLocationTypes, const char*> expected[] = {
        {StorageLocationTypes::Internal, "Sign-In Locations"},
        {StorageLocationTypes::External, "Sign-Out Locations"},
        {StorageLocationTypes::DisposalLocation, "Final Disposition"},
        {StorageLocationTypes::Other, "Other Locations"},
        {StorageLocationTypes::Unassigned, "Uncategorized Locations"},
    };
    const auto& roots = GetStorageLocationStatic().Roots();
    ASSERT_EQ(roots.Count(), 5u);
    size_t position = 0;
    for (const StorageLocationRef& root : roots) {
        const auto& [type, name] = expected[position++];
        EXPECT_EQ(root->LocationType(), type);
        EXPECT_EQ(root->Name(), name);
        EXPECT_TRUE(root->IsRoot());
        EXPECT_TRUE(root->Enabled());
        EXPECT_EQ(roots.Item(std::to_string(static_cast<int32_t>(type))), root);
        EXPECT_EQ(GetStorageLocationStatic().GetRoot(type), root);
    }
}

TEST_F(StorageLocationStaticTest, AnyOtherTypeHasNoRoot) {
    for (const int32_t type : {0, 3, 6, 31, -1}) {
        const Error error =
            testing::RaisedBy([&] { GetStorageLocationStatic().GetRoot(static_cast<StorageLocationTypes>(type)); });
        EXPECT_EQ(error.Number(), ErrorNumber::General) << type;
        EXPECT_EQ(error.Description(), "Unknown root.") << type;
    }
}

TEST_F(StorageLocationStaticTest, RefreshReloadsTheDocumentOfTheWholeModule) {
    EXPECT_EQ(GetStorageLocationStatic().FindByID(1), nullptr);
    const int32_t id = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    EXPECT_EQ(GetStorageLocationStatic().FindByID(id), nullptr);
    EXPECT_TRUE(GetStorageLocationStatic().Refresh().IsEmpty());
    EXPECT_EQ(GetStorageLocationStatic().FindByID(id)->Name(), "Shelf");
}

}  // namespace quellbrook
