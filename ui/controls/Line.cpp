#include "ui/controls/Line.h"

#include "ui/platform/Guard.h"

#include <QPainter>

namespace quellbrook {

Line::Line(QWidget* parent) : Control(parent) {}

void Line::SetColor(Theme::Color color) {
    m_color = color;
    update();
}

void Line::paintEvent(QPaintEvent*) {
    GuardPainting([this] { QPainter(this).fillRect(rect(), Theme::Get(m_color)); });
}

}  // namespace quellbrook
