#include "ui/common/FirstLetterKeys.h"

#include "ui/platform/Guard.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace quellbrook {

namespace {

// The empty letter means any.
QAction* NextEntry(const QMenu& menu, const QString& letter) {
    QList<QAction*> entries = menu.actions();
    std::rotate(entries.begin(), entries.begin() + entries.indexOf(menu.activeAction()) + 1, entries.end());
    const auto next = std::find_if(entries.cbegin(), entries.cend(), [&](const QAction* entry) {
        return entry->isVisible() && entry->isEnabled() && entry->text().startsWith(letter, Qt::CaseInsensitive);
    });
    return next == entries.cend() ? nullptr : *next;
}

// A submenu opens with its first entry highlighted, as with the arrow keys.
void Highlight(QMenu& menu, QAction& entry) {
    menu.setActiveAction(&entry);
    QMenu* submenu = entry.menu();
    if (submenu && submenu->isVisible()) submenu->setActiveAction(NextEntry(*submenu, QString()));
}

}  // namespace

FirstLetterKeys::FirstLetterKeys(QMenu& menu) {
    menu.installEventFilter(this);
    for (const QAction* entry : menu.actions())
        if (entry->menu()) entry->menu()->installEventFilter(this);
}

bool FirstLetterKeys::eventFilter(QObject* watched, QEvent* event) {
    auto* menu = qobject_cast<QMenu*>(watched);
    if (!menu || event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isLetter = key.text().size() == 1 && key.text().front().isLetterOrNumber();
    if (!isLetter || key.modifiers() & Qt::AltModifier) return false;
    QAction* next = NextEntry(*menu, key.text());
    if (next) Guard([&] { Highlight(*menu, *next); });
    return next != nullptr;
}

}  // namespace quellbrook
