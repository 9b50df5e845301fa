#include "ui/explorer/ActionMenuRules.h"

#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StoredItemSearch.h"
#include "tests/support/DatabaseTest.h"

#include <gmock/gmock.h>

#include <map>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = SelectedObject::Kind;

constexpr MenuRights allRights{true, true, true, true, true, true};
constexpr MenuSource panes[] = {MenuSource::LocationPane, MenuSource::ItemPane, MenuSource::SearchResultPane};

constexpr std::pair<MenuEntry, const char*> entryNames[] = {
    {MenuEntry::Open, "Open"},
    {MenuEntry::OpenInTessarine, "OpenInTessarine"},
    {MenuEntry::Separator1, "-1"},
    {MenuEntry::Print, "Print"},
    {MenuEntry::Separator2, "-2"},
    {MenuEntry::CheckIn, "CheckIn"},
    {MenuEntry::CheckOut, "CheckOut"},
    {MenuEntry::Move, "Move"},
    {MenuEntry::Dispose, "Dispose"},
    {MenuEntry::RemoveFromBatch, "RemoveFromBatch"},
    {MenuEntry::NoActions, "NoActions"},
    {MenuEntry::SelectAll, "SelectAll"},
    {MenuEntry::Separator3, "-3"},
    {MenuEntry::New, "New"},
    {MenuEntry::EditLocation, "EditLocation"},
    {MenuEntry::DeleteLocation, "DeleteLocation"},
};

std::vector<std::string> VisibleEntries(const ActionMenuState& state) {
    std::vector<std::string> names;
    for (const auto& [entry, name] : entryNames)
        if (state[entry].visible) names.emplace_back(name);
    return names;
}

SelectedObject Location(bool isRoot = false) {
    SelectedObject location;
    location.kind = Kind::Location;
    location.isRoot = isRoot;
    return location;
}

AllowedTasks Tasks(bool in, bool out, bool move, bool dispose) {
    AllowedTasks tasks;
    tasks.CanCheckIn = in;
    tasks.CanCheckOut = out;
    tasks.CanMove = move;
    tasks.CanDispose = dispose;
    return tasks;
}

SelectedObject Item(const AllowedTasks& tasks) {
    SelectedObject item;
    item.kind = Kind::Item;
    item.hasLocation = true;
    item.tasks = tasks;
    return item;
}

SelectedObject StoredHere() { return Item(Tasks(false, true, true, true)); }
SelectedObject SignedOut() { return Item(Tasks(true, false, false, false)); }

SelectedObject ItemNowhere() {
    SelectedObject item;
    item.kind = Kind::Item;
    return item;
}

// The tasks that the batch reports for one of its members.
SelectedObject InBatch() {
    SelectedObject item = Item(Tasks(false, false, false, false));
    item.isInBatch = true;
    return item;
}

// A member with all tasks allowed, to test the rules alone.
SelectedObject InBatchWithTasks() {
    SelectedObject item = Item(Tasks(true, true, true, true));
    item.isInBatch = true;
    return item;
}

TEST(ActionMenuRules, OneStoredItemCanBeOpenedPrintedAndTransferred) {
    for (const MenuSource pane : {MenuSource::ItemPane, MenuSource::SearchResultPane}) {
        const ActionMenuState state = ApplyMenuRules(pane, {StoredHere()}, allRights);
        EXPECT_THAT(VisibleEntries(state),
                    ElementsAre("Open", "OpenInTessarine", "-1", "Print", "-2", "CheckOut", "Move", "Dispose"));
        EXPECT_TRUE(state[MenuEntry::Open].enabled);
        EXPECT_TRUE(state[MenuEntry::OpenInTessarine].enabled);
    }
}

