#pragma once

#include "ui/controls/Control.h"

#include <QImage>

namespace quellbrook {

// A picture, drawn at the window's device resolution. Transparent pixels are white.
class PictureBox : public Control {
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent = nullptr);
    std::string TypeName() const override { return "PictureBox"; }

    // Takes the picture's size in device-independent pixels, reduced in proportion to a valid `largest`. A null image
    // has no size.
    void SetImage(const QImage& image, const QSize& largest = QSize());

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
};

}  // namespace quellbrook
