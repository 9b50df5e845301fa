#include "app/scanner/LabelPreview.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr QSize usualSize(480, 242), leastSize(200, 120);
constexpr int frame = 1;

}  // namespace

LabelPreview::LabelPreview(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize LabelPreview::sizeHint() const { return usualSize; }

QSize LabelPreview::minimumSizeHint() const { return leastSize; }

void LabelPreview::Show(const QImage& picture) {
    m_picture = picture;
    m_picture.setDevicePixelRatio(1);
    m_scaled = QImage();
    m_sentence.clear();
    setAccessibleName(tr("Picture of the test label"));
    update();
}

void LabelPreview::Explain(const QString& sentence) {
    m_picture = m_scaled = QImage();
    m_sentence = sentence;
    setAccessibleName(sentence);
    update();
}

QRect LabelPreview::PictureRect() const {
    if (m_picture.isNull()) return {};
    const QSize available = (size() - QSize(2 * frame, 2 * frame)).expandedTo({1, 1});
    const QSize whole = m_picture.size() / devicePixelRatioF();
    const QSize shown = whole.scaled(available.boundedTo(whole), Qt::KeepAspectRatio).expandedTo({1, 1});
    return {QPoint(frame, frame), shown};
}

void LabelPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_picture.isNull()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap, m_sentence);
        return;
    }
    const QRect target = PictureRect();
    const QSize pixels = target.size() * devicePixelRatioF();
    if (m_scaled.size() != pixels) m_scaled = m_picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(target.adjusted(-frame, -frame, 0, 0));
    painter.drawImage(target, m_scaled);
}

}  // namespace quellbrook
