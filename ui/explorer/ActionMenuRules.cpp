#include "ui/explorer/ActionMenuRules.h"

#include "base/FormatCount.h"
#include "data/StoredItem.h"

#include <algorithm>
#include <initializer_list>

namespace quellbrook {

namespace {

using Kind = SelectedObject::Kind;

struct TransferFlags {
    bool canIn;
    bool canOut;
    bool canMove;
    bool canDispose;

    void SetAll(bool value) { canIn = canOut = canMove = canDispose = value; }
    void And(const AllowedTasks& tasks) {
        canIn = canIn && tasks.CanCheckIn;
        canOut = canOut && tasks.CanCheckOut;
        canMove = canMove && tasks.CanMove;
        canDispose = canDispose && tasks.CanDispose;
    }
};

struct Transfers {
    TransferFlags flags;
    int64_t inBatch = 0;
};

// An item in the batch allows no transfer if it is selected alone, but does not forbid one if others are selected, too.
Transfers TransfersOf(const std::vector<SelectedObject>& selection, const MenuRights& rights) {
    const auto n = static_cast<int64_t>(selection.size());
    Transfers result;
    result.flags.SetAll(n > 0);
    for (const SelectedObject& object : selection) {
        if (object.kind == Kind::Location) {
            result.flags.SetAll(false);
            break;
        }
        if (object.kind != Kind::Item || !object.hasLocation) continue;
        if (object.isInBatch) {
            ++result.inBatch;
            result.flags.SetAll(n >= 2);
        }
        result.flags.And(object.tasks);
    }
    const bool hasOthers = n != result.inBatch;
    TransferFlags& flags = result.flags;
    flags.canIn = flags.canIn && rights.appendChainOfCustody && hasOthers;
    flags.canOut = flags.canOut && rights.appendChainOfCustody && hasOthers;
    flags.canMove = flags.canMove && rights.appendChainOfCustody && hasOthers;
    flags.canDispose = flags.canDispose && rights.addFinalDisposition && hasOthers;
    return result;
}

bool AnyVisible(const ActionMenuState& state, std::initializer_list<MenuEntry> entries) {
    return std::any_of(entries.begin(), entries.end(), [&](MenuEntry entry) { return state[entry].visible; });
}

void ApplyTransferRules(ActionMenuState& state, MenuSource source, const std::vector<SelectedObject>& selection,
                        const MenuRights& rights) {
    const auto n = static_cast<int64_t>(selection.size());
    const Transfers transfers = TransfersOf(selection, rights);
    const bool firstIsItem = n > 0 && selection.front().kind == Kind::Item;

    state[MenuEntry::CheckIn] = {ActionCaption("Sign in ", n - transfers.inBatch), transfers.flags.canIn};
    state[MenuEntry::CheckOut] = {ActionCaption("Sign out ", n - transfers.inBatch), transfers.flags.canOut};
    state[MenuEntry::Move] = {ActionCaption("Move ", n - transfers.inBatch), transfers.flags.canMove};
    state[MenuEntry::Dispose] = {ActionCaption("Dispose", n - transfers.inBatch), transfers.flags.canDispose};
    state[MenuEntry::RemoveFromBatch] = {ActionCaption("Uncheck", transfers.inBatch), transfers.inBatch > 0};
    state[MenuEntry::NoActions].enabled = false;
    state[MenuEntry::NoActions].visible = source != MenuSource::LocationPane && firstIsItem &&
                                          !AnyVisible(state, {MenuEntry::CheckIn, MenuEntry::CheckOut, MenuEntry::Move,
                                                              MenuEntry::Dispose, MenuEntry::RemoveFromBatch});
}

void ApplyOpenAndPrintRules(ActionMenuState& state, const std::vector<SelectedObject>& selection,
                            const MenuRights& rights) {
    const auto n = static_cast<int64_t>(selection.size());
    const SelectedObject first = n > 0 ? selection.front() : SelectedObject();
    const bool showPrint = n > 0 && !(first.kind == Kind::Location && first.isRoot);

    state[MenuEntry::Open].enabled = n == 1;
    state[MenuEntry::Open].visible = n >= 1;
    state[MenuEntry::OpenInTessarine].enabled = n == 1;
    state[MenuEntry::OpenInTessarine].visible = n > 0 && first.kind == Kind::Item;
    state[MenuEntry::Print].caption =
        n == 1 ? "Print barcode label" : "Print barcode labels (" + FormatNumber(n) + " items)";
    state[MenuEntry::Print].visible = showPrint && rights.printBarcodeLabels;
    state[MenuEntry::Separator1].visible = state[MenuEntry::Print].visible;
}

void ApplyLocationRules(ActionMenuState& state, MenuSource source, const std::vector<SelectedObject>& selection,
                        const MenuRights& rights) {
    const bool isEmpty = selection.empty();
    const bool oneLocation = selection.size() == 1 && selection.front().kind == Kind::Location;
    const bool showChange = oneLocation && !selection.front().isRoot;

    state[MenuEntry::New].visible = (source == MenuSource::LocationPane || isEmpty) && rights.addStorageLocations;
    state[MenuEntry::EditLocation].visible = showChange && rights.editStorageLocations;
    state[MenuEntry::DeleteLocation].visible = showChange && rights.deleteStorageLocations;
    state[MenuEntry::SelectAll].visible = source == MenuSource::ItemPane && isEmpty;
}

}  // namespace

ActionMenuState ApplyMenuRules(MenuSource source, const std::vector<SelectedObject>& selection,
                               const MenuRights& rights) {
    ActionMenuState state;
    ApplyOpenAndPrintRules(state, selection, rights);
    ApplyTransferRules(state, source, selection, rights);
    ApplyLocationRules(state, source, selection, rights);
    state[MenuEntry::Separator2].visible =
        AnyVisible(state, {MenuEntry::CheckIn, MenuEntry::CheckOut, MenuEntry::Move, MenuEntry::Dispose,
                           MenuEntry::RemoveFromBatch, MenuEntry::NoActions, MenuEntry::SelectAll});
    state[MenuEntry::Separator3].visible =
        AnyVisible(state, {MenuEntry::New, MenuEntry::EditLocation, MenuEntry::DeleteLocation});
    return state;
}

std::vector<SelectedObject> DescribeSelection(const ObjectList& selection, const CartStore& cart) {
    std::vector<SelectedObject> result(static_cast<size_t>(selection.Count()));
    bool beforeLocations = true;
    for (int32_t index = 0; index < selection.Count(); ++index) {
        SelectedObject& described = result[static_cast<size_t>(index)];
        const ObjectRef object = selection.At(index);
        if (const auto location = std::dynamic_pointer_cast<StorageLocation>(object)) {
            described.kind = Kind::Location;
            described.isRoot = location->IsRoot();
            beforeLocations = false;
        } else if (const auto item = std::dynamic_pointer_cast<StoredItem>(object)) {
            described.kind = Kind::Item;
            described.hasLocation = beforeLocations && item->Location() != nullptr;
            if (!described.hasLocation) continue;
            described.isInBatch = cart.IsItemInCart(item);
            described.tasks = cart.GetAllowedTasks(item);
        }
    }
    return result;
}

MenuRights ReadMenuRights(const UserStatic& user) {
    const PermissionsStatic& permissions = GetPermissions();
    return {user.Can(permissions.APPEND_CHAIN_OF_CUSTODY()), user.Can(permissions.ADD_FINAL_DISPOSITION()),
            user.Can(permissions.PRINT_BARCODE_LABELS()),    user.Can(permissions.ADD_STORAGE_LOCATIONS()),
            user.Can(permissions.EDIT_STORAGE_LOCATIONS()),  user.Can(permissions.DELETE_STORAGE_LOCATIONS())};
}

std::string ActionCaption(const std::string& prefix, int64_t count) {
    return prefix + " " + FormatCount(count, "this item", "%d items");
}

}  // namespace quellbrook
