#pragma once

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace quellbrook::testing {

// Runs while the menu is open that the next action opens, and then closes the menu.
inline void WhileMenuOpen(std::function<void(QMenu&)> look) {
    QTimer::singleShot(0, qApp, [look = std::move(look)] {
        const QPointer<QMenu> menu(qobject_cast<QMenu*>(QApplication::activePopupWidget()));
        if (!menu) {
            ADD_FAILURE() << "No menu is open";
            return;
        }
        look(*menu);
        if (menu) menu->close();
    });
}

}  // namespace quellbrook::testing
