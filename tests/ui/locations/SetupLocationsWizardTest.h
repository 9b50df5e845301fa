#pragma once

#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/Dialogs.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/locations/SetupLocationsWizard.h"
#include "ui/platform/Strings.h"

#include <QTreeWidget>

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Uncategorized locations: Auction; Court; Crime Lab > Biology; Evidence Room > Aisle 1 > Shelf A, Aisle 2 > Shelf B;
// Locker. Open() shows a new wizard in a window of 960 by 660 pixels.
class SetupLocationsWizardTest : public DatabaseTest {
protected:
    using Types = StorageLocationTypes;
    using Names = std::vector<std::string>;

    SetupLocationsWizardTest() { AddDepartment(); }

    void AddDepartment() {
        auction = Add("Auction");
        court = Add("Court");
        lab = Add("Crime Lab");
        biology = Add("Biology", lab);
        room = Add("Evidence Room");
        aisle1 = Add("Aisle 1", room);
        shelfA = Add("Shelf A", aisle1);
        aisle2 = Add("Aisle 2", room);
        shelfB = Add("Shelf B", aisle2);
        locker = Add("Locker");
    }

    int32_t Add(const std::string& name, int32_t container = 0) {
        return m_database.AddLocation(name, Types::Unassigned, container);
    }

    void Open() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(960, 660);
        m_wizard = new SetupLocationsWizard(m_window.get());
        m_wizard->resize(960, 660);
        m_wizard->Completed.connect([this] { ++m_completions; });
        ShowActive(*m_window);
    }

    ListView* List() { return Find<ListView>(*m_wizard, "lvwLocations"); }
    QTreeWidget* Tree() { return List()->Tree(); }
    Link* SelectAll() { return Find<Link>(*m_wizard, "lnkSelectAll"); }
    Control* Named(const char* name) { return Find<Control>(*m_wizard, name); }
    std::string Text(const char* label) { return ToUtf8(Find<Label>(*m_wizard, label)->Caption()); }
    std::string Caption(const char* pressable) { return ToUtf8(Find<Pressable>(*m_wizard, pressable)->Caption()); }
    bool IsShown(const char* name) { return Named(name)->IsShown(); }

    Names Rows() {
        Names names;
        for (int row = 0; row < List()->RowCount(); ++row) names.push_back(ToUtf8(List()->CellText(row, 1)));
        return names;
    }
    Names Ticked() {
        Names names;
        for (int row = 0; row < List()->RowCount(); ++row)
            if (List()->RowChecked(row)) names.push_back(ToUtf8(List()->CellText(row, 1)));
        return names;
    }
    int RowOf(int32_t location) {
        for (int row = 0; row < List()->RowCount(); ++row)
            if (List()->RowKey(row) == "L" + QString::number(location)) return row;
        ADD_FAILURE() << "There is no row of location " << location;
        return 0;
    }
    void Tick(int32_t location) {
        const QModelIndex box = Tree()->model()->index(RowOf(location), 0);
        Tree()->scrollTo(box);
        Click(Tree()->viewport(), Tree()->visualRect(box).center());
    }
    void Next() { Click(Named("btnNext")); }
    void Back() { Click(Named("btnBack")); }
    void GoToPage(int index) {
        for (int page = 0; page < index; ++page) Next();
    }

    void ExpectError(const std::string& text) {
        using Message = RecordingScreen::Message;
        EXPECT_THAT(m_screen.TakeMessages(), ::testing::ElementsAre(Message{text, 16, "Error"}));
        EXPECT_EQ(m_completions, 0);
        EXPECT_TRUE(m_wizard->isVisible());
    }
    // "Name Type Path" of every location, in the order of their keys.
    Names Stored() {
        Names rows;
        for (const Row& row : m_database.QueryRows(
                 "SELECT Name || ' ' || Type || ' ' || Path AS Line FROM StorageLocation ORDER BY IdNo"))
            rows.push_back(ToTextOrEmpty(row.At(0)));
        return rows;
    }

    int32_t auction = 0, court = 0, lab = 0, biology = 0, room = 0, aisle1 = 0, shelfA = 0, aisle2 = 0, shelfB = 0,
            locker = 0;  // 1 to 10
    std::unique_ptr<QWidget> m_window;
    SetupLocationsWizard* m_wizard = nullptr;
    int m_completions = 0;
};

}  // namespace quellbrook::testing
