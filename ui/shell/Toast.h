#pragma once

#include "ui/controls/Control.h"
#include "ui/shell/LinearAnimation.h"

#include <memory>
#include <string>

namespace quellbrook {

class FontIcon;
class Label;

// A line of text that slides up from the bottom edge of its parent, or from the controls that are docked there, stays
// for five seconds and slides away. A click hides it.
class Toast : public Control {
    Q_OBJECT

public:
    explicit Toast(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Toast"; }

    // Restarts with this text if one is already visible.
    void Popup(const std::string& message);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    // The animation; null inside a designer.
    struct Motion {
        explicit Motion(Toast& toast);
        bool InProgress() const { return slideUp.InProgress() || slideDown.InProgress(); }

        std::unique_ptr<Timer> toastTimer;
        LinearAnimation slideUp;
        LinearAnimation slideDown;
        Subscription slideUpSubscription;
        Subscription slideDownSubscription;
    };

    void BuildControls();
    void FirstShow();
    float CollapsedHeight() const;
    void Slide(LinearAnimation& animation, float from, float to);
    void Announce();
    void SlideUp_Finished();
    void SlideDown_Finished();
    void ToastTimer_Elapsed();

    float m_expandedHeight;
    bool m_wasShown = false;
    FontIcon* m_icon = nullptr;
    Label* m_message = nullptr;
    std::unique_ptr<Motion> m_motion;
};

}  // namespace quellbrook
