#include "core/Singletons.h"

#include "access/User.h"
#include "base/Screen.h"
#include "core/Dispatcher.h"
#include "core/Stores.h"

namespace quellbrook {

namespace {

bool HasUncategorizedLocations() {
    return !GetStorageLocationStatic().GetRoot(StorageLocationTypes::Unassigned)->SubLocations().empty();
}

bool MayViewItems() {
    const bool mayViewProperty = GetUser().Can(GetPermissions().VIEW_PROPERTY());
    const bool mayViewVehicles = GetUser().Can(GetPermissions().VIEW_VEHICLE());
    if (mayViewProperty || mayViewVehicles) return true;
    ShowMessage(
        "You do not have sufficient permissions to use Quellbrook. \r\n\r\n"
        "You need to have permission to view property and/or vehicle records (at minimum) in order to access "
        "Quellbrook.",
        MessageStyle::Critical, "Insufficient Permissions");
    return false;
}

bool MayCategorize() {
    if (GetUser().Can(GetPermissions().EDIT_STORAGE_LOCATIONS())) return true;
    ShowMessage(
        "Quellbrook requires you to re-configure your storage locations before continuing; however, your user account "
        "does not have the necessary permission to do this.\r\n\r\n"
        "Please log in with an account that has the Storage | Edit Storage Locations permission, or have an "
        "administrator grant you this permission, and then try again.",
        MessageStyle::Critical, "Permission Required");
    return false;
}

}  // namespace

bool Singletons::InitializeQuellbrook() {
    if (!GetUser().IsAuthenticated()) {
        ShowMessage("Cannot open Quellbrook because you are not logged in.", MessageStyle::Critical,
                    "Not Authenticated");
        return false;
    }
    DiscardDispatcher();
    DiscardStores();
    GetStorageLocationStatic().Refresh();  // somebody else may have categorized locations since the last login
    std::unique_ptr<SetupWizard> wizard;   // the parent of the messages below
    while (HasUncategorizedLocations()) {
        if (!MayCategorize()) return false;
        wizard = GetScreen().RunSetupWizard();
        if (!wizard->Completed()) return false;
    }
    return MayViewItems();
}

StorageLocationStatic& Singletons::StorageLocation() { return GetStorageLocationStatic(); }

void Singletons::SetDialogParent(ObjectRef parent) { GetScreen().SetDialogParent(std::move(parent)); }

void Singletons::Reset() {
    DiscardStores();
    DiscardDispatcher();
    SetDialogParent(nullptr);
}

Singletons& GetSingletons() {
    static Singletons singletons;
    return singletons;
}

}  // namespace quellbrook
