#include "app/ComponentLifetime.h"

#include "component/Quellbrook.h"
#include "host/HostServices.h"

#include <QApplication>
#include <QPalette>

namespace quellbrook {

ComponentLifetime::ComponentLifetime() {
    const QPalette system = QApplication::palette();
    InstallTheme(system.color(QPalette::Window).lightness() < system.color(QPalette::WindowText).lightness());
    Startup();
}

ComponentLifetime::~ComponentLifetime() {
    HostServices::Current().Reset();
    Shutdown();
}

}  // namespace quellbrook