TEST(ActionMenuRules, CaptionsOfOneItemHaveADoubleBlank) {
    const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {StoredHere()}, allRights);
    EXPECT_EQ(state[MenuEntry::Print].caption, "Print barcode label");
    EXPECT_EQ(state[MenuEntry::CheckIn].caption, "Sign in  this item");
    EXPECT_EQ(state[MenuEntry::CheckOut].caption, "Sign out  this item");
    EXPECT_EQ(state[MenuEntry::Move].caption, "Move  this item");
    EXPECT_EQ(state[MenuEntry::Dispose].caption, "Dispose this item");
    EXPECT_EQ(state[MenuEntry::RemoveFromBatch].caption, "Uncheck 0 items");
}

TEST(ActionMenuRules, CaptionsOfManyItemsCountThem) {
    const std::vector<SelectedObject> selection(1204, StoredHere());
    const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, selection, allRights);
    EXPECT_EQ(state[MenuEntry::Print].caption, "Print barcode labels (1,204 items)");
    EXPECT_EQ(state[MenuEntry::CheckIn].caption, "Sign in  1,204 items");
    EXPECT_EQ(state[MenuEntry::CheckOut].caption, "Sign out  1,204 items");
    EXPECT_EQ(state[MenuEntry::Move].caption, "Move  1,204 items");
    EXPECT_EQ(state[MenuEntry::Dispose].caption, "Dispose 1,204 items");
    EXPECT_FALSE(state[MenuEntry::Open].enabled);
    EXPECT_TRUE(state[MenuEntry::Open].visible);
    EXPECT_FALSE(state[MenuEntry::OpenInTessarine].enabled);
    EXPECT_TRUE(state[MenuEntry::OpenInTessarine].visible);
}

TEST(ActionMenuRules, OneMemberOfTheBatchCanOnlyBeUnchecked) {
    for (const SelectedObject& member : {InBatch(), InBatchWithTasks()}) {
        const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {member}, allRights);
        EXPECT_THAT(VisibleEntries(state),
                    ElementsAre("Open", "OpenInTessarine", "-1", "Print", "-2", "RemoveFromBatch"));
        EXPECT_EQ(state[MenuEntry::RemoveFromBatch].caption, "Uncheck this item");
    }
}

TEST(ActionMenuRules, OneMemberAmongTwoLeavesTransfersToTheTasks) {
    for (const auto& selection :
         {std::vector{InBatchWithTasks(), StoredHere()}, std::vector{StoredHere(), InBatchWithTasks()}}) {
        const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, selection, allRights);
        EXPECT_EQ(state[MenuEntry::CheckOut].caption, "Sign out  this item");
        EXPECT_EQ(state[MenuEntry::Move].caption, "Move  this item");
        EXPECT_EQ(state[MenuEntry::Dispose].caption, "Dispose this item");
        EXPECT_EQ(state[MenuEntry::RemoveFromBatch].caption, "Uncheck this item");
        EXPECT_TRUE(state[MenuEntry::CheckOut].visible);
        EXPECT_TRUE(state[MenuEntry::RemoveFromBatch].visible);
    }
    const ActionMenuState closed = ApplyMenuRules(MenuSource::ItemPane, {InBatch(), StoredHere()}, allRights);
    EXPECT_THAT(VisibleEntries(closed), ElementsAre("Open", "OpenInTessarine", "-1", "Print", "-2", "RemoveFromBatch"));
}

// A member resets the flags, which allows a task again that an earlier item forbids.
TEST(ActionMenuRules, AMemberOfTheBatchForgetsWhatStoodBeforeIt) {
    const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {SignedOut(), InBatchWithTasks()}, allRights);
    EXPECT_TRUE(state[MenuEntry::CheckOut].visible);
    const ActionMenuState reversed = ApplyMenuRules(MenuSource::ItemPane, {InBatchWithTasks(), SignedOut()}, allRights);
    EXPECT_FALSE(reversed[MenuEntry::CheckOut].visible);
    EXPECT_TRUE(reversed[MenuEntry::CheckIn].visible);
}

