#include "ui/common/Dialogs.h"

#include "base/Error.h"
#include "ui/common/WindowOwner.h"
#include "ui/common/WindowShade.h"

#include <QScreen>

#include <algorithm>

namespace quellbrook {

namespace {

QRect OnScreen(const QWidget& window) {
    return window.isWindow() ? window.frameGeometry() : QRect(window.mapToGlobal(QPoint()), window.size());
}

// Centers over the parent, but keeps the form on the parent's screen.
QPoint PlaceOver(const QWidget& parent, const QSize& form) {
    const QRect over = OnScreen(parent);
    const QPoint centered(over.left() + over.width() / 2 - form.width() / 2,
                          over.top() + over.height() / 2 - form.height() / 2);
    const QRect available = parent.screen()->availableGeometry();
    return QPoint(std::max(available.left(), std::min(centered.x(), available.right() + 1 - form.width())),
                  std::max(available.top(), std::min(centered.y(), available.bottom() + 1 - form.height())));
}

}  // namespace

void Dialogs::SetParent(ObjectRef parent) {
    auto window = std::dynamic_pointer_cast<WindowReference>(parent);
    if (parent && !window) Raise(ErrorNumber::TypeMismatch, "Dialogs.SetParent");
    m_parent = std::move(window);
}

QWidget* Dialogs::GetParent() const { return m_parent ? m_parent->Window() : nullptr; }

TaggedValue Dialogs::ShowForm(ModuleForm& form) {
    form.EnsureLoaded();
    QWidget* parent = GetParent();
    if (!parent) Raise(ErrorNumber::NullObject, "Dialogs.ShowForm", "No dialog parent has been set.");
    form.setWindowModality(Qt::ApplicationModal);
    // First before SetOwner creates the native window: if a window is moved between its creation and its first show,
    // the window manager may report the corner of the screen. Then again to account for a frame.
    const auto moveForm = [&] { form.move(PlaceOver(*parent, form.frameGeometry().size())); };
    moveForm();
    SetOwner(form, parent);
    moveForm();
    const WindowShade shade(parent->window());
    form.exec();
    return {};
}

Dialogs& GetDialogs() {
    static Dialogs dialogs;
    return dialogs;
}

void ShowFormCentered(ModuleForm& form) { GetDialogs().ShowForm(form); }

}  // namespace quellbrook
