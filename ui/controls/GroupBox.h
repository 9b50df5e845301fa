#pragma once

#include "ui/controls/Control.h"
#include "ui/controls/Theme.h"

#include <optional>

namespace quellbrook {

// A plain container with a ground and, if asked for, a hairline frame. No caption.
class GroupBox : public Control {
    Q_OBJECT

public:
    explicit GroupBox(QWidget* parent = nullptr);
    std::string TypeName() const override { return "GroupBox"; }

    void SetBackColor(Theme::Color color);
    void SetBackColor(const QColor& color);
    void SetTransparent();  // no ground of its own; the state at first
    void SetFramed(bool framed);
    QColor BackColor() const;  // the ground as painted; the window's when transparent

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<Theme::Color> m_themeColor;
    std::optional<QColor> m_fixedColor;
    bool m_framed = false;
};

}  // namespace quellbrook
