#include "ui/controls/Pressable.h"

#include "ui/controls/Activation.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"
#include "ui/style/FocusRing.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace quellbrook {

Pressable::Pressable(QWidget* parent) : Control(parent) {
    setFocusPolicy(Qt::StrongFocus);
    FocusRing::Show(this);
    WatchKeyRepetition();
}

void Pressable::SetCaption(const QString& caption) {
    m_caption = caption;
    if (!m_hasAccessibleCaption) setAccessibleName(caption);
    FitToText();
    updateGeometry();
    update();
}

void Pressable::SetAccessibleCaption(const QString& name) {
    m_hasAccessibleCaption = true;
    setAccessibleName(name);
}

void Pressable::SetIcon(const QString& iconName, int size) {
    m_icon = iconName;
    m_iconSize = size;
    FitToText();
    updateGeometry();
    update();
}

void Pressable::Click() {
    if (!isEnabled()) return;
    Guard([this] { emit Clicked(); });
}

void Pressable::SetState(bool hovered, bool pressed) {
    m_hovered = hovered;
    m_pressed = pressed;
    update();
}

void Pressable::enterEvent(QEnterEvent*) { SetState(true, m_pressed); }
void Pressable::leaveEvent(QEvent*) { SetState(false, m_pressed); }

void Pressable::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    SetState(true, true);
}

void Pressable::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const bool clicked = m_pressed && rect().contains(event->position().toPoint());
    SetState(m_hovered, false);
    if (clicked) Click();
}

void Pressable::keyPressEvent(QKeyEvent* event) {
    if (IsActivation(*event))
        Click();
    else
        Control::keyPressEvent(event);
}

void Pressable::focusOutEvent(QFocusEvent* event) {
    Control::focusOutEvent(event);
    SetState(m_hovered, false);
}

void Pressable::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    update();
}

}  // namespace quellbrook
