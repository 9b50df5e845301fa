#pragma once

#include "base/Event.h"
#include "ui/common/Dialogs.h"
#include "ui/common/WidgetScreen.h"

namespace quellbrook {

class SetupLocationsWizard;

// The window of the wizard that categorizes locations. Asks before the user closes it; code closes it with done().
// It is the parent of the module's dialogs from its loading on.
class frmSetupLocationsWizard : public ModuleForm {
    Q_OBJECT

public:
    explicit frmSetupLocationsWizard(QWidget* parent = nullptr);

    bool Completed() const { return m_completed; }

protected:
    void OnLoad() override;
    void OnCancel() override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FitScreen();
    void wizard_Completed();

    SetupLocationsWizard* m_wizard;
    bool m_completed = false;
    Subscription m_onCompleted;
};

// A WidgetScreen whose wizard is this form.
class WizardScreen : public WidgetScreen {
public:
    std::unique_ptr<SetupWizard> RunSetupWizard() override;
};

}  // namespace quellbrook
