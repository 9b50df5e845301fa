#include "ui/common/WidgetScreen.h"

#include "base/Error.h"
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
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>

namespace quellbrook {

void WidgetScreen::Install() {
    static WidgetScreen screen;
    SetScreen(&screen);
    InstallWidgetTimers();
    InstallWidgetKeyState();
    InstallWidgetMessageHook();
    InstallPictureLoader();
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

std::shared_ptr<SetupWizard> WidgetScreen::MakeSetupWizard() {
    Raise(ErrorNumber::General, "WidgetScreen.MakeSetupWizard",
          "The wizard for storage locations is not available here.");
}

void WidgetScreen::WaitForMessages() {
    QEventLoop loop;
    QTimer rest;
    rest.setSingleShot(true);
    rest.setTimerType(Qt::PreciseTimer);
    QObject::connect(&rest, &QTimer::timeout, &loop, &QEventLoop::quit);
    rest.start(1);
    loop.exec();
}

double WidgetScreen::TwipsPerPixelY() const {
    const QWidget* active = QApplication::activeWindow();
    return TwipsPerPixel / (active ? active->devicePixelRatioF() : qGuiApp->devicePixelRatio());
}

int32_t WidgetScreen::OpenFormCount() const { return ModuleForm::Count(); }

}  // namespace quellbrook
