#include "ui/common/WindowOwner.h"

#include <QWidget>
#include <QWindow>

namespace quellbrook {

void SetOwner(QWidget& form, const QWidget* owner) {
    form.winId();
    form.windowHandle()->setTransientParent(owner ? owner->window()->windowHandle() : nullptr);
}

}  // namespace quellbrook
