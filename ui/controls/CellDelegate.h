#pragma once

#include <QStyledItemDelegate>

namespace quellbrook {

class ReportTree;

// Draws a cell of a ReportTree over the row's background: a centered icon or a text.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int TextMargin = 6;  // on both sides of a text or a column's caption

    explicit CellDelegate(ReportTree& tree);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void DrawIcon(QPainter& painter, const QRect& cell, const QString& icon, const QColor& ink) const;
    void DrawText(QPainter& painter, const QRect& cell, const QModelIndex& index, bool highlighted) const;

    ReportTree& m_tree;
};

}  // namespace quellbrook
