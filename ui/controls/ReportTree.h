#pragma once

#include "ui/style/Theme.h"

#include <QTreeWidget>

#include <functional>

namespace quellbrook {

// The inner tree of a ListView: one level of rows of equal height. The band, the selection and the hairline span the
// viewport, even to the right of the last column.
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
    std::function<void(Qt::MouseButton, const QPoint&)> OnDoubleClick;
    std::function<void(int)> OnKeyboardMove;

    int iconSize = 22;
    int picture = 22;
    double rowFactor = 1.0;
    bool rowLines = true;
    Theme::Type type = Theme::Type::Body;

    int RowHeight() const;
    QFont CellFont(bool bold) const;
    // Whether selected rows are painted as in a focused tree.
    bool ShowsFocus() const;

    QModelIndex indexAt(const QPoint& at) const override;

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void DrawBackground(QPainter& painter, const QRect& row, const QModelIndex& first) const;

    bool m_movedByKeyboard = false;
};

}  // namespace quellbrook
