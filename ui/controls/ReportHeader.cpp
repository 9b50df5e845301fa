#include "ui/controls/ReportHeader.h"

#include "ui/controls/CellDelegate.h"
#include "ui/platform/Guard.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr int HeaderHeight = 32;

}  // namespace

ReportHeader::ReportHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setStretchLastSection(false);
    setMinimumSectionSize(8);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QSize ReportHeader::sizeHint() const { return QSize(QHeaderView::sizeHint().width(), HeaderHeight); }

void ReportHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    GuardPainting([this] {
        const QRect area = viewport()->rect();
        QPainter painter(viewport());
        painter.fillRect(length() - offset(), 0, area.width(), area.height(), palette().color(QPalette::Base));
        painter.fillRect(0, area.height() - 1, area.width(), 1, Theme::Get(Theme::Color::Hairline));
    });
}

void ReportHeader::paintSection(QPainter* painter, const QRect& section, int column) const {
    GuardPainting([&] {
        painter->fillRect(section, palette().color(QPalette::Base));
        painter->setFont(Theme::Font(Theme::Type::TagText));
        painter->setPen(Theme::Get(Theme::Color::GrayText));
        const QRect textRect = section.adjusted(CellDelegate::TextMargin, 0, -CellDelegate::TextMargin, 0);
        const QString caption = model()->headerData(column, Qt::Horizontal).toString();
        painter->drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          ElidedTo(painter->font(), caption, textRect.width()));
    });
}

}  // namespace quellbrook