TEST(ActionMenuRules, OnlyMembersOfTheBatchCanOnlyBeUnchecked) {
    for (const SelectedObject& member : {InBatch(), InBatchWithTasks()}) {
        const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {member, member, member}, allRights);
        EXPECT_THAT(VisibleEntries(state),
                    ElementsAre("Open", "OpenInTessarine", "-1", "Print", "-2", "RemoveFromBatch"));
        EXPECT_EQ(state[MenuEntry::RemoveFromBatch].caption, "Uncheck 3 items");
        EXPECT_EQ(state[MenuEntry::CheckOut].caption, "Sign out  0 items");
    }
}

TEST(ActionMenuRules, AnEmptySpotOfTheContentsOffersSelectAllAndNew) {
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::ItemPane, {}, allRights)),
                ElementsAre("-2", "SelectAll", "-3", "New"));
    MenuRights rights = allRights;
    rights.addStorageLocations = false;
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::ItemPane, {}, rights)), ElementsAre("-2", "SelectAll"));
}

TEST(ActionMenuRules, AnEmptySpotElsewhereOffersNoSelectAll) {
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::LocationPane, {}, allRights)), ElementsAre("-3", "New"));
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::SearchResultPane, {}, allRights)), ElementsAre("-3", "New"));
}

TEST(ActionMenuRules, ARootInTheTreeCanBeOpenedAndAddedTo) {
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::LocationPane, {Location(true)}, allRights)),
                ElementsAre("Open", "-3", "New"));
}

TEST(ActionMenuRules, ALocationInTheTreeCanBePrintedAndChanged) {
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::LocationPane, {Location()}, allRights)),
                ElementsAre("Open", "-1", "Print", "-3", "New", "EditLocation", "DeleteLocation"));
}

TEST(ActionMenuRules, ALocationAmongTheContentsCanBePrintedAndChanged) {
    EXPECT_THAT(VisibleEntries(ApplyMenuRules(MenuSource::ItemPane, {Location()}, allRights)),
                ElementsAre("Open", "-1", "Print", "-3", "EditLocation", "DeleteLocation"));
}

TEST(ActionMenuRules, TwoLocationsCanOnlyBePrinted) {
    const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {Location(), Location()}, allRights);
    EXPECT_THAT(VisibleEntries(state), ElementsAre("Open", "-1", "Print"));
    EXPECT_EQ(state[MenuEntry::Print].caption, "Print barcode labels (2 items)");
    EXPECT_FALSE(state[MenuEntry::Open].enabled);
}

TEST(ActionMenuRules, ALocationAmongItemsForbidsEveryTransfer) {
    for (const auto& selection : {std::vector{Location(), StoredHere()}, std::vector{StoredHere(), Location()}}) {
        const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, selection, allRights);
        for (const MenuEntry entry : {MenuEntry::CheckIn, MenuEntry::CheckOut, MenuEntry::Move, MenuEntry::Dispose})
            EXPECT_FALSE(state[entry].visible);
    }
}

TEST(ActionMenuRules, OnlyMembersBeforeTheFirstLocationCanBeUnchecked) {
    const ActionMenuState before =
        ApplyMenuRules(MenuSource::ItemPane, {InBatch(), InBatch(), Location(), InBatch()}, allRights);
    EXPECT_TRUE(before[MenuEntry::RemoveFromBatch].visible);
    EXPECT_EQ(before[MenuEntry::RemoveFromBatch].caption, "Uncheck 2 items");
    EXPECT_EQ(before[MenuEntry::CheckOut].caption, "Sign out  2 items");

    const ActionMenuState behind = ApplyMenuRules(MenuSource::ItemPane, {Location(), InBatch()}, allRights);
    EXPECT_FALSE(behind[MenuEntry::RemoveFromBatch].visible);
}

