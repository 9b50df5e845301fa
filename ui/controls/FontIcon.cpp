#include "ui/controls/FontIcon.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/Icons.h"

#include <QPainter>
#include <QTimerEvent>

namespace quellbrook {

namespace {

constexpr int TurnInterval = 40;  // milliseconds
constexpr int TurnStep = 15;      // degrees

bool IsBusy(const QString& name) { return name == QLatin1String("busy"); }

// The default accessible name of an icon.
QString NameOf(const QString& icon) { return QString(icon).replace(QLatin1Char('_'), QLatin1Char(' ')); }

void DrawRing(QPainter& painter, const QRectF& bounds, int angle) {
    const double thickness = bounds.width() / 9.0;
    const QRectF ring = bounds.adjusted(thickness, thickness, -thickness, -thickness);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::Get(Theme::Color::Hairline), thickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(Theme::Get(Theme::Color::Accent), thickness, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, (90 - angle) * 16, -90 * 16);
}

}  // namespace

FontIcon::FontIcon(QWidget* parent) : Control(parent) { SetIcon(QString(), m_size); }

FontIcon::~FontIcon() = default;

void FontIcon::SetIcon(const QString& iconName, int size) {
    if (accessibleName() == NameOf(m_icon)) setAccessibleName(NameOf(iconName));
    m_icon = iconName;
    m_size = size;
    Control::Move(Left(), Top(), ToTwips(size), ToTwips(size));
    Turn(isVisible());
    update();
}

void FontIcon::SetForeColor(Theme::Color color) {
    m_themeColor = color;
    m_fixedColor = QColor();
    update();
}

void FontIcon::SetForeColor(const QColor& color) {
    m_fixedColor = color;
    update();
}

void FontIcon::Turn(bool turn) {
    const bool wanted = turn && IsBusy(m_icon);
    if (wanted == (m_timerId != 0)) return;
    if (!wanted) killTimer(m_timerId);
    m_timerId = wanted ? startTimer(TurnInterval) : 0;
}

void FontIcon::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        if (m_icon.isEmpty()) return;
        QPainter painter(this);
        if (IsBusy(m_icon)) return DrawRing(painter, rect(), m_angle);
        QColor ink = m_fixedColor.isValid() ? m_fixedColor : Theme::Get(m_themeColor);
        if (!isEnabled() && m_dimsWhenDisabled) ink = Theme::Get(Theme::Color::DisabledText);
        painter.drawPixmap((width() - m_size) / 2, (height() - m_size) / 2,
                           Icons::Pixmap(m_icon, m_size, ink, devicePixelRatioF()));
    });
}

void FontIcon::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timerId) return Control::timerEvent(event);
    m_angle = (m_angle + TurnStep) % 360;
    update();
}

void FontIcon::showEvent(QShowEvent* event) {
    Control::showEvent(event);
    Turn(true);
}

void FontIcon::hideEvent(QHideEvent* event) {
    Control::hideEvent(event);
    Turn(false);
}

}  // namespace quellbrook
