#include "ui/controls/View.h"

#include "ui/platform/Guard.h"

#include <QHideEvent>
#include <QPointer>
#include <QShowEvent>

#include <utility>

namespace quellbrook {

namespace {

bool insideDesigner = false;

View* ContainingView(const QWidget* widget) {
    for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
        if (auto* view = qobject_cast<View*>(parent)) return view;
    return nullptr;
}

void Report(std::exception_ptr error) {
    if (error) ReportUnexpected(ToError(error));
}

}  // namespace

bool IsInsideDesigner() { return insideDesigner; }
void SetInsideDesigner(bool inside) { insideDesigner = inside; }

View::View(QWidget* parent) : Control(parent) {}

View::~View() { Report(std::exchange(m_showError, nullptr)); }

void View::RaiseShowError() {
    if (auto error = std::exchange(m_showError, nullptr)) std::rethrow_exception(error);
    for (View* inner : findChildren<View*>())
        if (auto error = std::exchange(inner->m_showError, nullptr)) std::rethrow_exception(error);
}

void View::showEvent(QShowEvent* event) {
    Control::showEvent(event);
    if (event->spontaneous() || IsInsideDesigner()) return;
    // Qt shows children first, so wait until the containing view is shown.
    const View* around = ContainingView(this);
    if (around && !around->m_isShown) return;
    BecomeShown();
}

void View::hideEvent(QHideEvent* event) {
    Control::hideEvent(event);
    if (!event->spontaneous()) LeaveShow();
}

void View::BecomeShown() {
    if (m_isShown) return;
    m_isShown = true;
    const QPointer<View> self(this);
    try {
        Shown();
    } catch (...) {
        if (!self) return Report(std::current_exception());
        m_showError = std::current_exception();
        QMetaObject::invokeMethod(
            this, [this] { Report(std::exchange(m_showError, nullptr)); }, Qt::QueuedConnection);
    }
    if (!self) return;

    std::vector<QPointer<View>> waiting;
    for (View* inner : findChildren<View*>())
        if (ContainingView(inner) == this) waiting.emplace_back(inner);
    for (const QPointer<View>& inner : waiting)
        if (self && m_isShown && inner && inner->isVisible()) inner->BecomeShown();
}

void View::LeaveShow() {
    if (!std::exchange(m_isShown, false)) return;
    Guard([this] { Hidden(); });
}

}  // namespace quellbrook
