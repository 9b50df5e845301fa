#include "ui/shell/Toast.h"

#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <QAccessible>
#include <QGraphicsDropShadowEffect>
#include <QPainter>
#include <QShowEvent>

namespace quellbrook {

namespace {

constexpr float DesignHeight = 720;
constexpr float Collapsed = 2;
constexpr float Increment = 30;
constexpr int DisplayTime = 5000;
constexpr int IconLeft = 17;
constexpr int IconSize = 20;
constexpr int TextLeft = 48;
constexpr int ShadowBlur = 8;
constexpr int ShadowRise = 2;
constexpr float ShadowOpacity = 0.22f;

// The background of a toast is dark in the light theme and light in the dark one.
QColor MarkColor() { return Theme::IsDark() ? QColor(0x0B, 0x7A, 0x5B) : QColor(0x4C, 0xCB, 0xA6); }

}  // namespace

Toast::Toast(QWidget* parent) : Control(parent), m_expandedHeight(DesignHeight) {
    setObjectName("toastMessage");
    SetAccessibleRole(QAccessible::AlertMessage);
    BuildControls();
    SetOverlaying(true);
    SetAlign(Alignment::Bottom);
    Control::SetHeight(m_expandedHeight);
    if (IsInsideDesigner()) return;
    hide();
    m_motion = std::make_unique<Motion>(*this);
}

Toast::Motion::Motion(Toast& toast) : toastTimer(MakeTimer()) {
    toastTimer->Elapsed = [&toast] { toast.ToastTimer_Elapsed(); };
    slideUpSubscription = slideUp.Finished.connect([&toast] { toast.SlideUp_Finished(); });
    slideDownSubscription = slideDown.Finished.connect([&toast] { toast.SlideDown_Finished(); });
}

void Toast::BuildControls() {
    m_icon = new FontIcon(this);
    m_icon->setObjectName("icoMessage");
    m_icon->SetIcon("marked", IconSize);
    m_message = new Label(this);
    m_message->setObjectName("lblMessage");
    m_message->SetForeColor(Theme::Color::ToastText);
    m_message->SetAutoSize(false);
    auto* shadow = new QGraphicsDropShadowEffect(this);
    shadow->setOffset(0, -ShadowRise);
    shadow->setBlurRadius(ShadowBlur);
    shadow->setColor(QColor::fromRgbF(0, 0, 0, ShadowOpacity));
    setGraphicsEffect(shadow);
}

float Toast::CollapsedHeight() const { return IsInsideDesigner() ? m_expandedHeight : Collapsed; }

void Toast::Slide(LinearAnimation& animation, float from, float to) {
    animation.Start(
        {.Target = this, .PropertyName = "Height", .StartValue = from, .FinalValue = to, .Increment = Increment});
}

void Toast::Popup(const std::string& message) {
    if (!m_motion) return;
    m_motion->toastTimer->Stop();
    m_message->SetCaption(ToQString(message));
    m_icon->SetForeColor(MarkColor());
    setAccessibleName(m_message->Caption());  // before it appears, since a screen reader reads an alert when it appears
    setVisible(true);
    Slide(m_motion->slideUp, CollapsedHeight(), m_expandedHeight);
    Announce();
}

void Toast::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_icon) m_icon->SetForeColor(MarkColor());
}

void Toast::Announce() {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void Toast::SlideUp_Finished() {
    if (!IsShown()) return;
    m_motion->toastTimer->SetInterval(DisplayTime);
    m_motion->toastTimer->Start();
}

void Toast::ToastTimer_Elapsed() {
    m_motion->toastTimer->Stop();
    Slide(m_motion->slideDown, m_expandedHeight, CollapsedHeight());
}

// Stays open if another message has arrived.
void Toast::SlideDown_Finished() {
    if (!m_motion->slideUp.InProgress()) hide();
}

// Accepts the press, so that nothing behind the toast gets the click.
void Toast::mousePressEvent(QMouseEvent*) {
    Guard([this] {
        if (m_motion) m_motion->toastTimer->Stop();
        hide();
    });
}

void Toast::showEvent(QShowEvent* event) {
    Control::showEvent(event);
    if (!event->spontaneous() && !std::exchange(m_wasShown, true)) GuardSilently([this] { FirstShow(); });
}

void Toast::FirstShow() {
    raise();
    SetHeight(CollapsedHeight());
}

// The contents do not move or shrink when the height changes, so the toast appears to slide in.
void Toast::Layout() {
    if (Align() != Alignment::Bottom) SetAlign(Alignment::Bottom);
    if (!m_motion || !m_motion->InProgress()) SetHeight(CollapsedHeight());
    const float iconSize = ToTwips(IconSize);
    m_icon->Move(ToTwips(IconLeft), (m_expandedHeight - iconSize) / 2, iconSize, iconSize);
    m_message->Move(ToTwips(TextLeft), 0, ClientWidth() - ToTwips(TextLeft + Theme::Margin), m_expandedHeight);
}

void Toast::paintEvent(QPaintEvent*) {
    GuardPainting([this] { QPainter(this).fillRect(rect(), Theme::Get(Theme::Color::Toast)); });
}

}  // namespace quellbrook
