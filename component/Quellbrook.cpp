#include "component/Quellbrook.h"

#include "base/CommandRunner.h"
#include "base/KeyState.h"
#include "base/MessageHook.h"
#include "base/Screen.h"
#include "base/Timer.h"
#include "core/Dispatcher.h"
#include "core/Singletons.h"
#include "core/Stores.h"
#include "host/Picture.h"
#include "ui/accessibility/Accessibility.h"
#include "ui/common/DesktopCommandRunner.h"
#include "ui/common/Dialogs.h"
#include "ui/common/WidgetScreen.h"
#include "ui/shell/EvidenceUI.h"
#include "ui/style/FlatStyle.h"
#include "ui/style/Theme.h"

#include <QApplication>

namespace quellbrook {

void Startup() {
    InstallAccessibility();
    WidgetScreen::Install();
    InstallDesktopCommandRunner();
}

void Shutdown() {
    DiscardStores();
    DiscardDispatcher();
    GetSingletons().SetDialogParent(nullptr);
    SetCommandRunner(nullptr);
    SetPictureLoader(nullptr);
    SetMessageHookFactory(nullptr);
    SetKeyStateProbe(nullptr);
    SetTimerFactory(nullptr);
    SetScreen(nullptr);
}

void InstallTheme(bool dark) {
    QApplication::setStyle(new FlatStyle);
    Theme::Install(dark);
}

void SetDialogParent(QWidget* window) { GetSingletons().SetDialogParent(std::make_shared<WindowReference>(window)); }

bool InitializeQuellbrook() { return GetSingletons().InitializeQuellbrook(); }

QWidget* CreateEvidenceUI(QWidget* parent) {
    auto* control = new EvidenceUI(parent);
    control->hide();
    return control;
}

}  // namespace quellbrook
