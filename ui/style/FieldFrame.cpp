#include "ui/style/FieldFrame.h"

#include "ui/style/Theme.h"

#include <QPainter>
#include <QWidget>

namespace quellbrook {

void PaintField(QWidget& widget, bool enabled) {
    QPainter painter(&widget);
    PaintField(painter, widget.rect(), enabled);
}

void PaintField(QPainter& painter, const QRect& rect, bool enabled) {
    using Theme::Color;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme::Get(enabled ? Color::FieldBorder : Color::Hairline));
    painter.setBrush(Theme::Get(enabled ? Color::Window : Color::Panel));
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Radius, Theme::Radius);
}

}  // namespace quellbrook
