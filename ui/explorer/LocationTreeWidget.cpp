#include "ui/explorer/LocationTreeWidget.h"

#include "ui/controls/Activation.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/style/Icons.h"
#include "ui/style/Theme.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int iconGap = 2, textGap = 6, chevronSize = 16, barWidth = 3;
constexpr int leastName = 120;  // the width that a name has at every level
constexpr int leastNode = iconGap + LocationTreeWidget::IconSize + textGap + leastName;

// The number of levels that are expanded below the node.
int VisibleLevels(const QTreeWidgetItem& node) {
    int levels = 0;
    for (int i = 0; i < node.childCount(); ++i) {
        const QTreeWidgetItem& child = *node.child(i);
        levels = std::max(levels, 1 + (child.isExpanded() ? VisibleLevels(child) : 0));
    }
    return levels;
}

class RowHeightDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), LocationTreeWidget::RowHeight};
    }
};

enum class RowLook { Plain, Highlighted, Selected };

QColor BackgroundOf(RowLook look, const QModelIndex& index) {
    if (look == RowLook::Highlighted) return Theme::Get(Theme::Color::Highlight);
    if (look == RowLook::Selected) return Theme::Get(Theme::Color::SelectedInactive);
    return index.data(Qt::BackgroundRole).value<QBrush>().color();
}

QColor TextColorOf(RowLook look, const QModelIndex& index) {
    if (look == RowLook::Highlighted) return Theme::Get(Theme::Color::HighlightText);
    return index.data(Qt::ForegroundRole).value<QBrush>().color();
}

QColor IconColorOf(RowLook look, const QModelIndex& index) {
    if (look == RowLook::Highlighted) return Theme::Get(Theme::Color::HighlightText);
    return Theme::Get(index.parent().isValid() ? Theme::Color::GrayText : Theme::Color::Link);
}

}  // namespace

LocationTreeWidget::LocationTreeWidget(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    setHeaderHidden(true);
    setItemDelegate(new RowHeightDelegate(this));
    setUniformRowHeights(true);
    setIndentation(Indent);
    setIconSize({IconSize, IconSize});
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setStretchLastSection(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
}

QTreeWidgetItem* LocationTreeWidget::NodeAt(const QPoint& at) const {
    QTreeWidgetItem* node = itemAt(at);
    if (!node) return nullptr;
    const int left = visualItemRect(node).left();
    const bool onExpander = node->childCount() > 0 && at.x() < left && at.x() >= left - Indent;
    return onExpander ? nullptr : node;
}

void LocationTreeWidget::SetDropHighlight(QTreeWidgetItem* node) {
    m_dropHighlight = node;
    viewport()->update();
}

void LocationTreeWidget::SetHasFocusLook(bool hasFocus) {
    m_hasFocusLook = hasFocus;
    viewport()->update();
}

void LocationTreeWidget::SelectQuietly(QTreeWidgetItem* node) {
    const QScopedValueRollback<bool> quiet(m_isQuiet, true);
    setCurrentItem(node);
    if (!node) return clearSelection();
    for (QTreeWidgetItem* parent = node->parent(); parent; parent = parent->parent()) parent->setExpanded(true);
    scrollTo(indexFromItem(node));
}

void LocationTreeWidget::updateGeometries() {
    ResizeColumn();
    QTreeWidget::updateGeometries();
}

void LocationTreeWidget::ResizeColumn() {
    const int needed = VisibleLevels(*invisibleRootItem()) * Indent + leastNode;
    const int width = std::max(viewport()->width(), needed);
    if (header()->sectionSize(0) != width) header()->resizeSection(0, width);
}

void LocationTreeWidget::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int before = horizontalScrollBar()->value();
    QTreeWidget::scrollTo(index, hint);
    if (!index.isValid()) return;
    const int left = visualRect(index).left() + horizontalOffset();
    const int most = std::max(0, left - Indent);
    const int least = std::min(most, std::max(0, left + leastNode - viewport()->width()));
    horizontalScrollBar()->setValue(std::clamp(before, least, most));
}

QRect LocationTreeWidget::TextRect(const QModelIndex& index) const {
    QRect rect = visualRect(index);
    rect.setLeft(rect.left() + iconGap + IconSize + textGap);
    rect.setRight(viewport()->width() - textGap);
    return rect;
}

