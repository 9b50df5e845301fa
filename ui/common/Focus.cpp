#include "base/Screen.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Control.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"

#include <QApplication>
#include <QPointer>

namespace quellbrook {

namespace {

// The number of calls since the last message, and the nesting depth of the current call. Only the message resets the
// count, so it also appears after enough calls that are not a loop.
int32_t focusCallCount = 0;
int32_t focusCallDepth = 0;

constexpr int32_t MostFocusCalls = 200;

// The named control that contains the focused widget, since the widgets inside a control are internal.
const QWidget* ActiveControl() {
    const QWidget* focused = QApplication::focusWidget();
    if (!focused && QApplication::activeWindow()) focused = QApplication::activeWindow()->focusWidget();
    for (const QWidget* widget = focused; widget; widget = widget->parentWidget())
        if (qobject_cast<const Control*>(widget) && !widget->objectName().isEmpty()) return widget;
    return focused;
}

void ShowFocusLoop(const QWidget* control) {
    const std::string wanted = DescribeControl(control);
    ShowMessage(
        "The program is trying to give '" + wanted + "' input focus, but " + DescribeControl(ActiveControl()) +
            " won't relinquish it.\r\n\r\n"
            "Please take a screenshot of this error and tell a developer. The program will try to correct itself "
            "now, but if this message keeps re-apearing, end this process from the Task Manager.\r\n\r\n"
            "[TrySetFocus(" +
            wanted + "), callCount = " + std::to_string(focusCallCount) +
            ", callDepth = " + std::to_string(focusCallDepth) + "]",
        MessageStyle::Critical, "Focus Loop Detected!");
}

bool TakesFocus(const QWidget* widget) { return widget->isVisible() && widget->isEnabled(); }

// A container passes the focus to its first child in tab order that accepts it.
QWidget* FocusTarget(QWidget* control) {
    if (control->focusProxy() || control->focusPolicy() != Qt::NoFocus) return control;
    for (QWidget* next = control->nextInFocusChain(); next && next != control; next = next->nextInFocusChain())
        if (control->isAncestorOf(next) && TakesFocus(next) && (next->focusPolicy() & Qt::TabFocus)) return next;
    return control;
}

}  // namespace

void TrySetFocus(QWidget* control) {
    const QPointer<QWidget> wanted(control);
    if (focusCallCount >= MostFocusCalls) {
        GuardSilently([&] { ShowFocusLoop(wanted); });
        focusCallCount = 0;
        focusCallDepth = 0;
    }
    ++focusCallCount;
    ++focusCallDepth;
    GuardSilently([&] {
        if (wanted && TakesFocus(wanted)) FocusTarget(wanted)->setFocus();
    });
    --focusCallDepth;
}

std::string DescribeControl(const QWidget* control) {
    if (!control) return "<no control>";
    const std::string name = ToUtf8(control->objectName());
    const auto* member = qobject_cast<const Control*>(control);
    return member && member->Index() >= 0 ? name + "(" + std::to_string(member->Index()) + ")" : name;
}

}  // namespace quellbrook
