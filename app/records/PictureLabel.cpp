#include "app/records/PictureLabel.h"

#include "app/common/ThemedSheet.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr int frame = 1;

QImage OnWhite(const Picture& picture) {
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                       picture.width * static_cast<qsizetype>(sizeof(uint32_t)), QImage::Format_ARGB32);
    QImage onWhite(image.size(), QImage::Format_RGB32);
    onWhite.fill(Qt::white);
    QPainter(&onWhite).drawImage(0, 0, image);
    return onWhite;
}

}  // namespace

PictureLabel::PictureLabel(const Picture& picture, const QSize& bounds, QWidget* parent)
    : QLabel(parent), m_picture(OnWhite(picture)) {
    const QSize inside = bounds - QSize(2 * frame, 2 * frame);
    m_size = (QSizeF(m_picture.size()) / picture.scale).toSize();
    if (m_size.width() > inside.width() || m_size.height() > inside.height()) m_size.scale(inside, Qt::KeepAspectRatio);
    m_size = m_size.expandedTo(QSize(1, 1));
    setObjectName(QStringLiteral("picture"));
    SetThemedSheet(this, QStringLiteral("border: %1px solid palette(mid);").arg(frame));
    setFixedSize(m_size + QSize(2 * frame, 2 * frame));
    FitTo(devicePixelRatioF());
}

void PictureLabel::FitTo(qreal devicePixelRatio) {
    QPixmap fitted = QPixmap::fromImage(m_picture.scaled((QSizeF(m_size) * devicePixelRatio).toSize(),
                                                         Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    fitted.setDevicePixelRatio(devicePixelRatio);
    setPixmap(fitted);
}

// The ratio is known only after the window is shown on a screen, and it changes with the screen.
void PictureLabel::paintEvent(QPaintEvent* event) {
    if (pixmap(Qt::ReturnByValue).devicePixelRatio() != devicePixelRatioF()) FitTo(devicePixelRatioF());
    QLabel::paintEvent(event);
}

}  // namespace quellbrook
