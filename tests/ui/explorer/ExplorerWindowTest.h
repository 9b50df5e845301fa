#pragma once

#include "base/Environment.h"
#include "core/Actions.h"
#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/controls/Label.h"
#include "ui/controls/ListView.h"
#include "ui/explorer/ActionMenu.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationTreeWidget.h"
#include "ui/explorer/LocationView.h"
#include "ui/platform/Strings.h"

#include <QAction>

#include <memory>

namespace quellbrook::testing {

// The explorer on a department of three locations, two items on the first of them.
class ExplorerWindowTest : public ExplorerTest {
protected:
    ExplorerWindowTest() {
        m_shelf = AddLocation("Shelf A");
        m_bin = AddLocation("Bin 1", m_shelf);
        m_first = AddItem("E-1", m_shelf);
        m_second = AddItem("E-2", m_shelf);
        m_empty = AddLocation("Empty Shelf");
    }

    void Make() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(1280, 760);
        m_explorer = new EvidenceExplorer(m_window.get());
        m_explorer->setGeometry(0, 0, 1280, 760);
        m_tree = m_explorer->LocationPane();
        m_widget = Find<LocationTreeWidget>(*m_tree, "TreeView");
        m_view = m_explorer->ItemPane();
        m_list = m_view->List();
    }

    void Show() {
        Make();
        ShowActive(*m_window);
    }
    void Show(int32_t location) {
        Show();
        m_explorer->SetSelectedLocation(LocationOf(location));
        m_list->Tree()->setFocus();
    }

    std::string Title() const { return ToUtf8(Find<Label>(*m_explorer, "lblTitle")->Caption()); }
    std::string Subtitle() const { return ToUtf8(Find<Label>(*m_explorer, "lblSubtitle")->Caption()); }

    QPoint NodeCenter(const QString& name) const {
        const auto found = m_widget->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        for (QTreeWidgetItem* parent = found.at(0)->parent(); parent; parent = parent->parent())
            parent->setExpanded(true);
        return m_widget->visualItemRect(found.at(0)).center();
    }
    void ClickNode(const QString& name) { Click(m_widget->viewport(), NodeCenter(name)); }

    QPoint RowCenter(const QString& name) const {
        for (int row = 0; row < m_list->RowCount(); ++row)
            if (m_list->CellText(row, 1) == name)
                return m_list->Tree()->visualItemRect(m_list->Tree()->topLevelItem(row)).center();
        ADD_FAILURE() << "No row " << name.toStdString();
        return {};
    }
    void ClickRow(const QString& name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(m_list->Tree()->viewport(), Qt::LeftButton, modifiers, RowCenter(name));
    }

    // The visible entries of the menu that a right click opens; `look` runs while it is open.
    std::vector<std::string> MenuAt(QWidget* viewport, const QPoint& at, std::function<void(QMenu&)> look = nullptr) {
        std::vector<std::string> texts;
        WhileMenuOpen([&](QMenu& menu) {
            for (const QAction* action : menu.actions())
                if (action->isVisible()) texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
            if (look) look(menu);
        });
        RightClick(viewport, at);
        return texts;
    }
    std::vector<std::string> RowMenu(const QString& name, std::function<void(QMenu&)> look = nullptr) {
        return MenuAt(m_list->Tree()->viewport(), RowCenter(name), std::move(look));
    }
    std::vector<std::string> BlankMenu(std::function<void(QMenu&)> look = nullptr) {
        return MenuAt(m_list->Tree()->viewport(), {300, 500}, std::move(look));
    }
    std::vector<std::string> NodeMenu(const QString& name, std::function<void(QMenu&)> look = nullptr) {
        return MenuAt(m_widget->viewport(), NodeCenter(name), std::move(look));
    }
    std::function<void(QMenu&)> Choose(MenuEntry entry) {
        return [this, entry](QMenu&) { m_explorer->Menu()->Entry(entry)->trigger(); };
    }

    std::vector<std::string> BatchIds() const {
        std::vector<std::string> ids;
        const auto items = GetStores().Cart->GetItems();
        for (int32_t i = 0; i < items->Count(); ++i) ids.push_back(items->ItemAt(i)->DisplayID());
        return ids;
    }

    std::vector<std::string> SelectedObjects() const {
        std::vector<std::string> names;
        const auto selected = m_explorer->GetSelectedObjects();
        for (int32_t i = 0; i < selected->Count(); ++i) {
            if (const auto location = std::dynamic_pointer_cast<StorageLocation>(selected->At(i)))
                names.push_back(location->Name());
            else
                names.push_back(std::dynamic_pointer_cast<StoredItem>(selected->At(i))->DisplayID());
        }
        return names;
    }

    int32_t m_shelf, m_bin, m_first, m_second, m_empty;
    std::unique_ptr<QWidget> m_window;
    EvidenceExplorer* m_explorer = nullptr;
    LocationTree* m_tree = nullptr;
    LocationTreeWidget* m_widget = nullptr;
    LocationView* m_view = nullptr;
    ListView* m_list = nullptr;
};

}  // namespace quellbrook::testing