TEST(ActionMenuRules, AnItemWithoutALocationNeitherSetsNorClearsAFlag) {
    const ActionMenuState alone = ApplyMenuRules(MenuSource::SearchResultPane, {ItemNowhere()}, allRights);
    EXPECT_THAT(VisibleEntries(alone),
                ElementsAre("Open", "OpenInTessarine", "-1", "Print", "-2", "CheckIn", "CheckOut", "Move", "Dispose"));
    const ActionMenuState besides =
        ApplyMenuRules(MenuSource::SearchResultPane, {ItemNowhere(), SignedOut()}, allRights);
    EXPECT_TRUE(besides[MenuEntry::CheckIn].visible);
    EXPECT_FALSE(besides[MenuEntry::CheckOut].visible);
}

TEST(ActionMenuRules, AnItemWithoutActionsShowsNoActions) {
    const SelectedObject stuck = Item(Tasks(false, false, false, false));
    for (const MenuSource pane : {MenuSource::ItemPane, MenuSource::SearchResultPane}) {
        EXPECT_THAT(VisibleEntries(ApplyMenuRules(pane, {stuck}, allRights)),
                    ElementsAre("Open", "OpenInTessarine", "-1", "Print", "-2", "NoActions"));
    }
    EXPECT_FALSE(ApplyMenuRules(MenuSource::LocationPane, {stuck}, allRights)[MenuEntry::NoActions].visible);
    EXPECT_FALSE(ApplyMenuRules(MenuSource::ItemPane, {Location(), stuck}, allRights)[MenuEntry::NoActions].visible);
    EXPECT_TRUE(ApplyMenuRules(MenuSource::ItemPane, {stuck, Location()}, allRights)[MenuEntry::NoActions].visible);
    EXPECT_FALSE(ApplyMenuRules(MenuSource::ItemPane, {stuck}, allRights)[MenuEntry::NoActions].enabled);
}

TEST(ActionMenuRules, AnObjectThatIsNeitherIsPassedOver) {
    const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {SelectedObject()}, allRights);
    EXPECT_FALSE(state[MenuEntry::OpenInTessarine].visible);
    EXPECT_FALSE(state[MenuEntry::NoActions].visible);
    EXPECT_TRUE(state[MenuEntry::Print].visible);
    EXPECT_TRUE(state[MenuEntry::Open].enabled);
}

TEST(ActionMenuRules, OnlyTheOpenEntriesAreDisabledForSeveralObjects) {
    for (size_t n = 0; n < 4; ++n) {
        const ActionMenuState state =
            ApplyMenuRules(MenuSource::ItemPane, std::vector<SelectedObject>(n, StoredHere()), allRights);
        for (const auto& [entry, name] : entryNames) {
            const bool opensOne = entry == MenuEntry::Open || entry == MenuEntry::OpenInTessarine;
            const bool isCommand = entry != MenuEntry::NoActions;
            EXPECT_EQ(state[entry].enabled, isCommand && (!opensOne || n == 1)) << name << " with " << n;
        }
        EXPECT_EQ(state[MenuEntry::Open].visible, n >= 1);
    }
}

// Every combination of the four tasks of two items and of the two rights to transfer.
TEST(ActionMenuRules, ATransferNeedsTheTaskOfEveryItemAndTheRight) {
    for (unsigned first = 0; first < 16; ++first) {
        for (unsigned second = 0; second < 16; ++second) {
            for (unsigned right = 0; right < 4; ++right) {
                MenuRights rights = allRights;
                rights.appendChainOfCustody = right & 1;
                rights.addFinalDisposition = right & 2;
                const auto item = [](unsigned bits) { return Item(Tasks(bits & 1, bits & 2, bits & 4, bits & 8)); };
                const ActionMenuState state = ApplyMenuRules(MenuSource::ItemPane, {item(first), item(second)}, rights);
                const unsigned both = first & second;
                const unsigned open = (right & 1 ? both & 7 : 0) | (right & 2 ? both & 8 : 0);
                EXPECT_EQ(state[MenuEntry::CheckIn].visible, (open & 1) != 0);
                EXPECT_EQ(state[MenuEntry::CheckOut].visible, (open & 2) != 0);
                EXPECT_EQ(state[MenuEntry::Move].visible, (open & 4) != 0);
                EXPECT_EQ(state[MenuEntry::Dispose].visible, (open & 8) != 0);
                EXPECT_EQ(state[MenuEntry::NoActions].visible, open == 0);
                EXPECT_TRUE(state[MenuEntry::Separator2].visible);
            }
        }
    }
}

