#pragma once

#include "ui/controls/Control.h"

#include <exception>

namespace quellbrook {

// A control with show and hide notifications, one of each per appearance. Minimizing or restoring the window raises
// neither. A container's Shown() runs before that of the views inside it. Hidden() also runs at destruction if the view
// was visible and its destructor calls LeaveShow(). At design time, neither runs.
class View : public Control {
    Q_OBJECT

public:
    explicit View(QWidget* parent = nullptr);
    ~View() override;

    // Raises the error of the last Shown() once; does nothing if there is none. Call it after show(). An error that is
    // not fetched by the next turn of the event loop goes to ReportUnexpected.
    void RaiseShowError();

    // What gets the focus when the view replaces another one. The view itself passes it to its first control.
    virtual QWidget* FirstFocus() { return this; }

protected:
    virtual void Shown() {}
    virtual void Hidden() {}

    // Call it in a subclass's destructor if Hidden() must run at destruction.
    void LeaveShow();

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void BecomeShown();

    bool m_isShown = false;
    std::exception_ptr m_showError;
};

// Whether controls run inside a form designer, where they read no data and show nothing or sample data.
bool IsInsideDesigner();
void SetInsideDesigner(bool inside);

}  // namespace quellbrook
