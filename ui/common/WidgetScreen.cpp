#include "ui/common/WidgetScreen.h"

#include "base/Error.h"
#include "ui/common/DesktopCommandRunner.h"
#include "ui/common/Dialogs.h"
#include "ui/common/ModalDialog.h"
#include "ui/common/WindowOwner.h"
#include "ui/platform/Pictures.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/platform/WidgetKeyState.h"
#include "ui/platform/WidgetMessageHook.h"
#include "ui/platform/WidgetTimer.h"

#include <QApplication>
#include <QMessageBox>

namespace quellbrook {

Environment WidgetEnvironment() {
    static WidgetScreen screen;
    Environment environment = GetEnvironment();
    environment.screen = &screen;
    environment.makeTimer = [] { return std::make_unique<WidgetTimer>(); };
    environment.isKeyDown = WidgetKeyState();
    environment.makeMessageHook = MakeWidgetMessageHook;
    environment.runCommand = RunInDesktop;
    environment.loadPicture = ReadPicture;
    return environment;
}

int32_t WidgetScreen::ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) {
    frmModal form;
    form.SetPrompt(prompt);
    form.SetButtons(buttons);
    form.SetTitle(title);
    ShowFormCentered(form);
    return form.Result();
}

void WidgetScreen::ShowPlainMessage(const std::string& text, const std::string& title) {
    QMessageBox box(QMessageBox::Critical, ToQString(title), ToQString(text), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    SetOwner(box, QApplication::activeWindow());
    box.exec();
}

void WidgetScreen::SetDialogParent(ObjectRef window) { GetDialogs().SetParent(std::move(window)); }

std::unique_ptr<SetupWizard> WidgetScreen::RunSetupWizard() {
    Raise(ErrorNumber::General, "WidgetScreen.RunSetupWizard",
          "The wizard for storage locations is not available here.");
}

double WidgetScreen::TwipsPerPixelY() const {
    const QWidget* active = QApplication::activeWindow();
    return TwipsPerPixel / (active ? active->devicePixelRatioF() : qGuiApp->devicePixelRatio());
}

int32_t WidgetScreen::OpenFormCount() const { return ModuleForm::Count(); }

}  // namespace quellbrook
