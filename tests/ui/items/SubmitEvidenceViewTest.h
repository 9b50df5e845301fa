#pragma once

#include "core/Actions.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/items/SubmitEvidenceView.h"
#include "ui/platform/Twips.h"
#include "ui/platform/WidgetMessageHook.h"

#include <QTreeWidget>

namespace quellbrook::testing {

// The columns of the check-in view.
enum CheckInColumn { SelectField, PaddingLeft, CheckMark, DisplayId, Description, IncidentIds, PaddingRight };

// The check-in view in a window, opened from the explorer. Three untracked items belong to incident 2026-0431, the
// vehicle to another one as well; a stored item does too.
class SubmitEvidenceViewTest : public SmallDepartment {
protected:
    SubmitEvidenceViewTest() {
        m_scarf = AddUntracked("2026-0431-01", "Wool scarf");
        m_knife = AddUntracked("2026-0431-02", "Pocket knife");
        m_database.NumberVehiclesApart();
        m_car = FindItem(StoredItemTypes::vehicle,
                         m_database.AddVehicle({.RegNumber = "LVN2077", .RegStateCode = "OR", .VehYear = 2021}));
        const int32_t incident = m_database.AddIncident("2026-0431", "C-26-1182");
        for (const StoredItemRef& item : {m_scarf, m_knife, m_car, AddProperty("2026-0431-09", "Stored", shelf)})
            m_database.LinkIncident(item->ItemType(), item->ID(), incident);
        LinkIncident(m_car, "2026-0388", Null());
        m_environment->makeMessageHook = MakeWidgetMessageHook;
        GetStores();
        GetActions().NavigateTo(ViewNames::Explorer, nullptr);
        GetActions().NavigateTo(ViewNames::SubmitNewEvidence, nullptr);
        m_window.resize(1280, 760);
        m_view = new SubmitEvidenceView(&m_window);
        m_view->Move(0, 0, ToTwips(1280), ToTwips(760));
        m_view->Show(nullptr);
        ShowActive(m_window);
    }

    StoredItemRef AddUntracked(const std::string& displayId, const std::string& description) {
        return FindItem(StoredItemTypes::Property,
                        m_database.AddProperty({.PropertyID = displayId, .Description = description}));
    }

    FlatTextbox* SearchBox() { return Find<FlatTextbox>(*m_view, "search"); }
    FlatDropdown* Filter() { return Find<FlatDropdown>(*m_view, "cboFilter"); }
    FlatButton* Submit() { return Find<FlatButton>(*m_view, "btnSubmit"); }
    Link* SelectAll() { return Find<Link>(*m_view, "imgSelectAll"); }
    ListView* List() { return Find<ListView>(*m_view, "searchResults"); }
    QTreeWidget* Tree() { return List()->Tree(); }
    Control* Named(const char* name) { return Find<Control>(*m_view, name); }
    QString Text(const char* name) { return Find<Label>(*m_view, name)->Caption(); }

    void Choose(NumberSearchTypes type) {
        for (int i = 0; i < Filter()->Count(); ++i)
            if (Filter()->ItemData(i) == static_cast<int32_t>(type)) return Filter()->SetListIndex(i);
        ADD_FAILURE() << "There is no such filter.";
    }
    void Search(NumberSearchTypes type, const QString& number) {
        Choose(type);
        SearchBox()->SetText(number);
        Click(Named("btnSearch"));
    }
    void SearchIncident() { Search(NumberSearchTypes::IncidentId, "2026-0431"); }

    int RowOf(const QString& displayId) {
        for (int row = 0; row < List()->RowCount(); ++row)
            if (List()->CellText(row, DisplayId) == displayId) return row;
        ADD_FAILURE() << "There is no row " << displayId.toStdString();
        return 0;
    }
    QRect CellOf(int row, int column) { return Tree()->visualRect(Tree()->model()->index(row, column)); }
    void Tick(const QString& displayId) { Click(Tree()->viewport(), CellOf(RowOf(displayId), CheckMark).center()); }
    bool IsBold(int row) {
        for (const int column : {DisplayId, Description, IncidentIds})
            if (List()->CellBold(row, column) != List()->CellBold(row, DisplayId)) ADD_FAILURE() << column;
        return List()->CellBold(row, DisplayId);
    }
    // The display identifiers of the batch, in its order.
    static std::vector<std::string> Batch() {
        std::vector<std::string> ids;
        const auto items = Cart()->GetItems();
        for (int32_t i = 0; i < items->Count(); ++i) ids.push_back(items->ItemAt(i)->DisplayID());
        return ids;
    }

    ManualTimers m_timers{m_environment};
    QWidget m_window;
    SubmitEvidenceView* m_view = nullptr;
    StoredItemRef m_scarf, m_knife, m_car;
};

}  // namespace quellbrook::testing
