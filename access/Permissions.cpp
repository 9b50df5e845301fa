#include "access/Permissions.h"

namespace quellbrook {

namespace {

PermissionDefinition Make(const char* moduleKey, int16_t value) { return {moduleKey, value}; }

}  // namespace

PermissionDefinition PermissionsStatic::PRINT_BARCODE_LABELS() const { return Make("EvidenceManagement", 11); }
PermissionDefinition PermissionsStatic::ADD_STORAGE_LOCATIONS() const { return Make("Storage", 11); }
PermissionDefinition PermissionsStatic::EDIT_STORAGE_LOCATIONS() const { return Make("Storage", 12); }
PermissionDefinition PermissionsStatic::DELETE_STORAGE_LOCATIONS() const { return Make("Storage", 13); }
PermissionDefinition PermissionsStatic::VIEW_CHAIN_OF_CUSTODY() const { return Make("Storage", 0); }
PermissionDefinition PermissionsStatic::APPEND_CHAIN_OF_CUSTODY() const { return Make("Storage", 1); }
PermissionDefinition PermissionsStatic::AMEND_CHAIN_OF_CUSTODY() const { return Make("Storage", 2); }
PermissionDefinition PermissionsStatic::ADD_FINAL_DISPOSITION() const { return Make("Storage", 15); }
PermissionDefinition PermissionsStatic::VIEW_PROPERTY() const { return Make("MIProperty", 0); }
PermissionDefinition PermissionsStatic::VIEW_VEHICLE() const { return Make("MIVehicle", 0); }

PermissionsStatic& GetPermissions() {
    static PermissionsStatic permissions;
    return permissions;
}

}  // namespace quellbrook
