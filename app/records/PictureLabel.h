#pragma once

#include "base/Picture.h"

#include <QImage>
#include <QLabel>

namespace quellbrook {

// A picture in a hairline frame, with all the device pixels of the window that it is in.
class PictureLabel : public QLabel {
    Q_OBJECT

public:
    // As large as the picture is, frame and all not larger than the room; the proportions stay. Where the picture lets
    // the ground through, the ground is white.
    PictureLabel(const Picture& picture, const QSize& room, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void FitTo(qreal devicePixelRatio);

    QImage m_picture;
    QSize m_size;  // device-independent pixels, without the frame
};

}  // namespace quellbrook
