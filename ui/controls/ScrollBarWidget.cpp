#include "ui/controls/ScrollBarWidget.h"

#include "ui/controls/FlatScrollBar.h"
#include "ui/platform/Guard.h"
#include "ui/style/FlatStyle.h"
#include "ui/style/Icons.h"
#include "ui/style/Theme.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <QWheelEvent>

namespace quellbrook {

namespace {

constexpr int ThumbWidth = 8;
constexpr int ArrowSize = 12;

}  // namespace

ScrollBarWidget::ScrollBarWidget(FlatScrollBar* owner) : QScrollBar(Qt::Vertical, owner), m_owner(owner) {
    setProperty(FlatStyle::ArrowsProperty, true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
}

void ScrollBarWidget::paintEvent(QPaintEvent*) {
    Guard([this] {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const auto part = [&](QStyle::SubControl control) {
            return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
        };
        QPainter painter(this);
        painter.fillRect(rect(), Theme::Get(Theme::Color::Panel));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const QRect slider = part(QStyle::SC_ScrollBarSlider);
        const bool active = underMouse() || isSliderDown();
        painter.setBrush(Theme::Get(active ? Theme::Color::FieldBorder : Theme::Color::Thumb));
        const QRect thumb(slider.center().x() - ThumbWidth / 2 + 1, slider.top(), ThumbWidth, slider.height());
        if (isEnabled()) painter.drawRoundedRect(thumb, Theme::Radius, Theme::Radius);
        const QColor ink = Theme::Get(isEnabled() ? Theme::Color::GrayText : Theme::Color::Thumb);
        const auto arrow = [&](QStyle::SubControl control, bool up) {
            const QRect place = part(control);
            painter.save();
            painter.translate(QRectF(place).center());
            if (up) painter.rotate(180);
            painter.drawPixmap(QPointF(-ArrowSize / 2.0, -ArrowSize / 2.0),
                               Icons::Pixmap(QStringLiteral("chevron"), ArrowSize, ink, devicePixelRatioF()));
            painter.restore();
        };
        if (m_owner->GetArrows() != FlatScrollBar::Down) arrow(QStyle::SC_ScrollBarSubLine, true);
        if (m_owner->GetArrows() != FlatScrollBar::Up) arrow(QStyle::SC_ScrollBarAddLine, false);
    });
}

void ScrollBarWidget::wheelEvent(QWheelEvent* event) {
    Guard([this, event] { m_owner->TurnWheel(event->angleDelta().y()); });
    event->accept();
}

}  // namespace quellbrook
