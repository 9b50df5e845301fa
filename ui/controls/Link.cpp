#include "ui/controls/Link.h"

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

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int IconGap = 4;
constexpr int CrossSize = 24;

// The cross of the closing links is drawn, since not every face has it.
const QString Cross = QStringLiteral("\u2715");

}  // namespace

Link::Link(QWidget* parent) : Control(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    FitToText();
}

void Link::SetCaption(const QString& caption) {
    m_caption = caption;
    if (!m_hasAccessibleCaption) setAccessibleName(caption);
    FitToText();
}

void Link::SetAccessibleCaption(const QString& name) {
    m_hasAccessibleCaption = true;
    setAccessibleName(name);
}

void Link::SetIcon(const QString& iconName, int size) {
    m_icon = iconName;
    m_iconSize = size;
    FitToText();
}

void Link::SetQuiet(bool quiet) {
    m_quiet = quiet;
    update();
}

QSize Link::sizeHint() const {
    if (m_caption == Cross) return QSize(CrossSize, CrossSize);
    const int text = TextWidth(Theme::Font(Theme::Type::LinkText), m_caption);
    const int icon = m_icon.isEmpty() ? 0 : m_iconSize;
    const int gap = icon > 0 && text > 0 ? IconGap : 0;
    return QSize(icon + gap + text, std::max(icon, Theme::LineHeight(Theme::Type::LinkText)));
}

void Link::FitToText() {
    const QSize size = sizeHint();
    Control::Move(Left(), Top(), ToTwips(size.width()), ToTwips(size.height()));
    updateGeometry();
    update();
}

void Link::Click() {
    if (!isEnabled()) return;
    Guard([this] { emit Clicked(); });
}

void Link::paintEvent(QPaintEvent*) {
    Guard([this] {
        QPainter painter(this);
        QColor ink = Theme::Get(m_quiet ? Theme::Color::GrayText : Theme::Color::Link);
        if (m_quiet && m_hovered) ink = Theme::Get(Theme::Color::Text);
        if (!isEnabled()) ink = Theme::Get(Theme::Color::DisabledText);
        const qreal ratio = devicePixelRatioF();
        if (m_caption == Cross) {
            const QPoint at((width() - CrossSize) / 2, (height() - CrossSize) / 2);
            painter.drawPixmap(at, Icons::Pixmap(QStringLiteral("close"), CrossSize, ink, ratio));
            return;
        }
        int left = 0;
        if (!m_icon.isEmpty()) {
            painter.drawPixmap(0, (height() - m_iconSize) / 2, Icons::Pixmap(m_icon, m_iconSize, ink, ratio));
            left = m_iconSize + IconGap;
        }
        QFont font = Theme::Font(Theme::Type::LinkText);
        font.setUnderline(m_hovered && isEnabled());
        painter.setFont(font);
        painter.setPen(ink);
        painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip,
                         ElidedTo(font, m_caption, width() - left));
    });
}

void Link::enterEvent(QEnterEvent* event) {
    Control::enterEvent(event);
    m_hovered = true;
    update();
}

void Link::leaveEvent(QEvent* event) {
    Control::leaveEvent(event);
    m_hovered = false;
    update();
}

void Link::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    m_pressed = true;
}

void Link::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const bool clicked = m_pressed && rect().contains(event->position().toPoint());
    m_pressed = false;
    if (clicked) Click();
}

void Link::keyPressEvent(QKeyEvent* event) {
    if (IsActivation(*event))
        Click();
    else
        Control::keyPressEvent(event);
}

void Link::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    FocusRing::Follow(this);
}

void Link::focusOutEvent(QFocusEvent* event) {
    Control::focusOutEvent(event);
    FocusRing::Leave(this);
    m_pressed = false;
}

void Link::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        if (isEnabled())
            setCursor(Qt::PointingHandCursor);
        else
            unsetCursor();
    }
    update();
}

}  // namespace quellbrook
