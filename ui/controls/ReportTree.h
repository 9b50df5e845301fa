#pragma once

#include "ui/controls/FocusLook.h"
#include "ui/style/Theme.h"

#include <QTreeWidget>

#include <functional>

namespace quellbrook {

// The inner tree of a ListView: one level of rows of equal height. The band, the selection and the hairline span the
// viewport, even to the right of the last column. A row that the keyboard has reached has a ring; if there is none, the
// list has it. Typing goes to the row whose first text begins with it. A text that is cut off is shown as a tooltip.
class ReportTree : public QTreeWidget {
    Q_OBJECT

public:
    // Data of a row, on column 0, and of a cell.
    enum Role { KeyRole = Qt::UserRole + 1, CheckedRole, BandRole, IconRole, GrayRole, BoldRole, TooltipRole };

    explicit ReportTree(QWidget* parent);

    // Called after the tree has handled the event.
    std::function<void(Qt::MouseButton, const QPoint&)> OnMouseDown;
    std::function<void(const QPoint&)> OnMouseMove;
    std::function<void(Qt::MouseButton, const QPoint&)> OnMouseUp;
    std::function<void(const QPoint&)> OnDoubleClick;
    std::function<void(int)> OnKeyboardMove;

    int iconSize = 22;
    int picture = 22;
    double rowFactor = 1.0;
    bool rowLines = true;
    Theme::Type type = Theme::Type::Body;

    int RowHeight() const;
    QFont CellFont(bool bold) const;
    // Whether selected rows are painted as in a focused tree.
    bool ShowsFocus() const { return m_focusLook.IsFocused(); }

    // The column in which typing searches.
    int textColumn = 1;

    QModelIndex indexAt(const QPoint& at) const override;
    void keyboardSearch(const QString& typed) override;

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void focusInEvent(QFocusEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void DrawBackground(QPainter& painter, const QRect& row, const QModelIndex& first) const;
    bool ShowsRingAround() const;
    bool IsCut(const QModelIndex& index) const;

    bool m_movedByKeyboard = false;
    FocusLook m_focusLook;
};

}  // namespace quellbrook
