#include "app/scanner/ChoiceBox.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace quellbrook {

namespace {

constexpr int fieldHeight = 36, textMargin = 12, arrowWidth = 32, rowHeight = 32;

// Aligns the rows of the list with the text of the field.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width() + 2 * textMargin, rowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool chosen = option.state & QStyle::State_Selected;
        painter->fillRect(option.rect, option.palette.color(chosen ? QPalette::Highlight : QPalette::Base));
        painter->setPen(option.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
        painter->setFont(option.font);
        const QRect textRect = option.rect.adjusted(textMargin, 0, -textMargin, 0);
        painter->drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, textRect.width()));
    }
};

}  // namespace

ChoiceBox::ChoiceBox(const QString& accessibleName, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(accessibleName);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setItemDelegate(new RowDelegate(this));
}

QSize ChoiceBox::sizeHint() const {
    int widest = 0;
    for (int index = 0; index < count(); ++index)
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(index)));
    return {textMargin + widest + arrowWidth, fieldHeight};
}

QSize ChoiceBox::minimumSizeHint() const { return {textMargin + arrowWidth + 60, fieldHeight}; }

void ChoiceBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

void ChoiceBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);

    const QPointF tip(width() - arrowWidth / 2.0, height() / 2.0 + 2);
    QPainterPath arrow(tip + QPointF(-4, -4));
    arrow.lineTo(tip);
    arrow.lineTo(tip + QPointF(4, -4));
    painter.setPen(QPen(palette().color(QPalette::Text), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(arrow);

    const QRect textRect = rect().adjusted(textMargin, 0, -arrowWidth, 0);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, textRect.width()));
}

}  // namespace quellbrook
