#include "ui/explorer/ActionMenu.h"

#include "ui/platform/Strings.h"

#include <QAction>

#include <iterator>

namespace quellbrook {

namespace {

struct EntryDesign {
    MenuEntry entry;
    const char* name;
    const char* caption;  // null for a separator
};

constexpr EntryDesign entryDesigns[] = {
    {MenuEntry::Open, "mnuOpen", "Open"},
    {MenuEntry::OpenInTessarine, "mnuOpenInTessarine", "Open in Tessarine..."},
    {MenuEntry::Separator1, "mnuSeparator1", nullptr},
    {MenuEntry::Print, "mnuPrint", "Print Barcode Label"},
    {MenuEntry::Separator2, "mnuSeparator2", nullptr},
    {MenuEntry::CheckIn, "mnuCheckIn", "Sign In Selected Items..."},
    {MenuEntry::CheckOut, "mnuCheckOut", "Sign Out Selected Items..."},
    {MenuEntry::Move, "mnuMove", "Move Selected Items..."},
    {MenuEntry::Dispose, "mnuDispose", "Dispose Selected Items..."},
    {MenuEntry::RemoveFromBatch, "mnuRemoveFromBatch", "Remove"},
    {MenuEntry::NoActions, "mnuNoActions", "(No Available Actions)"},
    {MenuEntry::SelectAll, "mnuSelectAll", "Select All"},
    {MenuEntry::Separator3, "mnuSeparator3", nullptr},
    {MenuEntry::New, "mnuNew", "New"},
    {MenuEntry::NewLocation, "mnuNewLocation", "Location"},
    {MenuEntry::EditLocation, "mnuEditLocation", "Edit"},
    {MenuEntry::DeleteLocation, "mnuDeleteLocation", "Delete"},
};
static_assert(std::size(entryDesigns) == MenuEntryCount);

}  // namespace

ActionMenu::ActionMenu(QWidget* parent) : QMenu(parent) {
    setObjectName("mnuItems");
    setTitle("Selection");
    setAccessibleName("Selection");
    QMenu* newMenu = nullptr;
    for (const EntryDesign& design : entryDesigns) {
        QAction* action = nullptr;
        if (!design.caption) {
            action = addSeparator();
        } else if (design.entry == MenuEntry::New) {
            newMenu = addMenu(design.caption);
            action = newMenu->menuAction();
        } else {
            action = (design.entry == MenuEntry::NewLocation ? newMenu : this)->addAction(design.caption);
        }
        action->setObjectName(design.name);
        m_entries[static_cast<size_t>(design.entry)] = action;
    }
}

void ActionMenu::Apply(const ActionMenuState& state) {
    for (const EntryDesign& design : entryDesigns) {
        const MenuEntryState& entry = state[design.entry];
        QAction* action = Entry(design.entry);
        if (!entry.caption.empty()) action->setText(EscapeMnemonic(ToQString(entry.caption)));
        action->setEnabled(entry.enabled);
        action->setVisible(entry.visible);
    }
}

}  // namespace quellbrook
