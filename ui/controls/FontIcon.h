#pragma once

#include "ui/controls/Control.h"
#include "ui/style/Theme.h"

namespace quellbrook {

// One of our icons as a control. An empty name shows nothing. The accessible name is the icon's unless another is set.
// "busy" is a ring that rotates while it is visible.
class FontIcon : public Control {
    Q_OBJECT

public:
    explicit FontIcon(QWidget* parent = nullptr);
    ~FontIcon() override;
    std::string TypeName() const override { return "FontIcon"; }

    const QString& IconName() const { return m_icon; }
    void SetIcon(const QString& iconName, int size);  // size in pixels, also of the control
    void SetForeColor(Theme::Color color);
    void SetForeColor(const QColor& color);
    // Whether the icon is gray while it or a parent is disabled; initially true.
    void SetDimsWhenDisabled(bool dims) { m_dimsWhenDisabled = dims; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Turn(bool turn);

    QString m_icon;
    int m_size = 20;
    int m_angle = 0;
    int m_timerId = 0;
    bool m_dimsWhenDisabled = true;
    QColor m_fixedColor;
    Theme::Color m_themeColor = Theme::Color::Text;
};

}  // namespace quellbrook
