#pragma once

#include <QString>
#include <QTreeWidget>

namespace quellbrook {

// The Qt tree inside the location tree: rows in theme colors, a node that can be highlighted without being selected,
// and separate signals for clicks and keys. A node's key and icon name are data roles.
class LocationTreeWidget : public QTreeWidget {
    Q_OBJECT

public:
    explicit LocationTreeWidget(QWidget* parent = nullptr);

    enum Role { KeyRole = Qt::UserRole, IconRole };
    static constexpr int RowHeight = 32, Indent = 18, IconSize = 20;  // pixels

    // The node at a position of the viewport; null outside all nodes and on a node's expander.
    QTreeWidgetItem* NodeAt(const QPoint& at) const;

    // The node painted as if it were selected, or null.
    QTreeWidgetItem* DropHighlight() const { return m_dropHighlight; }
    void SetDropHighlight(QTreeWidgetItem* node);
    // Whether the selected node is painted as if focused.
    void SetHasFocusLook(bool hasFocus);
    // Selects without raising NodeChosen; null clears the selection.
    void SelectQuietly(QTreeWidgetItem* node);
    // Also scrolls sideways, so that the name of a deep node can be read.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
    void LeftReleased(QTreeWidgetItem* node);
    void RightPressed(QTreeWidgetItem* node);
    void RightReleased(QTreeWidgetItem* node);
    void MenuKeyPressed();
    void NodeDoubleClicked();
    // The keyboard or an assistive tool selected a node. Raised when Qt has finished the selection: a receiver may
    // destroy the tree.
    void NodeChosen(QTreeWidgetItem* node);

protected:
    void updateGeometries() override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void ResizeColumn();
    QRect TextRect(const QModelIndex& index) const;
    void EmitChosen();
    void ShowElidedName(const QPoint& at, const QPoint& globalAt);

    QTreeWidgetItem* m_dropHighlight = nullptr;
    bool m_hasFocusLook = false;
    bool m_isQuiet = false;
    bool m_isPressed = false;
};

}  // namespace quellbrook
