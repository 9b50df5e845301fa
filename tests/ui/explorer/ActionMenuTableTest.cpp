#include "ui/explorer/ActionMenuRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace quellbrook::testing {
namespace {

using Kind = SelectedObject::Kind;
using Selection = std::vector<SelectedObject>;

// The menu as the user sees it: each visible entry with its caption if the rules set one, and "off" if it is disabled.
using Shown = std::map<MenuEntry, std::string>;

Shown Describe(const ActionMenuState& state) {
    Shown shown;
    for (size_t i = 0; i < MenuEntryCount; ++i) {
        const auto entry = static_cast<MenuEntry>(i);
        if (entry == MenuEntry::NewLocation || !state[entry].visible) continue;
        shown[entry] = state[entry].caption + (state[entry].enabled ? "" : " off");
    }
    return shown;
}

// What the menu must show, stated for each entry on its own instead of by iterating over the selection.
class Expectation {
public:
    Expectation(MenuSource source, const Selection& selection, const MenuRights& rights)
        : m_source(source), m_selection(selection), m_rights(rights) {
        for (const SelectedObject& object : selection) {
            m_hasLocation |= object.kind == Kind::Location;
            if (m_hasLocation) continue;
            const bool isPlaced = object.kind == Kind::Item && object.hasLocation;
            if (!isPlaced) continue;
            if (object.isInBatch) {
                ++m_members;
                m_sinceLastMember.clear();
            }
            m_sinceLastMember.push_back(object);
        }
    }

    Shown Menu() const {
        Shown shown;
        if (!m_selection.empty()) shown[MenuEntry::Open] = One() ? "" : " off";
        if (FirstIs(Kind::Item)) shown[MenuEntry::OpenInTessarine] = One() ? "" : " off";
        if (CanPrint()) {
            shown[MenuEntry::Separator1] = "";
            shown[MenuEntry::Print] = One() ? "Print barcode label" : "Print barcode labels (" + Number() + " items)";
        }
        AddTransfers(shown);
        if (m_members > 0) shown[MenuEntry::RemoveFromBatch] = "Uncheck " + Items(m_members);
        const bool hasTransfers = std::any_of(shown.begin(), shown.end(), [](const auto& entry) {
            return entry.first >= MenuEntry::CheckIn && entry.first <= MenuEntry::RemoveFromBatch;
        });
        if (!hasTransfers && FirstIs(Kind::Item) && m_source != MenuSource::LocationPane)
            shown[MenuEntry::NoActions] = " off";
        if (m_selection.empty() && m_source == MenuSource::ItemPane) shown[MenuEntry::SelectAll] = "";
        if (hasTransfers || shown.count(MenuEntry::NoActions) || shown.count(MenuEntry::SelectAll))
            shown[MenuEntry::Separator2] = "";
        AddLocationEntries(shown);
        return shown;
    }

private:
    bool One() const { return m_selection.size() == 1; }
    bool FirstIs(Kind kind) const { return !m_selection.empty() && m_selection[0].kind == kind; }
    std::string Number() const { return std::to_string(m_selection.size()); }
    static std::string Items(size_t count) { return count == 1 ? "this item" : std::to_string(count) + " items"; }

    bool CanPrint() const {
        if (m_selection.empty() || !m_rights.printBarcodeLabels) return false;
        return m_selection[0].kind != Kind::Location || !m_selection[0].isRoot;
    }

    void AddTransfers(Shown& shown) const {
        const size_t others = m_selection.size() - m_members;
        if (m_hasLocation || others == 0) return;
        const auto add = [&](MenuEntry entry, const char* prefix, bool right, bool AllowedTasks::*task) {
            const bool isAllowed = std::all_of(m_sinceLastMember.begin(), m_sinceLastMember.end(),
                                               [&](const SelectedObject& item) { return item.tasks.*task; });
            if (right && isAllowed) shown[entry] = prefix + Items(others);
        };
        add(MenuEntry::CheckIn, "Sign in  ", m_rights.appendChainOfCustody, &AllowedTasks::CanCheckIn);
        add(MenuEntry::CheckOut, "Sign out  ", m_rights.appendChainOfCustody, &AllowedTasks::CanCheckOut);
        add(MenuEntry::Move, "Move  ", m_rights.appendChainOfCustody, &AllowedTasks::CanMove);
        add(MenuEntry::Dispose, "Dispose ", m_rights.addFinalDisposition, &AllowedTasks::CanDispose);
    }

