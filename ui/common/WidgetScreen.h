#pragma once

#include "base/Environment.h"

namespace quellbrook {

// The current environment with a WidgetScreen and with Qt's timers, keys and pictures. Requires a QApplication.
Environment WidgetEnvironment();

// Implements the screen with widgets: the styled dialog and Qt's plain message box.
class WidgetScreen : public Screen {
public:
    int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) override;
    void ShowPlainMessage(const std::string& text, const std::string& title) override;
    void SetDialogParent(ObjectRef window) override;
    std::unique_ptr<SetupWizard> RunSetupWizard() override;
    double TwipsPerPixelY() const override;  // of the display with the active window
    int32_t OpenFormCount() const override;
};

}  // namespace quellbrook
