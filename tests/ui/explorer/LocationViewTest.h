#pragma once

#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/controls/ListView.h"
#include "ui/explorer/LocationView.h"

#include <QAction>
#include <QTreeWidget>

#include <memory>

namespace quellbrook::testing {

inline constexpr int nameColumn = 1, typeColumn = 2, descriptionColumn = 3;

// The contents of a shelf with two sub-locations, two property items and a vehicle, in a window.
class LocationViewTest : public ExplorerTest {
protected:
    LocationViewTest() {
        m_database.AddCode(31, 7, "Tools");
        m_database.AddCode(31, 8, "Sporting goods, camping equipment and outdoor furniture");
        m_shelf = AddLocation("Shelf A");
        m_bin = AddLocation("Bin 1", m_shelf);
        AddLocation("Bin 2", m_shelf);
        m_first = AddItem("E-1", m_shelf, 7);
        m_second = AddItem("E-2", m_shelf);
        m_vehicle = AddVehicle("ABC 123", m_shelf);
        m_empty = AddLocation("Empty Shelf");
        m_window = std::make_unique<QWidget>();
        m_window->resize(1000, 500);
        m_view = new LocationView(m_window.get());
        m_view->setGeometry(0, 0, 1000, 500);
        m_list = m_view->List();
        m_view->LocationChanged.connect([this](const StorageLocationRef& location) {
            m_changes.push_back(location ? location->Name() : "nothing");
            EXPECT_EQ(m_view->Location(), location);
        });
        m_view->ItemContextMenu.connect([this](QMenu*& menu, QAction*& defaultItem) {
            EXPECT_EQ(menu, nullptr);
            EXPECT_EQ(defaultItem, nullptr);
            ++m_menusAsked;
            menu = m_menu;
            defaultItem = m_defaultItem;
        });
        m_view->ItemOpenRequest.connect([this](const ObjectRef& object) {
            if (m_openError) throw Error(*m_openError);
            m_opened.push_back(NameOf(object));
        });
        ShowActive(*m_window);
    }

    static std::string NameOf(const ObjectRef& object) {
        if (const auto location = std::dynamic_pointer_cast<StorageLocation>(object)) return location->Name();
        if (const auto item = std::dynamic_pointer_cast<StoredItem>(object)) return item->DisplayID();
        return "?";
    }

    void Show(int32_t location) { m_view->SetLocation(LocationOf(location)); }

    int RowOf(const QString& name) const {
        for (int row = 0; row < m_list->RowCount(); ++row)
            if (m_list->CellText(row, nameColumn) == name) return row;
        ADD_FAILURE() << "No row " << name.toStdString();
        return -1;
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (int row = 0; row < m_list->RowCount(); ++row)
            names.push_back(m_list->CellText(row, nameColumn).toStdString());
        return names;
    }
    std::vector<std::string> SelectedNames() const {
        std::vector<std::string> names;
        const auto selected = m_view->SelectedItems();
        for (int32_t i = 0; i < selected->Count(); ++i) names.push_back(NameOf(selected->At(i)));
        return names;
    }

    QWidget* Viewport() const { return m_list->Tree()->viewport(); }
    QPoint CenterOf(const QString& name) const {
        return m_list->Tree()->visualItemRect(m_list->Tree()->topLevelItem(RowOf(name))).center();
    }
    void ClickRow(const QString& name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(Viewport(), Qt::LeftButton, modifiers, CenterOf(name));
    }
    static constexpr QPoint blank{300, 440};

    std::shared_ptr<ObjectVector> Batch(std::initializer_list<int32_t> ids) {
        auto batch = std::make_shared<ObjectVector>();
        for (const int32_t id : ids) batch->Add(ItemOf(id, m_shelf));
        return batch;
    }

    int32_t m_shelf, m_bin, m_first, m_second, m_vehicle, m_empty;
    std::unique_ptr<QWidget> m_window;
    LocationView* m_view = nullptr;
    ListView* m_list = nullptr;
    QMenu* m_menu = nullptr;
    QAction* m_defaultItem = nullptr;
    std::vector<std::string> m_changes;
    std::vector<std::string> m_opened;
    int m_menusAsked = 0;
    std::optional<Error> m_openError;
};

}  // namespace quellbrook::testing
