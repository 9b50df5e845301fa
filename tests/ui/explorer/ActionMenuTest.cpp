#include "ui/explorer/ActionMenu.h"

#include <QAction>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Names(const QMenu& menu, bool visibleOnly) {
    std::vector<std::string> names;
    for (const QAction* action : menu.actions())
        if (!visibleOnly || action->isVisible()) names.push_back(action->objectName().toStdString());
    return names;
}

std::vector<SelectedObject> OneItem() {
    SelectedObject item;
    item.kind = SelectedObject::Kind::Item;
    item.hasLocation = true;
    return {item};
}

constexpr MenuRights allRights{true, true, true, true, true, true};

TEST(ActionMenu, HasEveryEntryInOrder) {
    ActionMenu menu;
    EXPECT_EQ(menu.objectName(), "mnuItems");
    EXPECT_EQ(menu.title(), "Selection");
    EXPECT_THAT(Names(menu, false),
                ElementsAre("mnuOpen", "mnuOpenInTessarine", "mnuSeparator1", "mnuPrint", "mnuSeparator2", "mnuCheckIn",
                            "mnuCheckOut", "mnuMove", "mnuDispose", "mnuRemoveFromBatch", "mnuNoActions",
                            "mnuSelectAll", "mnuSeparator3", "mnuNew", "mnuEditLocation", "mnuDeleteLocation"));
    EXPECT_THAT(Names(*menu.Entry(MenuEntry::New)->menu(), false), ElementsAre("mnuNewLocation"));
}

TEST(ActionMenu, HasCaptionsBeforeTheRulesApply) {
    const ActionMenu menu;
    const std::pair<MenuEntry, const char*> captions[] = {
        {MenuEntry::Print, "Print Barcode Label"},           {MenuEntry::CheckIn, "Sign In Selected Items..."},
        {MenuEntry::CheckOut, "Sign Out Selected Items..."}, {MenuEntry::Move, "Move Selected Items..."},
        {MenuEntry::Dispose, "Dispose Selected Items..."},   {MenuEntry::RemoveFromBatch, "Remove"}};
    for (const auto& [entry, caption] : captions) EXPECT_EQ(menu.Entry(entry)->text(), caption);
}

TEST(ActionMenu, ShowsEveryEntryThatTheRulesShow) {
    ActionMenu menu;
    menu.Apply(ActionMenuState());
    EXPECT_THAT(Names(menu, true),
                ElementsAre("mnuOpen", "mnuOpenInTessarine", "mnuSeparator1", "mnuPrint", "mnuSeparator2", "mnuCheckIn",
                            "mnuCheckOut", "mnuMove", "mnuDispose", "mnuRemoveFromBatch", "mnuNoActions",
                            "mnuSelectAll", "mnuSeparator3", "mnuNew", "mnuEditLocation", "mnuDeleteLocation"));
}

TEST(ActionMenu, TakesCaptionVisibilityAndEnabledStateFromTheRules) {
    ActionMenu menu;
    menu.Apply(ApplyMenuRules(MenuSource::ItemPane, OneItem(), allRights));
    EXPECT_THAT(Names(menu, true), ElementsAre("mnuOpen", "mnuOpenInTessarine", "mnuSeparator1", "mnuPrint",
                                               "mnuSeparator2", "mnuCheckIn", "mnuCheckOut", "mnuMove", "mnuDispose"));
    EXPECT_EQ(menu.Entry(MenuEntry::CheckOut)->text(), "Sign out  this item");
    EXPECT_EQ(menu.Entry(MenuEntry::Print)->text(), "Print barcode label");
    EXPECT_TRUE(menu.Entry(MenuEntry::Open)->isEnabled());
    const std::pair<MenuEntry, const char*> unchanged[] = {{MenuEntry::Open, "Open"},
                                                           {MenuEntry::OpenInTessarine, "Open in Tessarine..."},
                                                           {MenuEntry::NoActions, "(No Available Actions)"},
                                                           {MenuEntry::SelectAll, "Select All"},
                                                           {MenuEntry::New, "New"},
                                                           {MenuEntry::NewLocation, "Location"},
                                                           {MenuEntry::EditLocation, "Edit"},
                                                           {MenuEntry::DeleteLocation, "Delete"}};
    for (const auto& [entry, caption] : unchanged) EXPECT_EQ(menu.Entry(entry)->text(), caption);

    std::vector<SelectedObject> two = OneItem();
    two.push_back(two.front());
    menu.Apply(ApplyMenuRules(MenuSource::ItemPane, two, allRights));
    EXPECT_EQ(menu.Entry(MenuEntry::CheckOut)->text(), "Sign out  2 items");
    EXPECT_FALSE(menu.Entry(MenuEntry::Open)->isEnabled());
}

}  // namespace
}  // namespace quellbrook::testing