// Every combination of the other rights, for each pane and each kind of selection.
TEST(ActionMenuRules, PrintingAndChangingLocationsNeedTheirRights) {
    const std::map<std::string, std::vector<SelectedObject>> selections = {
        {"nothing", {}}, {"root", {Location(true)}}, {"location", {Location()}}, {"item", {StoredHere()}}};
    for (unsigned right = 0; right < 16; ++right) {
        MenuRights rights = allRights;
        rights.printBarcodeLabels = right & 1;
        rights.addStorageLocations = right & 2;
        rights.editStorageLocations = right & 4;
        rights.deleteStorageLocations = right & 8;
        for (const MenuSource pane : panes) {
            for (const auto& [what, selection] : selections) {
                SCOPED_TRACE(what + " with rights " + std::to_string(right));
                const ActionMenuState state = ApplyMenuRules(pane, selection, rights);
                const bool printable = what == "location" || what == "item";
                const bool holdsNew = pane == MenuSource::LocationPane || what == "nothing";
                EXPECT_EQ(state[MenuEntry::Print].visible, printable && (right & 1));
                EXPECT_EQ(state[MenuEntry::Separator1].visible, state[MenuEntry::Print].visible);
                EXPECT_EQ(state[MenuEntry::New].visible, holdsNew && (right & 2));
                EXPECT_EQ(state[MenuEntry::EditLocation].visible, what == "location" && (right & 4));
                EXPECT_EQ(state[MenuEntry::DeleteLocation].visible, what == "location" && (right & 8));
                EXPECT_EQ(state[MenuEntry::Separator3].visible, state[MenuEntry::New].visible ||
                                                                    state[MenuEntry::EditLocation].visible ||
                                                                    state[MenuEntry::DeleteLocation].visible);
                EXPECT_EQ(state[MenuEntry::SelectAll].visible, pane == MenuSource::ItemPane && what == "nothing");
                EXPECT_EQ(state[MenuEntry::OpenInTessarine].visible, what == "item");
                EXPECT_EQ(state[MenuEntry::Open].visible, what != "nothing");
                EXPECT_TRUE(state[MenuEntry::NewLocation].visible);
            }
        }
    }
}

TEST(ActionMenuRules, ASingleSelectionNeedsNoSeparatorWhenNothingFollowsIt) {
    const ActionMenuState state = ApplyMenuRules(MenuSource::LocationPane, {Location(true)}, MenuRights());
    EXPECT_THAT(VisibleEntries(state), ElementsAre("Open"));
}

class MenuSelection : public DatabaseTest {
protected:
    StoredItemRef FindItem(int32_t id) {
        StoredItemSearch search;
        search.WithNumber(NumberSearchTypes::PropertyPK, std::to_string(id));
        return search.Execute()->ItemAt(0);
    }

    StoredItemRef AddItem(int32_t location) {
        const int32_t id = m_database.AddProperty({.PropertyID = "E-1"});
        m_database.AddCustodyRow(StoredItemTypes::Property, id, location);
        return FindItem(id);
    }
};

