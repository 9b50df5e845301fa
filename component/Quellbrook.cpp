#include "component/Quellbrook.h"

#include "base/Environment.h"
#include "component/UseCount.h"
#include "core/Singletons.h"
#include "core/Stores.h"
#include "database/LockWait.h"
#include "ui/accessibility/Accessibility.h"
#include "ui/common/Dialogs.h"
#include "ui/common/WidgetScreen.h"
#include "ui/locations/SetupLocationsForm.h"
#include "ui/platform/Repaint.h"
#include "ui/style/FlatStyle.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Theme.h"

#include <QApplication>

#include <optional>
#include <thread>

namespace quellbrook {

namespace {

int startups = 0;

Environment EnvironmentWithWizard() {
    static WizardScreen screen;
    Environment environment = WidgetEnvironment();
    environment.screen = &screen;
    return environment;
}

// What exists while the component is started.
struct Started {
    UseCount use;
    EnvironmentScope environment{EnvironmentWithWizard()};
};
std::optional<Started> started;

void PauseForLock(std::chrono::milliseconds time) {
    constexpr std::chrono::milliseconds noticeable(50);
    if (time >= noticeable) RepaintWindows();
    std::this_thread::sleep_for(time);
}

}  // namespace

void Startup() {
    if (startups == 0) {
        InstallAccessibility();
        started.emplace();
        SetLockPause(PauseForLock);
    }
    ++startups;
}

void Shutdown() {
    if (startups == 0 || --startups > 0) return;
    GetSingletons().Reset();
    SetLockPause(nullptr);
    started.reset();
}

void InstallTheme(bool dark) {
    QApplication::setStyle(new FlatStyle);
    Theme::Install(dark);
}

void ShowFocusRing(QWidget* control) { FocusRing::Show(control); }

void SetDialogParent(QWidget* window) { GetSingletons().SetDialogParent(std::make_shared<WindowReference>(window)); }

bool InitializeQuellbrook() { return GetSingletons().InitializeQuellbrook(); }

int ItemsInOpenBatch() { return GetStores().Cart->GetItems()->Count(); }

}  // namespace quellbrook
