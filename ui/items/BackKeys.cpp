#include "ui/items/BackKeys.h"

#include "core/Actions.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"

#include <QKeyEvent>

namespace quellbrook {

bool GoBackByKey(const QKeyEvent& event) {
    const bool isEscape = event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier;
    const bool isAltLeft = event.key() == Qt::Key_Left && (event.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
    if (!isEscape && !isAltLeft) return false;
    if (!IsRepetition(event)) Guard([] { GetActions().GoBack(); });
    return true;
}

}  // namespace quellbrook
