#include "ui/controls/CellDelegate.h"

#include "ui/controls/ReportTree.h"
#include "ui/platform/Guard.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"

#include <QPainter>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int LeastIconLeft = 2;  // pixels; clear of the focus ring in a narrow column

QColor IconColor(const QString& icon, bool onWindow) {
    if (icon == QLatin1String("marked")) return Theme::Get(Theme::Color::Link);
    if (icon == QLatin1String("selected")) return Theme::Get(Theme::Color::Strong);
    // The border of a field is too faint for any other background.
    if (icon == QLatin1String("unselected") && onWindow) return Theme::Get(Theme::Color::FieldBorder);
    return Theme::Get(Theme::Color::GrayText);
}

}  // namespace

CellDelegate::CellDelegate(ReportTree& tree) : QStyledItemDelegate(&tree), m_tree(tree) {}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    const int text = TextWidth(m_tree.CellFont(index.data(ReportTree::BoldRole).toBool()), index.data().toString());
    return QSize(text + 2 * TextMargin, m_tree.RowHeight());
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    GuardPainting([&] {
        const bool selected = option.state & QStyle::State_Selected;
        const bool highlighted = selected && m_tree.ShowsFocus();
        const bool onWindow = !selected && !index.siblingAtColumn(0).data(ReportTree::BandRole).toBool();
        const QString icon = index.data(ReportTree::IconRole).toString();
        const QColor ink = highlighted ? Theme::Get(Theme::Color::HighlightText) : IconColor(icon, onWindow);
        painter->save();
        painter->setClipRect(option.rect);
        DrawIcon(*painter, option.rect, icon, m_tree.isEnabled() ? ink : Theme::Get(Theme::Color::DisabledText));
        DrawText(*painter, option.rect, index, highlighted);
        painter->restore();
    });
}

void CellDelegate::DrawIcon(QPainter& painter, const QRect& cell, const QString& icon, const QColor& ink) const {
    if (icon.isEmpty()) return;
    const int size = m_tree.picture;
    const int left = std::max((cell.width() - size) / 2, LeastIconLeft);
    painter.drawPixmap(cell.left() + left, cell.top() + (cell.height() - size) / 2,
                       Icons::Pixmap(icon, size, ink, m_tree.devicePixelRatioF()));
}

void CellDelegate::DrawText(QPainter& painter, const QRect& cell, const QModelIndex& index, bool highlighted) const {
    const QString text = index.data().toString();
    if (text.isEmpty()) return;
    QColor ink = Theme::Get(index.data(ReportTree::GrayRole).toBool() ? Theme::Color::GrayText : Theme::Color::Text);
    if (highlighted) ink = Theme::Get(Theme::Color::HighlightText);
    if (!m_tree.isEnabled()) ink = Theme::Get(Theme::Color::DisabledText);
    const QFont font = m_tree.CellFont(index.data(ReportTree::BoldRole).toBool());
    painter.setFont(font);
    painter.setPen(ink);
    const QRect textRect = cell.adjusted(TextMargin, 0, -TextMargin, 0);
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     ElidedTo(font, line, textRect.width()));
}

}  // namespace quellbrook
