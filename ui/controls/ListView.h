#pragma once

#include "ui/controls/Control.h"

#include "ui/style/Theme.h"

#include <QSet>
#include <QString>

#include <vector>

class QTreeWidget;
class QTreeWidgetItem;

namespace quellbrook {

class ReportTree;

// A report-style list with keyed columns and rows. Cells have a text, color, weight and tooltip. One column shows
// icons, optionally as check boxes. Several rows can be selected, and marked rows have a band behind them.
// Check boxes, another icon column than the first, ClearColumns, MouseDown and MouseMove serve lists in which the user
// ticks rows: new evidence to check in, and locations to categorize.
class ListView : public Control {
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "ListView"; }

    struct Cell {
        QString text;
        bool gray = false;
        bool bold = false;
    };

    // Widths in twips; 0 or less hides the column.
    void AddColumn(const QString& key, const QString& caption, float width);
    void ClearColumns();  // removes the rows too
    int ColumnCount() const;
    QString ColumnCaption(int column) const;
    float ColumnWidth(int column) const;
    void SetColumnWidth(int column, float width);
    int ColumnIndex(const QString& key) const;  // -1 if there is none

    // The row height is a multiple of the icon size. The picture is centered and drawn at `picture` pixels; 0 draws it
    // at the icon size, and at 22 pixels for icons larger than 24.
    void SetIconSize(int pixels, double rowFactor, int picture = 0);

    // The column of the icons, initially the first. Set it before adding rows.
    void SetIconColumn(int column);
    // The column in which typing searches, initially the first without icons. Set it after the icon column.
    void SetSearchColumn(int column);
    // With boxes, a left press on a row's icon toggles its check mark, and Space toggles that of the current row.
    void SetCheckBoxes(bool boxes);

    // Header and row lines are initially on, the frame off.
    void SetHeaderVisible(bool visible);
    void SetRowLines(bool lines);
    void SetFramed(bool framed);
    // The type of the cells, initially Body; bold cells use its bold weight.
    void SetType(Theme::Type type);

    void ClearRows();
    // Raises error 457 if the key exists. The cells are for the columns after the first.
    void AddRow(const QString& key, const QString& icon, const std::vector<Cell>& cells);
    int RowCount() const;
    QString RowKey(int row) const;
    QString RowIcon(int row) const;
    void SetRowIcon(int row, const QString& icon);
    // The check mark of a row, initially off. Setting it shows the icon "selected" or "unselected" and raises no event.
    bool RowChecked(int row) const;
    void SetRowChecked(int row, bool checked);
    QString CellText(int row, int column) const;
    bool CellBold(int row, int column) const;
    bool CellGray(int row, int column) const;
    void SetCellStyle(int row, int column, bool gray, bool bold);
    QString CellTooltip(int row, int column) const;
    void SetCellTooltip(int row, int column, const QString& text);
    bool RowBand(int row) const;
    void SetRowBand(int row, bool band);

    // The selected rows, the current row and the scroll position of a list, to restore them after it has been filled
    // again. Rows that no longer exist are left out.
    struct Place {
        QSet<QString> selectedKeys;
        QString currentKey;
        int scroll = 0;
    };
    Place CurrentPlace() const;
    void Restore(const Place& place);

    bool RowSelected(int row) const;
    void SelectAll();
    void ClearSelection();   // also the current row
    int CurrentRow() const;  // -1 if there is none
    void SetCurrentRow(int row);
    int HitTest(const QPoint& viewportPosition) const;  // -1 outside the rows
    // The row whose icon cell, including both edges, is there; -1 if there is none.
    int HitTestIcon(const QPoint& viewportPosition) const;
    int RowHeight() const;  // pixels
    // Where a menu that a key has opened belongs: the current row if it is selected, otherwise the first selected row,
    // in the list's coordinates; empty if there is none.
    QRect MenuRow() const;
    // Width of a text in the cell font, in twips.
    float TextWidth(const QString& text, bool bold = false) const;

    QTreeWidget* Tree() const;

signals:
    // Buttons are a bit mask: 1 left, 2 right. Raised after the list has handled the event. The second press of a
    // double click does not raise MouseDown. Moves are raised with or without a pressed button.
    void MouseDown(int button, const QPoint& viewportPosition);
    void MouseMove(const QPoint& viewportPosition);
    void MouseUp(int button, const QPoint& viewportPosition);
    void DoubleClicked(const QPoint& viewportPosition);
    void KeyDown(int keyCode, bool ctrl);  // 13 for both Enter keys, 65 for A; raised before the list handles the key
    void CurrentRowMovedByKeyboard(int row);
    void RowToggled(int row, bool checked);  // by the user, after the change

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QTreeWidgetItem* Item(int row) const;
    void DescribeRow(QTreeWidgetItem* item) const;
    void ToggleRow(int row);
    void PressBox(Qt::MouseButton button, const QPoint& at);

    ReportTree* m_tree;
    std::vector<QString> m_columnKeys;
    QSet<QString> m_rowKeys;
    int m_iconColumn = 0;
    bool m_checkBoxes = false;
    bool m_framed = false;
};

}  // namespace quellbrook
