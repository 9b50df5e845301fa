#include "ui/controls/GroupBox.h"

#include "ui/platform/Guard.h"

#include <QPainter>

namespace quellbrook {

GroupBox::GroupBox(QWidget* parent) : Control(parent) {}

void GroupBox::SetBackColor(Theme::Color color) {
    m_themeColor = color;
    m_fixedColor.reset();
    update();
}

void GroupBox::SetBackColor(const QColor& color) {
    m_fixedColor = color;
    m_themeColor.reset();
    update();
}

void GroupBox::SetFramed(bool framed) {
    m_framed = framed;
    update();
}

QColor GroupBox::BackColor() const {
    if (m_fixedColor) return *m_fixedColor;
    return Theme::Get(m_themeColor.value_or(Theme::Color::Window));
}

void GroupBox::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        const bool filled = m_fixedColor || m_themeColor;
        if (!filled && !m_framed) return;
        QPainter painter(this);
        if (!m_framed) return painter.fillRect(rect(), BackColor());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Theme::Get(Theme::Color::Hairline));
        painter.setBrush(filled ? QBrush(BackColor()) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Radius, Theme::Radius);
    });
}

}  // namespace quellbrook