    void AddLocationEntries(Shown& shown) const {
        const bool isLocation = One() && FirstIs(Kind::Location) && !m_selection[0].isRoot;
        const bool takesNew = m_source == MenuSource::LocationPane || m_selection.empty();
        if (takesNew && m_rights.addStorageLocations) shown[MenuEntry::New] = "";
        if (isLocation && m_rights.editStorageLocations) shown[MenuEntry::EditLocation] = "";
        if (isLocation && m_rights.deleteStorageLocations) shown[MenuEntry::DeleteLocation] = "";
        if (shown.count(MenuEntry::New) || shown.count(MenuEntry::EditLocation) ||
            shown.count(MenuEntry::DeleteLocation))
            shown[MenuEntry::Separator3] = "";
    }

    MenuSource m_source;
    const Selection& m_selection;
    const MenuRights& m_rights;
    bool m_hasLocation = false;
    size_t m_members = 0;         // of the batch
    Selection m_sinceLastMember;  // items with a location, from the last member of the batch on
};

SelectedObject Location(bool isRoot) { return {Kind::Location, isRoot, false, false, {}}; }
SelectedObject Item(bool isInBatch, const AllowedTasks& tasks) { return {Kind::Item, false, true, isInBatch, tasks}; }

// Every kind of object that the rules tell apart.
Selection Objects() {
    const AllowedTasks everything{true, true, true, true, true}, nothing{true, false, false, false, false};
    const AllowedTasks stored{true, false, true, true, true}, signedOut{true, true, false, false, false};
    const AllowedTasks onlyMove{true, false, false, true, false};
    return {Location(false),      Location(true),        {Kind::Item, false, false, false, {}},
            SelectedObject(),     Item(false, stored),   Item(false, signedOut),
            Item(false, nothing), Item(false, onlyMove), Item(true, everything),
            Item(true, nothing),  Item(true, signedOut)};
}

// Nothing, each object, each pair, and each triple.
std::vector<Selection> Selections() {
    const Selection objects = Objects();
    std::vector<Selection> selections{{}};
    for (size_t from = 0, length = 0; length < 3; ++length) {
        const size_t until = selections.size();
        for (; from < until; ++from) {
            for (const SelectedObject& object : objects) {
                Selection longer = selections[from];
                longer.push_back(object);
                selections.push_back(longer);
            }
        }
    }
    return selections;
}

// All, none, and each one missing.
std::vector<MenuRights> Rights() {
    std::vector<MenuRights> rights{{true, true, true, true, true, true}, {}};
    for (bool MenuRights::*right :
         {&MenuRights::appendChainOfCustody, &MenuRights::addFinalDisposition, &MenuRights::printBarcodeLabels,
          &MenuRights::addStorageLocations, &MenuRights::editStorageLocations, &MenuRights::deleteStorageLocations}) {
        rights.push_back(rights.front());
        rights.back().*right = false;
    }
    return rights;
}

TEST(ActionMenuTable, EveryEntryIsAsStatedForEverySelectionPaneAndRight) {
    int cases = 0;
    std::set<Shown> outcomes;
    for (const Selection& selection : Selections()) {
        for (const MenuSource source : {MenuSource::LocationPane, MenuSource::ItemPane, MenuSource::SearchResultPane}) {
            for (const MenuRights& rights : Rights()) {
                const Shown shown = Describe(ApplyMenuRules(source, selection, rights));
                ASSERT_EQ(shown, Expectation(source, selection, rights).Menu())
                    << "case " << cases << ", " << selection.size() << " objects, pane " << static_cast<int>(source);
                outcomes.insert(shown);
                ++cases;
            }
        }
    }
    EXPECT_GE(cases, 2000);
    EXPECT_GE(outcomes.size(), 100u);
}

}  // namespace
}  // namespace quellbrook::testing
