#pragma once

#include "access/User.h"
#include "base/ObjectList.h"
#include "core/CartStore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// The entries of the explorer's context menu, in their order. NewLocation is the one child of New.
enum class MenuEntry : size_t {
    Open,
    OpenInTessarine,
    Separator1,
    Print,
    Separator2,
    CheckIn,
    CheckOut,
    Move,
    Dispose,
    RemoveFromBatch,
    NoActions,
    SelectAll,
    Separator3,
    New,
    NewLocation,
    EditLocation,
    DeleteLocation,
};
inline constexpr size_t MenuEntryCount = 17;

// The pane that the menu is for.
enum class MenuSource { LocationPane, ItemPane, SearchResultPane };

// The facts about one selected object that the rules use.
struct SelectedObject {
    enum class Kind { Location, Item, Other };

    Kind kind = Kind::Other;
    bool isRoot = false;       // a location's
    bool hasLocation = false;  // an item's; the fields below count only if true
    bool isInBatch = false;
    AllowedTasks tasks;
};

// The user's rights that the rules use.
struct MenuRights {
    bool appendChainOfCustody = false;
    bool addFinalDisposition = false;
    bool printBarcodeLabels = false;
    bool addStorageLocations = false;
    bool editStorageLocations = false;
    bool deleteStorageLocations = false;
};

struct MenuEntryState {
    std::string caption;  // empty: the entry keeps its caption
    bool visible = true;
    bool enabled = true;

    bool operator==(const MenuEntryState&) const = default;
};

class ActionMenuState {
public:
    MenuEntryState& operator[](MenuEntry entry) { return m_entries[static_cast<size_t>(entry)]; }
    const MenuEntryState& operator[](MenuEntry entry) const { return m_entries[static_cast<size_t>(entry)]; }

private:
    std::array<MenuEntryState, MenuEntryCount> m_entries;
};

// The state of every menu entry for this pane and selection.
ActionMenuState ApplyMenuRules(MenuSource source, const std::vector<SelectedObject>& selection,
                               const MenuRights& rights);

// Looks up the selected items in the batch, up to the first location; the rules ignore everything after it.
std::vector<SelectedObject> DescribeSelection(const ObjectList& selection, const CartStore& cart);
MenuRights ReadMenuRights(const UserStatic& user);

// The prefix, a blank, and "this item" or "3 items".
std::string ActionCaption(const std::string& prefix, int64_t count);

}  // namespace quellbrook
