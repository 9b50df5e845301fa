#pragma once

#include "ui/controls/Control.h"
#include "ui/style/Theme.h"

namespace quellbrook {

// A horizontal or vertical rule, as thick as its shorter side.
class Line : public Control {
    Q_OBJECT

public:
    explicit Line(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Line"; }
    void SetColor(Theme::Color color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Theme::Color m_color = Theme::Color::Hairline;
};

}  // namespace quellbrook
