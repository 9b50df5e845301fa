#pragma once

#include "demo/tour/WindowInspector.h"

#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

class QScrollBar;

namespace quellbrook::testing {

// What a custodian sees of the explorer. Selection and batch marks are read from the pixels of the screen.

struct ScreenRow {
    QString name;
    QRect area;  // the visible part, in screen pixels
};
// The rows on the right side from top to bottom, without those of which only a few pixels are visible.
std::vector<ScreenRow> VisibleRows();
QString FirstRow();
QString LastRow();
tour::Spot SpotOfRow(const QString& name);

// The parts that apply, joined by "; ": title; subtitle; "contents", "no items", "results" or "no results"; the
// location selected in the tree; the selected rows, with "in gray" where the list is painted without the focus; the
// rows of the batch; the pane with the focus; the text of the info bar.
QString Seen();

// The open menu: its entries, disabled ones in brackets, separators as "-". Empty if no menu is open.
QString SeenMenu();

// The dialog in front: its title, a colon and its message.
QString SeenDialog();

// The visible vertical scroll bar of the right side, and the spot of its thumb.
QScrollBar* ScrollBarOnTheRight();
tour::Spot SpotOfThumb();

}  // namespace quellbrook::testing
