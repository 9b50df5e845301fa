#pragma once

#include "ui/controls/Pressable.h"

namespace quellbrook {

// A push button. An inverted button has a border and dark text instead of the strong background.
class FlatButton : public Pressable {
    Q_OBJECT
    Q_PROPERTY(bool Inverted READ Inverted WRITE SetInverted)

public:
    explicit FlatButton(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatButton"; }

    bool Inverted() const { return m_inverted; }
    void SetInverted(bool inverted);

    QSize sizeHint() const override;  // the caption and icon with the button's margins

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_inverted = false;
};

}  // namespace quellbrook
