#pragma once

#include <QComboBox>

namespace quellbrook {

// A dropdown in the look of the host's fields. The wheel turns the page under it and not the choice, which takes effect
// at once.
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
