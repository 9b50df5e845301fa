#include "component/Quellbrook.h"

#include "base/Environment.h"
#include "core/Singletons.h"
#include "ui/accessibility/Accessibility.h"
#include "ui/common/Dialogs.h"
#include "ui/common/WidgetScreen.h"
#include "ui/shell/EvidenceUI.h"
#include "ui/style/FlatStyle.h"
#include "ui/style/Theme.h"

#include <QApplication>

namespace quellbrook {

namespace {

int startups = 0;
std::unique_ptr<EnvironmentScope> installed;

}  // namespace

void Startup() {
    if (startups == 0) {
        InstallAccessibility();
        installed = std::make_unique<EnvironmentScope>(WidgetEnvironment());
    }
    ++startups;
}

void Shutdown() {
    if (startups == 0 || --startups > 0) return;
    GetSingletons().Reset();
    installed.reset();
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
