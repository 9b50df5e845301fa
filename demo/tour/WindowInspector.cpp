#include "demo/tour/WindowInspector.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QTreeView>

#include <algorithm>

namespace quellbrook::tour {

namespace {

std::vector<QWidget*> Windows() {
    std::vector<QWidget*> windows;
    if (QWidget* popup = QApplication::activePopupWidget()) windows.push_back(popup);
    if (QWidget* modal = QApplication::activeModalWidget()) windows.push_back(modal);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) windows.push_back(window);
    }
    return windows;
}

QWidget* FindBelow(QWidget* root, const QStringList& names, int position) {
    if (position == names.size()) return root;
    const auto children = root->findChildren<QWidget*>(names[position]);
    for (QWidget* child : children) {
        if (!child->isVisible()) continue;
        if (QWidget* found = FindBelow(child, names, position + 1)) return found;
    }
    return nullptr;
}

// The pixel where the widget, or something inside it, receives the mouse.
Spot Reachable(QWidget* widget, const QPoint& global) {
    QWidget* hit = QApplication::widgetAt(global);
    if (!hit || (hit != widget && !widget->isAncestorOf(hit))) return std::nullopt;
    return global;
}

QModelIndex FindRowBelow(const QAbstractItemModel* model, const QModelIndex& parent, const QString& text) {
    for (int row = 0; row < model->rowCount(parent); ++row) {
        for (int column = 0; column < model->columnCount(parent); ++column) {
            const QModelIndex index = model->index(row, column, parent);
            if (index.data(Qt::DisplayRole).toString() == text) return index;
        }
        const QModelIndex below = FindRowBelow(model, model->index(row, 0, parent), text);
        if (below.isValid()) return below;
    }
    return {};
}

}  // namespace

QWidget* Find(const QString& path) {
    const QStringList names = path.split(QLatin1Char('/'));
    for (QWidget* window : Windows()) {
        if (window->objectName() == names.front()) {
            if (QWidget* found = FindBelow(window, names, 1)) return found;
        }
        if (QWidget* found = FindBelow(window, names, 0)) return found;
    }
    return nullptr;
}

QString TextOf(const QWidget* widget) {
    if (!widget) return {};
    for (const char* name : {"Caption", "Text", "text"}) {
        const QVariant value = widget->property(name);
        if (value.isValid()) return value.toString();
    }
    return widget->accessibleName();
}

QString TextOf(const QString& path) { return TextOf(Find(path)); }

QAbstractItemView* FindView(const QString& path) {
    QWidget* root = Find(path);
    if (!root) return nullptr;
    if (auto* view = qobject_cast<QAbstractItemView*>(root)) return view;
    for (auto* view : root->findChildren<QAbstractItemView*>()) {
        if (view->isVisible()) return view;
    }
    return nullptr;
}

QModelIndex FindRow(const QAbstractItemView* view, const QString& text) {
    return view ? FindRowBelow(view->model(), view->rootIndex(), text) : QModelIndex();
}

bool IsExpanded(const QAbstractItemView* view, const QModelIndex& index) {
    const auto* tree = qobject_cast<const QTreeView*>(view);
    return tree && tree->isExpanded(index);
}

QStringList SelectedRows(const QAbstractItemView* view) {
    QStringList rows;
    if (!view) return rows;
    QModelIndexList selected = view->selectionModel()->selectedRows();
    std::sort(selected.begin(), selected.end(), [view](const QModelIndex& a, const QModelIndex& b) {
        return view->visualRect(a).top() < view->visualRect(b).top();
    });
    for (const QModelIndex& index : selected) {
        QStringList cells;
        for (int column = 0; column < view->model()->columnCount(index.parent()); ++column) {
            const QString cell = index.siblingAtColumn(column).data(Qt::DisplayRole).toString();
            if (!cell.isEmpty()) cells.push_back(cell);
        }
        rows.push_back(cells.join(QStringLiteral(" | ")));
    }
    return rows;
}

QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

QStringList EntriesOf(const QMenu* menu) {
    QStringList entries;
    if (!menu) return entries;
    for (const QAction* action : menu->actions()) {
        if (action->isVisible() && !action->isSeparator()) entries.push_back(action->text().replace("&&", "&"));
    }
    return entries;
}

QString ChosenIn(const QString& path) {
    QWidget* root = Find(path);
    auto* box = qobject_cast<QComboBox*>(root);
    if (root && !box) box = root->findChild<QComboBox*>();
    return box ? box->currentText() : QString();
}

QAbstractItemView* OpenDropdownList() {
    QWidget* popup = QApplication::activePopupWidget();
    if (!popup || OpenMenu()) return nullptr;
    auto* list = qobject_cast<QAbstractItemView*>(popup);
    return list ? list : popup->findChild<QAbstractItemView*>();
}

Spot SpotOf(QWidget* widget) {
    if (!widget || !widget->isVisible() || !widget->isEnabled()) return std::nullopt;
    return Reachable(widget, widget->mapToGlobal(widget->rect().center()));
}

Spot SpotOf(QAbstractItemView* view, const QModelIndex& index) {
    if (!view || !index.isValid()) return std::nullopt;
    const QRect row = view->visualRect(index).intersected(view->viewport()->rect());
    if (row.isEmpty()) return std::nullopt;
    return Reachable(view->viewport(), view->viewport()->mapToGlobal(row.center()));
}

Spot SpotOf(QMenu* menu, const QString& entry) {
    if (!menu) return std::nullopt;
    for (QAction* action : menu->actions()) {
        if (action->isVisible() && action->isEnabled() && action->text() == entry) {
            return Reachable(menu, menu->mapToGlobal(menu->actionGeometry(action).center()));
        }
    }
    return std::nullopt;
}

Spot SpotOfPart(QWidget* widget, const QString& name) {
    if (widget && widget->focusProxy()) widget = widget->focusProxy();
    QAccessibleInterface* whole = widget ? QAccessible::queryAccessibleInterface(widget) : nullptr;
    if (!whole) return std::nullopt;
    for (int k = 0; k < whole->childCount(); ++k) {
        QAccessibleInterface* part = whole->child(k);
        if (part && part->text(QAccessible::Name) == name) return Reachable(widget, part->rect().center());
    }
    return std::nullopt;
}

}  // namespace quellbrook::tour
