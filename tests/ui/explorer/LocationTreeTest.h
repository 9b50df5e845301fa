#pragma once

#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationTreeWidget.h"

#include <QAction>
#include <QLineEdit>

#include <memory>

namespace quellbrook::testing {

// A tree of five locations in a window, beside a field that can take the focus.
class LocationTreeTest : public ExplorerTest {
protected:
    LocationTreeTest() {
        m_room = AddLocation("Property Room");
        m_aisle = AddLocation("Aisle 1", m_room);
        m_shelf = AddLocation("Shelf A", m_aisle);
        m_vault = AddLocation("Vault");
        m_court = m_database.AddLocation("Court", StorageLocationTypes::External);
    }

    // The tree in a window beside a field that can take the focus.
    void Make() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 600);
        m_other = new QLineEdit(m_window.get());
        m_other->setGeometry(290, 0, 100, 30);
        m_tree = new LocationTree(m_window.get());
        m_tree->setGeometry(0, 0, 280, 600);
        m_widget = Find<LocationTreeWidget>(*m_tree, "TreeView");
        m_tree->LocationSelected.connect([this](const StorageLocationRef& location) {
            m_selected.push_back(location ? location->Name() : "nothing");
        });
        m_tree->GetContextMenu.connect([this](QMenu*& menu, QAction*& defaultItem) {
            EXPECT_EQ(menu, nullptr);
            EXPECT_EQ(defaultItem, nullptr);
            const StorageLocationRef meant = m_tree->DropHighlightLocation();
            m_menusFor.push_back(meant ? meant->Name() : "nothing");
            menu = m_menu;
            defaultItem = m_defaultItem;
        });
    }

    void Show() {
        Make();
        ShowActive(*m_window);
        m_tree->RaiseShowError();
    }

    QTreeWidgetItem* Node(const QString& name) const {
        const QList<QTreeWidgetItem*> found = m_widget->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.first();
    }

    QPoint CenterOf(const QString& name) const {
        QTreeWidgetItem* node = Node(name);
        for (QTreeWidgetItem* parent = node->parent(); parent; parent = parent->parent()) parent->setExpanded(true);
        return m_widget->visualItemRect(node).center();
    }
    void ClickNode(const QString& name) { Click(m_widget->viewport(), CenterOf(name)); }
    void RightClickNode(const QString& name) { RightClick(m_widget->viewport(), CenterOf(name)); }
    std::string CurrentNode() const {
        return m_widget->currentItem() ? m_widget->currentItem()->text(0).toStdString() : "";
    }
    std::vector<std::string> TakeSelected() { return std::exchange(m_selected, {}); }

    std::vector<std::string> TopNames() const {
        std::vector<std::string> names;
        for (int i = 0; i < m_widget->topLevelItemCount(); ++i)
            names.push_back(m_widget->topLevelItem(i)->text(0).toStdString());
        return names;
    }

    int32_t m_room, m_aisle, m_shelf, m_vault, m_court;
    std::unique_ptr<QWidget> m_window;
    LocationTree* m_tree = nullptr;
    LocationTreeWidget* m_widget = nullptr;
    QLineEdit* m_other = nullptr;
    QMenu* m_menu = nullptr;
    QAction* m_defaultItem = nullptr;
    std::vector<std::string> m_selected;
    std::vector<std::string> m_menusFor;
};

}  // namespace quellbrook::testing
