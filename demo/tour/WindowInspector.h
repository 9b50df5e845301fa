#pragma once

#include <QModelIndex>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <optional>

class QAbstractItemView;
class QAction;
class QMenu;
class QWidget;

namespace quellbrook::tour {

// Reads what is visible on the screen from the widgets. Invisible widgets are not found; the result is then null or
// empty.

// Finds a widget by object names from the outside in, joined by "/": "cart/btnTransfer". Searches the most recently
// opened window first.
QWidget* Find(const QString& path);
// The text of a widget: its caption, its text or its accessible name.
QString TextOf(const QWidget* widget);
QString TextOf(const QString& path);

// The list or tree at the path or inside it.
QAbstractItemView* FindView(const QString& path);
// The first row with this text in any column, at any depth; invalid if there is none.
QModelIndex FindRow(const QAbstractItemView* view, const QString& text);
bool IsExpanded(const QAbstractItemView* view, const QModelIndex& index);  // of a tree
// The texts of the selected rows from top to bottom, cells joined by " | ".
QStringList SelectedRows(const QAbstractItemView* view);

QMenu* OpenMenu();
QStringList EntriesOf(const QMenu* menu);
// The selected entry of the dropdown at the path or inside it.
QString ChosenIn(const QString& path);
// The list that an open dropdown shows.
QAbstractItemView* OpenDropdownList();

// Where to click, in screen pixels; empty while it is hidden, disabled, covered or scrolled out of view.
using Spot = std::optional<QPoint>;
Spot SpotOf(QWidget* widget);
Spot SpotOf(QAbstractItemView* view, const QModelIndex& index);
Spot SpotOf(QMenu* menu, const QString& entry);
// The spot of a part that is not a widget, such as a tab, by its accessible name.
Spot SpotOfPart(QWidget* widget, const QString& name);

}  // namespace quellbrook::tour
