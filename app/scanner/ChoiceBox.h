#pragma once

#include <QComboBox>

namespace quellbrook {

// A dropdown in the style of the host's fields. The wheel scrolls the page instead of changing the choice.
class ChoiceBox : public QComboBox {
    Q_OBJECT

public:
    ChoiceBox(const QString& accessibleName, QWidget* parent);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quellbrook
