#pragma once

#include "base/Screen.h"

namespace quellbrook {

// The screen as widgets: the styled dialog, the toolkit's plain box, the loop of messages. Install also puts the
// toolkit's timers, key state, key messages and picture reader behind their seams.
class WidgetScreen : public Screen {
public:
    static void Install();

    int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) override;
    void ShowPlainMessage(const std::string& text, const std::string& title) override;
    void SetDialogParent(ObjectRef window) override;
    std::shared_ptr<SetupWizard> MakeSetupWizard() override;
    void WaitForMessages() override;
    double TwipsPerPixelY() const override;  // of the display with the active window
    int32_t OpenFormCount() const override;
};

}  // namespace quellbrook
