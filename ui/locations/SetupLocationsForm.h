#pragma once

#include "base/Event.h"
#include "ui/common/Dialogs.h"
#include "ui/common/WidgetScreen.h"

#include <QRect>

namespace quellbrook {

class SetupLocationsWizard;

// The window of the wizard that categorizes locations. Asks before the user closes it; code closes it with done().
// Once loaded, it is the parent of the module's dialogs.
class frmSetupLocationsWizard : public ModuleForm {
    Q_OBJECT

public:
    explicit frmSetupLocationsWizard(QWidget* parent = nullptr);

    bool Completed() const { return m_completed; }

    // Position (of the frame) and size (without it) that center the form in the available part of a screen. On a screen
    // that is too small, the title bar and the upper left corner are visible.
    static QRect GeometryOn(const QRect& available);

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
