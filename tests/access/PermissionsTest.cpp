#include "access/Permissions.h"

#include <gtest/gtest.h>

namespace quellbrook {

TEST(Permissions, EachRightHasTheModuleAndTheNumberThatTheHostGaveIt) {
    const PermissionsStatic& permissions = GetPermissions();
    EXPECT_EQ(permissions.PRINT_BARCODE_LABELS(), (PermissionDefinition{"EvidenceManagement", 11}));
    EXPECT_EQ(permissions.ADD_STORAGE_LOCATIONS(), (PermissionDefinition{"Storage", 11}));
    EXPECT_EQ(permissions.EDIT_STORAGE_LOCATIONS(), (PermissionDefinition{"Storage", 12}));
    EXPECT_EQ(permissions.DELETE_STORAGE_LOCATIONS(), (PermissionDefinition{"Storage", 13}));
    EXPECT_EQ(permissions.VIEW_CHAIN_OF_CUSTODY(), (PermissionDefinition{"Storage", 0}));
    EXPECT_EQ(permissions.APPEND_CHAIN_OF_CUSTODY(), (PermissionDefinition{"Storage", 1}));
    EXPECT_EQ(permissions.AMEND_CHAIN_OF_CUSTODY(), (PermissionDefinition{"Storage", 2}));
    EXPECT_EQ(permissions.ADD_FINAL_DISPOSITION(), (PermissionDefinition{"Storage", 15}));
    EXPECT_EQ(permissions.VIEW_PROPERTY(), (PermissionDefinition{"MIProperty", 0}));
    EXPECT_EQ(permissions.VIEW_VEHICLE(), (PermissionDefinition{"MIVehicle", 0}));
}

TEST(Permissions, TwoReadsGiveEqualButSeparateRecords) {
    PermissionDefinition first = GetPermissions().VIEW_PROPERTY();
    const PermissionDefinition second = GetPermissions().VIEW_PROPERTY();
    EXPECT_EQ(first, second);

    first.Value = 7;
    EXPECT_EQ(second.Value, 0);
    EXPECT_EQ(GetPermissions().VIEW_PROPERTY(), second);
}

}  // namespace quellbrook
