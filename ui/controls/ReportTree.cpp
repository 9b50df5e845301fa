#include "ui/controls/ReportTree.h"

#include "ui/controls/CellDelegate.h"
#include "ui/controls/ReportHeader.h"
#include "ui/platform/Guard.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace quellbrook {

namespace {

constexpr int AccentBarWidth = 3;

}  // namespace

ReportTree::ReportTree(QWidget* parent) : QTreeWidget(parent) {
    setHeader(new ReportHeader(this));
    setItemDelegate(new CellDelegate(*this));
    setColumnCount(0);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    setTextElideMode(Qt::ElideRight);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    viewport()->setMouseTracking(true);
}

int ReportTree::RowHeight() const { return qRound(iconSize * rowFactor); }

QFont ReportTree::CellFont(bool bold) const {
    QFont font = Theme::Font(type);
    if (bold) font.setWeight(QFont::Bold);
    return font;
}

bool ReportTree::ShowsFocus() const { return hasFocus(); }

QModelIndex ReportTree::indexAt(const QPoint& at) const {
    const int last = header()->length() - header()->offset() - 1;
    return QTreeWidget::indexAt(QPoint(std::min(at.x(), last), at.y()));
}

void ReportTree::DrawBackground(QPainter& painter, const QRect& row, const QModelIndex& first) const {
    const bool band = first.data(BandRole).toBool();
    const bool selected = selectionModel()->isSelected(first);
    if (selected)
        painter.fillRect(row, Theme::Get(ShowsFocus() ? Theme::Color::Highlight : Theme::Color::SelectedInactive));
    else if (band)
        painter.fillRect(row, Theme::BatchTint());
    if (rowLines) {
        QColor line = Theme::Get(Theme::Color::RowHairline);
        if (selected && ShowsFocus()) line.setAlphaF(0.25f);
        painter.fillRect(row.left(), row.bottom(), row.width(), 1, line);
    }
    if (band) painter.fillRect(row.left(), row.top(), AccentBarWidth, row.height(), Theme::Get(Theme::Color::Accent));
}

void ReportTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    Guard([&] {
        const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
        DrawBackground(*painter, row, index.siblingAtColumn(0));
        QTreeWidget::drawRow(painter, option, index);
        if (!m_movedByKeyboard || !hasFocus() || currentIndex().row() != index.row()) return;
        const bool selected = selectionModel()->isSelected(index.siblingAtColumn(0));
        painter->setPen(QPen(Theme::Get(selected ? Theme::Color::HighlightText : Theme::Color::Link), 2));
        painter->setBrush(Qt::NoBrush);
        // Without the inset it would be invisible on a selected row.
        const int inset = selected ? AccentBarWidth + 1 : 1;
        painter->drawRect(row.adjusted(inset, inset, -inset, -inset - 1));
    });
}

void ReportTree::mousePressEvent(QMouseEvent* event) {
    m_movedByKeyboard = false;
    const Qt::MouseButton button = event->button();
    const QPoint at = event->position().toPoint();
    QTreeWidget::mousePressEvent(event);
    if (OnMouseDown) OnMouseDown(button, at);
}

void ReportTree::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    QTreeWidget::mouseMoveEvent(event);
    if (OnMouseMove) OnMouseMove(at);
}

void ReportTree::mouseReleaseEvent(QMouseEvent* event) {
    const Qt::MouseButton button = event->button();
    const QPoint at = event->position().toPoint();
    QTreeWidget::mouseReleaseEvent(event);
    if (OnMouseUp) OnMouseUp(button, at);
}

void ReportTree::mouseDoubleClickEvent(QMouseEvent* event) {
    const Qt::MouseButton button = event->button();
    const QPoint at = event->position().toPoint();
    QTreeWidget::mouseDoubleClickEvent(event);
    if (OnDoubleClick) OnDoubleClick(button, at);
}

void ReportTree::keyPressEvent(QKeyEvent* event) {
    const QModelIndex before = currentIndex();
    m_movedByKeyboard = true;
    QTreeWidget::keyPressEvent(event);
    viewport()->update();
    const QModelIndex now = currentIndex();
    if (now.isValid() && now.row() != before.row() && OnKeyboardMove) OnKeyboardMove(now.row());
}

}  // namespace quellbrook
