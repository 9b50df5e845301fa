#include "ui/items/GoBack.h"

#include "core/Actions.h"
#include "ui/controls/Link.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"
#include "ui/platform/Twips.h"

#include <QKeyEvent>

namespace quellbrook {

bool GoBackByKey(const QKeyEvent& event) {
    const bool isEscape = event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier;
    const bool isAltLeft = event.key() == Qt::Key_Left && (event.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
    if (!isEscape && !isAltLeft) return false;
    if (!IsRepetition(event)) Guard([] { GetActions().GoBack(); });
    return true;
}

Link* AddCloseLink(QWidget* titleArea, int height) {
    constexpr int iconSize = 24;
    auto* close = new Link(titleArea);
    close->setObjectName("lnkClose");
    close->SetIcon("close", iconSize);
    close->SetHeight(ToTwips(height));
    close->SetQuiet(true);
    close->SetAccessibleCaption("Close");
    QObject::connect(close, &Link::Clicked, close, [] { Guard([] { GetActions().GoBack(); }); });
    return close;
}

}  // namespace quellbrook
