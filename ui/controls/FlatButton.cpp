#include "ui/controls/FlatButton.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/ButtonLook.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr int IconGap = 8;

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
    return QSize(text + icon + 2 * ButtonMargin, Theme::FieldHeight);
}

void FlatButton::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        const ButtonLook look = LookOfButton(isEnabled(), m_inverted, IsHovered(), IsPressed());
        QPainter painter(this);
        PaintButtonGround(painter, rect(), look);
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
