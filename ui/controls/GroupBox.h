#pragma once

#include "ui/controls/Control.h"
#include "ui/style/Theme.h"

#include <optional>

namespace quellbrook {

// A container with an optional background and hairline frame. No caption.
class GroupBox : public Control {
    Q_OBJECT

public:
    explicit GroupBox(QWidget* parent = nullptr);
    std::string TypeName() const override { return "GroupBox"; }

    void SetBackColor(Theme::Color color);
    void SetBackColor(const QColor& color);
    void SetFramed(bool framed);
    QColor BackColor() const;  // as painted; without one, the window's

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<Theme::Color> m_themeColor;
    std::optional<QColor> m_fixedColor;
    bool m_framed = false;
};

}  // namespace quellbrook
