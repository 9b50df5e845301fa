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

// What a person sees on the screen, read from the widgets. Only what is visible is found; null or nothing otherwise.

// By object names from the outside in, joined by "/": "cart/btnTransfer". The last window opened is searched first.
QWidget* Find(const QString& path);
// The text of a widget: its caption, its text or its accessible name.
QString TextOf(const QWidget* widget);
QString TextOf(const QString& path);
// Every text shown in a widget, from top to bottom.
QStringList TextsIn(const QString& path);

// The list or tree at the path or inside it.
QAbstractItemView* FindView(const QString& path);
// The first row with this text in one of its columns, at any depth; invalid when there is none.
QModelIndex FindRow(const QAbstractItemView* view, const QString& text);
bool IsExpanded(const QAbstractItemView* view, const QModelIndex& index);  // of a tree
// The texts of the selected rows from top to bottom, cells joined by " | ".
QStringList SelectedRows(const QAbstractItemView* view);

QMenu* OpenMenu();
QStringList EntriesOf(const QMenu* menu);
// The entry chosen in the dropdown at the path or inside it.
QString ChosenIn(const QString& path);
// The list that an open dropdown shows.
QAbstractItemView* OpenDropdownList();

// Where to press, in screen pixels; nothing while it can't be reached: hidden, disabled, covered, scrolled away.
using Spot = std::optional<QPoint>;
Spot SpotOf(QWidget* widget);
Spot SpotOf(QAbstractItemView* view, const QModelIndex& index);
Spot SpotOf(QMenu* menu, const QString& entry);
// A part that is no widget of its own, such as a tab, by its accessible name.
Spot SpotOfPart(QWidget* widget, const QString& name);

}  // namespace quellbrook::tour
