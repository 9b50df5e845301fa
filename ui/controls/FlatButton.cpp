#include "ui/controls/FlatButton.h"

#include "ui/controls/Activation.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace quellbrook {

namespace {

constexpr int SideMargin = 16;
constexpr int IconSize = 18;
constexpr int IconGap = 8;

struct Look {
    QColor ground;
    QColor border;
    QColor ink;
};

Look LookOf(bool enabled, bool inverted, bool hovered, bool pressed) {
    using Theme::Color;
    if (!enabled) {
        const QColor ground = Theme::Get(Color::DisabledGround);
        return {ground, ground, Theme::Get(Color::DisabledText)};
    }
    if (inverted) {
        QColor ground = Theme::Get(Color::Window);
        if (hovered) ground = Theme::Get(Color::Panel);
        if (pressed) ground = Theme::Get(Color::Hairline);
        return {ground, Theme::Get(Color::FieldBorder), Theme::Get(Color::Text)};
    }
    QColor ground = Theme::Get(Color::Strong);
    if (hovered) ground = Theme::Get(Color::StrongHover);
    if (pressed) ground = Theme::Get(Color::StrongPressed);
    return {ground, ground, Theme::Get(Color::StrongText)};
}

}  // namespace

FlatButton::FlatButton(QWidget* parent) : Control(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    Control::Move(0, 0, ToTwips(96), ToTwips(Theme::FieldHeight));
}

void FlatButton::SetCaption(const QString& caption) {
    m_caption = caption;
    setAccessibleName(caption);
    updateGeometry();
    update();
}

void FlatButton::SetInverted(bool inverted) {
    m_inverted = inverted;
    update();
}

void FlatButton::SetIcon(const QString& iconName) {
    m_icon = iconName;
    updateGeometry();
    update();
}

QSize FlatButton::sizeHint() const {
    const int text = TextWidth(Theme::Font(Theme::Type::BodySemiBold), m_caption);
    const int icon = m_icon.isEmpty() ? 0 : IconSize + IconGap;
    return QSize(text + icon + 2 * SideMargin, Theme::FieldHeight);
}

void FlatButton::Click() {
    if (!isEnabled()) return;
    Guard([this] { emit Clicked(); });
}

void FlatButton::paintEvent(QPaintEvent*) {
    Guard([this] {
        const Look look = LookOf(isEnabled(), m_inverted, m_hovered, m_pressed && m_hovered);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(look.border);
        painter.setBrush(look.ground);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Radius, Theme::Radius);

        const QFont font = Theme::Font(Theme::Type::BodySemiBold);
        const int iconRoom = m_icon.isEmpty() ? 0 : IconSize + IconGap;
        const QString shown = ElidedTo(font, m_caption, width() - 8 - iconRoom);
        const int textWidth = TextWidth(font, shown);
        const int left = (width() - textWidth - iconRoom) / 2;
        if (iconRoom > 0)
            painter.drawPixmap(left, (height() - IconSize) / 2,
                               Icons::Pixmap(m_icon, IconSize, look.ink, devicePixelRatioF()));
        painter.setFont(font);
        painter.setPen(look.ink);
        painter.drawText(QRect(left + iconRoom, 0, textWidth, height()),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip, shown);
    });
}

void FlatButton::enterEvent(QEnterEvent* event) {
    Control::enterEvent(event);
    m_hovered = true;
    update();
}

void FlatButton::leaveEvent(QEvent* event) {
    Control::leaveEvent(event);
    m_hovered = false;
    update();
}

void FlatButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    m_pressed = true;
    m_hovered = true;
    update();
}

void FlatButton::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const bool clicked = m_pressed && rect().contains(event->position().toPoint());
    m_pressed = false;
    update();
    if (clicked) Click();
}

void FlatButton::keyPressEvent(QKeyEvent* event) {
    if (IsActivation(*event))
        Click();
    else
        Control::keyPressEvent(event);
}

void FlatButton::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    FocusRing::Follow(this);
}

void FlatButton::focusOutEvent(QFocusEvent* event) {
    Control::focusOutEvent(event);
    FocusRing::Leave(this);
    m_pressed = false;
    update();
}

void FlatButton::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    update();
}

}  // namespace quellbrook
