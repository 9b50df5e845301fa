#pragma once

#include <QScrollBar>

namespace quellbrook {

class FlatScrollBar;

// The inner bar of a FlatScrollBar: a groove, a thumb, and an arrow at each end that can be used.
class ScrollBarWidget : public QScrollBar {
    Q_OBJECT

public:
    explicit ScrollBarWidget(FlatScrollBar* owner);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    FlatScrollBar* m_owner;
};

}  // namespace quellbrook
