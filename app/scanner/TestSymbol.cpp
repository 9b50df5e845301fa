#include "app/scanner/TestSymbol.h"

#include "app/common/PlainLabels.h"
#include "host/BarcodeImage.h"
#include "labels/BarcodeSymbol.h"

#include <QPainter>

#include <cmath>

namespace quellbrook {

namespace {

constexpr int padding = 12, barHeight = 64, gap = 6, textSize = 14;
constexpr double twipsPerPixel = 15;

// In device pixels.
QImage BarsOf(const std::string& text, double ratio) {
    BarcodeImage barcode;
    barcode.SetSymbology(1);
    barcode.SetHeight(barHeight * twipsPerPixel);
    barcode.SetTwipsPerPixel(twipsPerPixel / ratio);
    barcode.SetText(text);
    const Picture picture = barcode.GetPicture();
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                       picture.width * static_cast<int>(sizeof(uint32_t)), QImage::Format_ARGB32);
    return image.copy();
}

}  // namespace

TestSymbol::TestSymbol(std::string text, QWidget* parent)
    : QWidget(parent), m_text(std::move(text)), m_readable(QString::fromStdString(ReadableText(m_text))) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Test label on the screen, %1").arg(m_readable));
}

QSize TestSymbol::sizeHint() const {
    const double ratio = devicePixelRatioF();
    const int barsWidth = static_cast<int>(std::ceil(BarsOf(m_text, ratio).width() / ratio));
    const int textHeight = QFontMetrics(SizedFont(textSize, QFont::Medium)).height();
    return QSize(barsWidth, barHeight + gap + textHeight) + QSize(2 * padding, 2 * padding);
}

void TestSymbol::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    const QImage bars = BarsOf(m_text, devicePixelRatioF());
    painter.save();
    const QTransform toDevice = painter.deviceTransform();
    painter.resetTransform();
    painter.setWorldTransform(painter.deviceTransform().inverted());
    const double left = (width() - bars.width() / devicePixelRatioF()) / 2;
    const QPoint at = toDevice.map(QPointF(left, padding)).toPoint();
    painter.drawImage(QRect(at, bars.size()), bars);
    painter.restore();

    painter.setPen(Qt::black);
    painter.setFont(SizedFont(textSize, QFont::Medium));
    painter.drawText(rect().adjusted(padding, 0, -padding, -padding), Qt::AlignHCenter | Qt::AlignBottom, m_readable);
}

}  // namespace quellbrook
