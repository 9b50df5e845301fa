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

// A report-style list: keyed columns, keyed rows in the order of their adding, cells with text, colour, weight and
// tooltip, an icon by name in one column, which can be a box to tick, several rows selected at a time, and a band
// behind rows that are marked.
// Who asks what:
// - LocationView: rows 1.2 times the icon, RowBand, cell weight, colour and tooltip, several rows selected, HitTest,
//   MouseUp, DoubleClicked, KeyDown, CurrentRowMovedByKeyboard, SizeLastColumn's widths.
// - SubmitEvidenceView: ClearColumns at each showing, columns without width, SetIconColumn, rows 1.4 times the icon, no
//   header (ColumnCaption for labels over it), TextWidth, RowChecked with bold cells, MouseDown, MouseMove and MouseUp
//   for its own test of the check cell.
// - SetupLocationsWizard: SetCheckBoxes, RowToggled, SetRowChecked, bold names, rows 1.7 times the type (SetType).
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

    // Widths in twips; 0 and less leave the column in its place unseen.
    void AddColumn(const QString& key, const QString& caption, float width);
    void ClearColumns();  // the rows go with them
    int ColumnCount() const;
    QString ColumnCaption(int column) const;
    float ColumnWidth(int column) const;
    void SetColumnWidth(int column, float width);
    int ColumnIndex(const QString& key) const;  // -1 when there is none

    // Row height as a multiple of the icon's size, as padded icons give it; the icon stays centred in it.
    // The picture itself is drawn at `picture` pixels; 0 draws it at the icon's size, 22 at most.
    void SetIconSize(int pixels, double rowFactor, int picture = 0);

    // The column of the icons, the first at first. To be set before rows are added.
    void SetIconColumn(int column);
    // With boxes a press of the left button on a row's icon, and Space for the current row, turn its tick over.
    void SetCheckBoxes(bool boxes);

    // All of these are on at first, but for the frame of a field.
    void SetHeaderVisible(bool visible);
    void SetRowLines(bool lines);
    void SetFramed(bool framed);
    // Regular type of the cells, Body at first; bold cells take its bold weight.
    void SetType(Theme::Type type);

    void ClearRows();
    // Error 457 when the key is taken. Cells for the columns behind the first.
    void AddRow(const QString& key, const QString& icon, const std::vector<Cell>& cells);
    int RowCount() const;
    QString RowKey(int row) const;
    QString RowIcon(int row) const;
    void SetRowIcon(int row, const QString& icon);
    // A row's tick, off at first. Setting it shows the icon "selected" or "unselected" and raises nothing.
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

    bool RowSelected(int row) const;
    void SelectAll();
    void ClearSelection();   // current row too
    int CurrentRow() const;  // -1 when there is none
    void SetCurrentRow(int row);
    int HitTest(const QPoint& viewportPosition) const;  // -1 beside every row
    int RowHeight() const;                              // pixels
    // Width of a text in a cell's own font, in twips.
    float TextWidth(const QString& text) const;

    QTreeWidget* Tree() const;

signals:
    // Buttons are a bit mask: 1 left, 2 right. Raised after the list has acted. The second press of a double click is
    // no MouseDown; moves are raised with and without a button.
    void MouseDown(int button, const QPoint& viewportPosition);
    void MouseMove(const QPoint& viewportPosition);
    void MouseUp(int button, const QPoint& viewportPosition);
    void DoubleClicked(const QPoint& viewportPosition);
    void KeyDown(int keyCode, bool ctrl);  // 13 for both Enter keys, 65 for A; raised before the list acts
    void CurrentRowMovedByKeyboard(int row);
    void RowToggled(int row, bool checked);  // by the user; after the tick has changed

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
