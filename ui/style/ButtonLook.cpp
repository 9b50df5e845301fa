#include "ui/style/ButtonLook.h"

#include "ui/style/Theme.h"

#include <QPainter>

namespace quellbrook {

ButtonLook LookOfButton(bool enabled, bool inverted, bool hovered, bool pressed) {
    using Theme::Color;
    if (!enabled) {
        const QColor background = Theme::Get(Color::DisabledGround);
        return {background, background, Theme::Get(Color::DisabledText)};
    }
    if (inverted) {
        QColor background = Theme::Get(Color::Window);
        if (hovered) background = Theme::Get(Color::Panel);
        if (pressed) background = Theme::Get(Color::Hairline);
        return {background, Theme::Get(Color::FieldBorder), Theme::Get(Color::Text)};
    }
    QColor background = Theme::Get(Color::Strong);
    if (hovered) background = Theme::Get(Color::StrongHover);
    if (pressed) background = Theme::Get(Color::StrongPressed);
    return {background, background, Theme::Get(Color::StrongText)};
}

void PaintButtonGround(QPainter& painter, const QRect& rect, const ButtonLook& look) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look.border);
    painter.setBrush(look.background);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Radius, Theme::Radius);
}

}  // namespace quellbrook
