#include "demo/gallery/Stage.h"

#include "ui/platform/Twips.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>

#include <memory>

namespace quellbrook::gallery {

namespace {

// The widget under the pointer and the position in it.
struct Spot {
    QWidget* widget;
    QPoint at;
};

Spot SpotOn(const Specimen& specimen, Control& control) {
    const QPoint at = specimen.pointer ? specimen.pointer(control) : control.rect().center();
    QWidget* inner = control.childAt(at);
    QWidget* widget = inner ? inner : &control;
    return {widget, widget->mapFrom(&control, at)};
}

void Enter(QWidget* widget, const Control& outermost, const Spot& spot) {
    if (widget != &outermost) Enter(widget->parentWidget(), outermost, spot);
    const QPointF at = widget->mapFromGlobal(spot.widget->mapToGlobal(spot.at));
    QEnterEvent event(at, widget->mapTo(widget->window(), at), widget->mapToGlobal(at));
    QCoreApplication::sendEvent(widget, &event);
}

void SendMouse(const Spot& spot, QEvent::Type type, Qt::MouseButton button) {
    const QPointF at = spot.at;
    QMouseEvent event(type, at, spot.widget->mapTo(spot.widget->window(), at), spot.widget->mapToGlobal(at), button,
                      button, Qt::NoModifier);
    QCoreApplication::sendEvent(spot.widget, &event);
}

void Point(const Spot& spot, const Control& control) {
    Enter(spot.widget, control, spot);
    SendMouse(spot, QEvent::MouseMove, Qt::NoButton);
    QHoverEvent hover(QEvent::HoverMove, spot.at, spot.widget->mapToGlobal(spot.at), QPointF(-1, -1));
    QCoreApplication::sendEvent(spot.widget, &hover);
}

void Press(const Spot& spot, const Control& control) {
    Point(spot, control);
    for (QWidget* widget = spot.widget; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        if (!(widget->focusPolicy() & Qt::ClickFocus)) continue;
        widget->setFocus(Qt::MouseFocusReason);
        break;
    }
    SendMouse(spot, QEvent::MouseButtonPress, Qt::LeftButton);
}

void Enact(const Specimen& specimen, State state, Control& control) {
    switch (state) {
    case State::Hover: return Point(SpotOn(specimen, control), control);
    case State::Pressed: return Press(SpotOn(specimen, control), control);
    case State::Focused:
        control.setFocus(Qt::OtherFocusReason);
        if (specimen.focused) specimen.focused(control);
        return;
    default: return Apply(specimen, state, control);
    }
}

QPixmap WithPopup(const QPixmap& picture, const QPoint& pictureAt, QWidget& popup) {
    const QPoint at = popup.mapToGlobal(QPoint(0, 0)) - pictureAt;
    const QSize whole =
        QRect(QPoint(0, 0), picture.deviceIndependentSize().toSize()).united(QRect(at, popup.size())).size();
    const qreal ratio = picture.devicePixelRatio();
    QPixmap both(whole * ratio);
    both.setDevicePixelRatio(ratio);
    both.fill(Qt::transparent);
    QPainter painter(&both);
    painter.drawPixmap(0, 0, picture);
    painter.drawPixmap(at, popup.grab());
    return both;
}

}  // namespace

Stage::Stage()
    : m_activeBefore(QApplication::activeWindow()),
      m_animatedBefore(QApplication::isEffectEnabled(Qt::UI_AnimateCombo)) {
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    m_window.setAttribute(Qt::WA_DontShowOnScreen);
    m_window.resize(800, 600);
    m_window.show();
    QApplication::setActiveWindow(&m_window);
}

Stage::~Stage() {
    QApplication::setActiveWindow(m_activeBefore);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, m_animatedBefore);
}

QPixmap Stage::Picture(const Specimen& specimen, State state) {
    const std::unique_ptr<Control> control(specimen.make(&m_window));
    control->Move(ToTwips(Margin), ToTwips(Margin));
    control->show();
    for (QComboBox* box : control->findChildren<QComboBox*>())
        box->view()->window()->setAttribute(Qt::WA_DontShowOnScreen);
    Enact(specimen, state, *control);

    const QRect area = control->geometry().adjusted(-Margin, -Margin, Margin, Margin);
    QPixmap picture = m_window.grab(area);
    if (QWidget* popup = QApplication::activePopupWidget(); popup && control->isAncestorOf(popup->parentWidget())) {
        picture = WithPopup(picture, m_window.mapToGlobal(area.topLeft()), *popup);
        popup->close();
    }
    if (QWidget* focused = m_window.focusWidget()) focused->clearFocus();
    return picture;
}

void Apply(const Specimen& specimen, State state, Control& control) {
    if (state == State::Disabled) control.setEnabled(false);
    if (state == State::Empty) specimen.empty(control);
    if (state == State::Error) specimen.error(control);
}

}  // namespace quellbrook::gallery
