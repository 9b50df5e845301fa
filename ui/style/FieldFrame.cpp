#include "ui/style/FieldFrame.h"

#include "ui/style/Theme.h"

#include <QPainter>
#include <QWidget>

namespace quellbrook {

void PaintField(QWidget& widget, bool enabled) {
    using Theme::Color;
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme::Get(enabled ? Color::FieldBorder : Color::Hairline));
    painter.setBrush(Theme::Get(enabled ? Color::Window : Color::Panel));
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Radius, Theme::Radius);
}

}  // namespace quellbrook
