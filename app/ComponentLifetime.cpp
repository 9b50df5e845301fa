#include "app/ComponentLifetime.h"

#include "app/SystemTheme.h"
#include "component/Quellbrook.h"
#include "host/HostServices.h"

namespace quellbrook {

ComponentLifetime::ComponentLifetime() {
    InstallTheme(HasDarkPalette());
    Startup();
}

ComponentLifetime::~ComponentLifetime() {
    HostServices::Current().Reset();
    Shutdown();
}

}  // namespace quellbrook