void LocationTreeWidget::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    GuardPainting([&] {
        const bool isSelected = selectionModel()->isSelected(index);
        RowLook look = isSelected ? RowLook::Selected : RowLook::Plain;
        if (m_dropHighlight ? itemFromIndex(index) == m_dropHighlight : isSelected && m_hasFocusLook)
            look = RowLook::Highlighted;

        const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
        painter->fillRect(row, BackgroundOf(look, index));
        if (isSelected)
            painter->fillRect(QRect(row.topLeft(), QSize(barWidth, row.height())), Theme::Get(Theme::Color::Accent));

        const QRect node = visualRect(index);
        const QColor iconColor = IconColorOf(look, index);
        if (model()->hasChildren(index)) {
            const QColor color = look == RowLook::Highlighted ? iconColor : Theme::Get(Theme::Color::GrayText);
            const QPoint at(node.left() - Indent + 1, row.center().y() - chevronSize / 2 + 1);
            painter->drawPixmap(at, Icons::Pixmap(isExpanded(index) ? "chevron" : "chevron_r", chevronSize, color,
                                                  devicePixelRatioF()));
        }
        painter->drawPixmap(QPoint(node.left() + iconGap, row.center().y() - IconSize / 2 + 1),
                            Icons::Pixmap(index.data(IconRole).toString(), IconSize, iconColor, devicePixelRatioF()));

        const QFont font = index.data(Qt::FontRole).value<QFont>();
        const QRect text = TextRect(index);
        painter->setFont(font);
        painter->setPen(TextColorOf(look, index));
        painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideRight, text.width()));
    });
}

void LocationTreeWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    Guard([&] {
        QTreeWidget::selectionChanged(selected, deselected);
        if (selected.isEmpty() || m_isQuiet || m_isPressed) return;
        QMetaObject::invokeMethod(
            this, [this] { Guard([this] { EmitChosen(); }); }, Qt::QueuedConnection);
    });
}

void LocationTreeWidget::keyPressEvent(QKeyEvent* event) {
    Guard([this, event] {
        if (SendMenuKey(*this, *event)) return;
        const QList<QTreeWidgetItem*> before = selectedItems();
        {
            const QScopedValueRollback<bool> quiet(m_isQuiet, true);
            QTreeWidget::keyPressEvent(event);
        }
        if (selectedItems() == before) return;
        if (selectedItems().isEmpty()) return SelectQuietly(before.constFirst());  // Ctrl+Space
        EmitChosen();
    });
}

void LocationTreeWidget::EmitChosen() {
    const QList<QTreeWidgetItem*> selected = selectedItems();
    if (!selected.isEmpty()) emit NodeChosen(selected.constFirst());
}

void LocationTreeWidget::mousePressEvent(QMouseEvent* event) {
    Guard([this, event] {
        event->accept();
        if (event->button() == Qt::RightButton) return emit RightPressed(NodeAt(event->pos()));
        if (event->button() != Qt::LeftButton) return;
        m_isPressed = true;
        QTreeWidget::mousePressEvent(event);
    });
}

void LocationTreeWidget::mouseReleaseEvent(QMouseEvent* event) {
    Guard([this, event] {
        event->accept();
        QTreeWidgetItem* node = NodeAt(event->pos());
        if (event->button() == Qt::RightButton) return emit RightReleased(node);
        if (event->button() != Qt::LeftButton) return;
        QTreeWidget::mouseReleaseEvent(event);
        m_isPressed = false;
        emit LeftReleased(node);
    });
}

void LocationTreeWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    Guard([this, event] {
        event->accept();
        if (event->button() != Qt::LeftButton) return;
        m_isPressed = true;
        QTreeWidget::mouseDoubleClickEvent(event);
        emit NodeDoubleClicked();
    });
}

void LocationTreeWidget::contextMenuEvent(QContextMenuEvent* event) {
    Guard([this, event] {
        event->accept();
        if (event->reason() == QContextMenuEvent::Keyboard) emit MenuKeyPressed();
    });
}

bool LocationTreeWidget::viewportEvent(QEvent* event) {
    bool handled = false;
    Guard([&] {
        if (event->type() == QEvent::ToolTip) {
            const auto* help = static_cast<QHelpEvent*>(event);
            ShowElidedName(help->pos(), help->globalPos());
            handled = true;
        } else {
            handled = QTreeWidget::viewportEvent(event);
        }
    });
    return handled;
}

void LocationTreeWidget::ShowElidedName(const QPoint& at, const QPoint& globalAt) {
    const QModelIndex index = indexAt(at);
    const QString name = index.data().toString();
    const QFontMetrics metrics(index.data(Qt::FontRole).value<QFont>());
    if (index.isValid() && metrics.horizontalAdvance(name) > TextRect(index).width())
        QToolTip::showText(globalAt, PlainTooltip(name), viewport());
    else
        QToolTip::hideText();
}

}  // namespace quellbrook
