#include "ui/controls/ReportTree.h"

#include "ui/controls/Activation.h"
#include "ui/controls/CellDelegate.h"
#include "ui/controls/ReportHeader.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/style/TextBlock.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace quellbrook {

namespace {

constexpr int AccentBarWidth = 3;

}  // namespace

ReportTree::ReportTree(QWidget* parent) : QTreeWidget(parent), m_focusLook(*this, [this] { viewport()->update(); }) {
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
    GuardPainting([&] {
        const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
        DrawBackground(*painter, row, index.siblingAtColumn(0));
        QTreeWidget::drawRow(painter, option, index);
        if (!m_movedByKeyboard || !ShowsFocus() || currentIndex().row() != index.row()) return;
        const bool selected = selectionModel()->isSelected(index.siblingAtColumn(0));
        painter->setPen(QPen(Theme::Get(selected ? Theme::Color::HighlightText : Theme::Color::Link), 2));
        painter->setBrush(Qt::NoBrush);
        // Without the inset it would be invisible on a selected row.
        const int inset = selected ? AccentBarWidth + 1 : 1;
        painter->drawRect(row.adjusted(inset, inset, -inset, -inset - 1));
    });
}

void ReportTree::mousePressEvent(QMouseEvent* event) {
    if (std::exchange(m_movedByKeyboard, false)) viewport()->update();  // the ring crosses all columns
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
    const QPoint at = event->position().toPoint();
    QTreeWidget::mouseDoubleClickEvent(event);
    if (OnDoubleClick) OnDoubleClick(at);
}

// Rows are painted across the whole viewport, but Qt repaints only their columns.
void ReportTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeWidget::selectionChanged(selected, deselected);
    viewport()->update();
}

void ReportTree::focusInEvent(QFocusEvent* event) {
    QTreeWidget::focusInEvent(event);
    switch (event->reason()) {
    case Qt::PopupFocusReason:
    case Qt::ActiveWindowFocusReason: return;
    default: m_movedByKeyboard = event->reason() != Qt::MouseFocusReason;
    }
}

bool ReportTree::ShowsRingAround() const { return m_movedByKeyboard && ShowsFocus() && !currentIndex().isValid(); }

void ReportTree::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    GuardPainting([this] {
        if (!ShowsRingAround()) return;
        QPainter painter(viewport());
        painter.setPen(QPen(Theme::Get(Theme::Color::Link), 2));
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
    });
}

void ReportTree::scrollContentsBy(int dx, int dy) {
    QTreeWidget::scrollContentsBy(dx, dy);
    if (ShowsRingAround()) viewport()->update();
}

// Qt searches the column of the current index, which may be the one of the icons. It begins behind the current row, so
// without one it must begin behind the last.
void ReportTree::keyboardSearch(const QString& typed) {
    const bool hadCurrent = currentIndex().isValid();
    const int row = hadCurrent ? currentIndex().row() : topLevelItemCount() - 1;
    const QModelIndex start = model()->index(row, textColumn);
    if (!start.isValid()) return;
    if (currentIndex() != start) selectionModel()->setCurrentIndex(start, QItemSelectionModel::NoUpdate);
    QTreeWidget::keyboardSearch(typed);
    const bool found = currentIndex() != start || selectionModel()->isSelected(start);
    if (!found && !hadCurrent) selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

bool ReportTree::IsCut(const QModelIndex& index) const {
    const QFont font = CellFont(index.data(BoldRole).toBool());
    return TextWidth(font, index.data().toString()) > columnWidth(index.column()) - 2 * CellDelegate::TextMargin;
}

bool ReportTree::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeWidget::viewportEvent(event);
    bool shown = false;
    Guard([&] {
        const auto& help = *static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help.pos());
        shown = index.isValid() && index.data(Qt::ToolTipRole).toString().isEmpty() && IsCut(index);
        if (shown) QToolTip::showText(help.globalPos(), PlainTooltip(index.data().toString()), viewport());
    });
    return shown || QTreeWidget::viewportEvent(event);
}

void ReportTree::keyPressEvent(QKeyEvent* event) {
    if (SendMenuKey(*this, *event)) return;
    const QModelIndex before = currentIndex();
    m_movedByKeyboard = true;
    QTreeWidget::keyPressEvent(event);
    viewport()->update();
    const QModelIndex now = currentIndex();
    if (now.isValid() && now.row() != before.row() && OnKeyboardMove) OnKeyboardMove(now.row());
}

}  // namespace quellbrook