TEST_F(MenuSelection, IsDescribedByWhatTheBatchAnswers) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const int32_t court = m_database.AddLocation("Court", StorageLocationTypes::External);
    const StoredItemRef stored = AddItem(shelf);
    const StoredItemRef out = AddItem(court);
    const StoredItemRef inBatch = AddItem(shelf);
    const auto stores = GetStores();
    auto batch = std::make_shared<ObjectVector>();
    batch->Add(inBatch);
    GetActions().BeginTransaction(TransactionType::SignOut, batch);

    ObjectVector selection;
    selection.Add(stored);
    selection.Add(out);
    selection.Add(inBatch);
    const std::vector<SelectedObject> described = DescribeSelection(selection, *stores.Cart);

    ASSERT_EQ(described.size(), 3u);
    EXPECT_EQ(described[0].kind, Kind::Item);
    EXPECT_TRUE(described[0].hasLocation);
    EXPECT_FALSE(described[0].isInBatch);
    EXPECT_TRUE(described[0].tasks.CanCheckOut);
    EXPECT_FALSE(described[0].tasks.CanMove);
    EXPECT_FALSE(described[1].tasks.CanCheckIn);
    EXPECT_TRUE(described[2].isInBatch);
    EXPECT_FALSE(described[2].tasks.CanCheckOut);
}

TEST_F(MenuSelection, DoesNotAskBehindTheFirstLocation) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const StoredItemRef item = AddItem(shelf);
    const auto stores = GetStores();
    ObjectVector selection;
    selection.Add(GetStorageLocationStatic().FindByID(shelf));
    selection.Add(GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal));
    selection.Add(item);

    m_session->questions = 0;
    const std::vector<SelectedObject> described = DescribeSelection(selection, *stores.Cart);

    EXPECT_EQ(m_session->questions, 0);
    EXPECT_EQ(described[0].kind, Kind::Location);
    EXPECT_FALSE(described[0].isRoot);
    EXPECT_TRUE(described[1].isRoot);
    EXPECT_EQ(described[2].kind, Kind::Item);
    EXPECT_FALSE(described[2].hasLocation);
}

TEST_F(MenuSelection, AnItemWithADeletedLocationIsNotLookedUp) {
    const auto stores = GetStores();
    const int32_t unknown = 4711;
    m_database.Execute("PRAGMA foreign_keys = OFF");
    const int32_t id = m_database.AddProperty({.PropertyID = "E-1"});
    m_database.AddCustodyRow(StoredItemTypes::Property, id, unknown);
    m_database.Execute("PRAGMA foreign_keys = ON");
    ObjectVector selection;
    selection.Add(FindItem(id));
    const std::vector<SelectedObject> described = DescribeSelection(selection, *stores.Cart);
    EXPECT_EQ(described[0].kind, Kind::Item);
    EXPECT_FALSE(described[0].hasLocation);
}

TEST_F(MenuSelection, RightsAreThoseOfTheSession) {
    m_session->GrantNothing();
    const MenuRights none = ReadMenuRights(GetUser());
    EXPECT_FALSE(none.appendChainOfCustody || none.addFinalDisposition || none.printBarcodeLabels ||
                 none.addStorageLocations || none.editStorageLocations || none.deleteStorageLocations);

    const PermissionsStatic& permissions = GetPermissions();
    const std::pair<PermissionDefinition, bool MenuRights::*> rights[] = {
        {permissions.APPEND_CHAIN_OF_CUSTODY(), &MenuRights::appendChainOfCustody},
        {permissions.ADD_FINAL_DISPOSITION(), &MenuRights::addFinalDisposition},
        {permissions.PRINT_BARCODE_LABELS(), &MenuRights::printBarcodeLabels},
        {permissions.ADD_STORAGE_LOCATIONS(), &MenuRights::addStorageLocations},
        {permissions.EDIT_STORAGE_LOCATIONS(), &MenuRights::editStorageLocations},
        {permissions.DELETE_STORAGE_LOCATIONS(), &MenuRights::deleteStorageLocations},
    };
    for (const auto& [permission, field] : rights) {
        m_session->GrantNothing();
        m_session->Grant(permission);
        const MenuRights read = ReadMenuRights(GetUser());
        for (const auto& [other, otherField] : rights) EXPECT_EQ(read.*otherField, otherField == field);
    }
}

}  // namespace
}  // namespace quellbrook::testing
