#pragma once

#include "ui/controls/Label.h"

namespace quellbrook {

// A one-line label in the widget's font instead of a font of the theme. Sizes itself to its text.
class FontLabel : public Label {
    Q_OBJECT

public:
    explicit FontLabel(QWidget* parent = nullptr) : Label(parent) {}

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quellbrook
