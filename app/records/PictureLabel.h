#pragma once

#include "base/Picture.h"

#include <QImage>
#include <QLabel>

namespace quellbrook {

// A picture in a hairline frame, drawn at the window's device resolution.
class PictureLabel : public QLabel {
    Q_OBJECT

public:
    // Shows the picture at its own size, or scaled down with its frame to `bounds`. Transparent pixels are white.
    PictureLabel(const Picture& picture, const QSize& bounds, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void FitTo(qreal devicePixelRatio);

    QImage m_picture;
    QSize m_size;  // device-independent pixels, without the frame
};

}  // namespace quellbrook
