#include "ui/common/Dialogs.h"

#include "ui/platform/Guard.h"

#include <QCloseEvent>
#include <QPointer>

namespace quellbrook {

namespace {

int livingForms = 0;

}  // namespace

ModuleForm::ModuleForm(QWidget* parent) : QDialog(parent) {
    // The host's windows determine when the program ends.
    setAttribute(Qt::WA_QuitOnClose, false);
    ++livingForms;
}

ModuleForm::~ModuleForm() { --livingForms; }

int ModuleForm::Count() { return livingForms; }

void ModuleForm::EnsureLoaded() {
    if (m_loaded) return;
    m_loaded = true;
    OnLoad();
}

void ModuleForm::reject() {
    if (CancelsOnEscape()) Guard([this] { OnCancel(); });
}

void ModuleForm::closeEvent(QCloseEvent* event) {
    const QPointer<ModuleForm> self(this);
    if (isVisible()) Guard([this] { OnCancel(); });
    event->setAccepted(!self || !isVisible());
}

}  // namespace quellbrook
