#pragma once

#include "ui/controls/Control.h"

#include <exception>

namespace quellbrook {

// A control with a life of its own: Shown() and Hidden() run when it comes on show and goes, not when a window is
// minimised or restored; a container's Shown() runs before those of the views inside it; each once for each coming.
// Hidden() runs at destruction too, when the view was on show. At design time neither runs.
class View : public Control {
    Q_OBJECT

public:
    explicit View(QWidget* parent = nullptr);
    ~View() override;

    // The error that Shown() failed with at the last coming, raised again once; without one nothing happens. Whoever
    // shows a view and wants to know calls this after show(). An error that nobody has asked for when control returns
    // to the event loop goes to ReportUnexpected.
    void RaiseShowError();

protected:
    virtual void Shown() {}
    virtual void Hidden() {}

    // To be called by a subclass's destructor when its Hidden() must run at destruction.
    void LeaveShow();

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void ComeOnShow();

    bool m_onShow = false;
    std::exception_ptr m_showError;
};

// Whether controls run inside a form designer, where they read no data and show nothing or samples.
bool IsInsideDesigner();
void SetInsideDesigner(bool inside);

}  // namespace quellbrook
