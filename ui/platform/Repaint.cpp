#include "ui/platform/Repaint.h"

#include <QApplication>
#include <QWidget>

namespace quellbrook {

void RepaintWindows() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible()) window->repaint();
}

}  // namespace quellbrook
