#include "ui/controls/PictureBox.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QPainter>

namespace quellbrook {

PictureBox::PictureBox(QWidget* parent) : Control(parent) { SetAccessibleRole(QAccessible::Graphic); }

void PictureBox::SetImage(const QImage& image, const QSize& largest) {
    m_image = image;
    QSize size = image.deviceIndependentSize().toSize();
    if (largest.isValid() && size.boundedTo(largest) != size) {
        size = size.scaled(largest, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
        const qreal ratio = devicePixelRatioF();
        m_image = image.scaled((QSizeF(size) * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_image.setDevicePixelRatio(ratio);
    }
    Move(Left(), Top(), ToTwips(size.width()), ToTwips(size.height()));
    update();
}

void PictureBox::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.drawImage(QPoint(), m_image);
    });
}

}  // namespace quellbrook
