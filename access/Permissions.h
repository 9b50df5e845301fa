#pragma once

#include <cstdint>
#include <string>

namespace quellbrook {

// A right of the host: the module that owns it and its number there.
struct PermissionDefinition {
    std::string ModuleKey;
    int16_t Value = 0;

    bool operator==(const PermissionDefinition&) const = default;
};

// The rights that this module checks. Each call returns a new record.
class PermissionsStatic {
public:
    PermissionDefinition PRINT_BARCODE_LABELS() const;
    PermissionDefinition ADD_STORAGE_LOCATIONS() const;
    PermissionDefinition EDIT_STORAGE_LOCATIONS() const;
    PermissionDefinition DELETE_STORAGE_LOCATIONS() const;
    PermissionDefinition VIEW_CHAIN_OF_CUSTODY() const;
    PermissionDefinition APPEND_CHAIN_OF_CUSTODY() const;
    PermissionDefinition AMEND_CHAIN_OF_CUSTODY() const;
    PermissionDefinition ADD_FINAL_DISPOSITION() const;
    PermissionDefinition VIEW_PROPERTY() const;
    PermissionDefinition VIEW_VEHICLE() const;
};

PermissionsStatic& GetPermissions();

}  // namespace quellbrook
