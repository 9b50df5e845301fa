#pragma once

#include <QComboBox>

namespace quellbrook {

// The inner box of a FlatDropdown: paints the chosen text and the arrow, leaves ground and border to its parent. The
// list is as wide as its widest entry where the screen has room. The wheel does not change its choice, so that
// scrolling over a form alters nothing.
class DropdownBox : public QComboBox {
    Q_OBJECT

public:
    explicit DropdownBox(QWidget* parent);

    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quellbrook
