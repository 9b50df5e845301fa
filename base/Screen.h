#pragma once

#include "base/Object.h"

#include <cstdint>
#include <memory>
#include <string>

namespace quellbrook {

// Classic message box styles and answers. The low four bits of a style choose the buttons, the next four the icon.
namespace MessageStyle {
inline constexpr int32_t Critical = 16;
inline constexpr int32_t YesNoQuestion = 36;
}  // namespace MessageStyle

namespace MessageAnswer {
inline constexpr int32_t Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7;
}  // namespace MessageAnswer

// The closed form of the categorization wizard.
class SetupWizard {
public:
    virtual ~SetupWizard() = default;
    virtual bool Completed() const = 0;  // false: the user left it, or the application quit
};

// The user interface as the layers without Qt use it.
class Screen {
public:
    virtual ~Screen() = default;

    // Shows the styled dialog, modal over the dialog parent. Returns the button. Error 91 without a dialog parent.
    virtual int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) = 0;

    // Shows Qt's plain critical message box.
    virtual void ShowPlainMessage(const std::string& text, const std::string& title) = 0;

    // The host's window over which dialogs are centered.
    virtual void SetDialogParent(ObjectRef window) = 0;

    // Shows a new wizard form, modeless and without an owner, and runs an event loop until the form closes or the
    // application quits. The result owns the form, which is then hidden but may be the dialog parent. Error 5 if no
    // wizard is available.
    virtual std::unique_ptr<SetupWizard> RunSetupWizard() = 0;

    // Twips per device pixel, vertically: 15 on a display of scale factor 1.
    virtual double TwipsPerPixelY() const = 0;

    // The number of loaded top-level forms of the module, including hidden ones.
    virtual int32_t OpenFormCount() const = 0;
};

// The screen of the environment; Error 91 if it has none.
Screen& GetScreen();

// The one message box of the system: GetScreen().ShowMessage.
int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title);

}  // namespace quellbrook
