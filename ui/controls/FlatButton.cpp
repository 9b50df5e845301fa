#include "ui/controls/FlatButton.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr int SideMargin = 16;
constexpr int IconGap = 8;

struct Look {
    QColor background;
    QColor border;
    QColor ink;
};

Look LookOf(bool enabled, bool inverted, bool hovered, bool pressed) {
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

}  // namespace

FlatButton::FlatButton(QWidget* parent) : Pressable(parent) {
    Control::Move(0, 0, ToTwips(96), ToTwips(Theme::FieldHeight));
}

void FlatButton::SetInverted(bool inverted) {
    m_inverted = inverted;
    update();
}

QSize FlatButton::sizeHint() const {
    const int text = TextWidth(Theme::Font(Theme::Type::BodySemiBold), Caption());
    const int icon = IconSize() > 0 ? IconSize() + IconGap : 0;
    return QSize(text + icon + 2 * SideMargin, Theme::FieldHeight);
}

void FlatButton::paintEvent(QPaintEvent*) {
    Guard([this] {
        const Look look = LookOf(isEnabled(), m_inverted, IsHovered(), IsPressed());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(look.border);
        painter.setBrush(look.background);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Radius, Theme::Radius);

        const QFont font = Theme::Font(Theme::Type::BodySemiBold);
        const int iconRoom = IconSize() > 0 ? IconSize() + IconGap : 0;
        const QString shown = ElidedTo(font, Caption(), width() - 8 - iconRoom);
        const int textWidth = TextWidth(font, shown);
        const int left = (width() - textWidth - iconRoom) / 2;
        if (iconRoom > 0)
            painter.drawPixmap(left, (height() - IconSize()) / 2,
                               Icons::Pixmap(IconName(), IconSize(), look.ink, devicePixelRatioF()));
        painter.setFont(font);
        painter.setPen(look.ink);
        painter.drawText(QRect(left + iconRoom, 0, textWidth, height()),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip, shown);
    });
}

}  // namespace quellbrook
