#pragma once

#include "base/Object.h"

#include <cstdint>
#include <memory>
#include <string>

namespace quellbrook {

// Classic message box styles and answers. The low four bits of a style choose the buttons, the next four the icon.
namespace MessageStyle {
inline constexpr int32_t Critical = 16;
inline constexpr int32_t Warning = 48;
inline constexpr int32_t YesNoQuestion = 36;
}  // namespace MessageStyle

namespace MessageAnswer {
inline constexpr int32_t Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7;
}  // namespace MessageAnswer

// The first-use wizard's form, as the access gate sees it.
class SetupWizard {
public:
    virtual ~SetupWizard() = default;
    virtual void Show() = 0;  // modeless, without an owner
    virtual bool Visible() const = 0;
    virtual bool Completed() const = 0;  // readable after the form has closed
};

// What the floors without a toolkit ask of the screen. Exactly one is installed; tests install one that records.
class Screen {
public:
    virtual ~Screen() = default;

    // The styled dialog, modal over the dialog parent; the button pressed. Error 91 without a dialog parent.
    virtual int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) = 0;

    // The toolkit's own plain critical message box.
    virtual void ShowPlainMessage(const std::string& text, const std::string& title) = 0;

    // The host's window over which dialogs are centred.
    virtual void SetDialogParent(ObjectRef window) = 0;

    // A new wizard form; Error 5 where none is available.
    virtual std::shared_ptr<SetupWizard> MakeSetupWizard() = 0;

    // Serves waiting messages of all windows, then rests for a millisecond at most.
    virtual void WaitForMessages() = 0;

    // Twips to a device pixel, upright: 15 on a display of scale factor 1.
    virtual double TwipsPerPixelY() const = 0;

    // Loaded top-level forms of the module, hidden ones too.
    virtual int32_t OpenFormCount() const = 0;
};

// The screen in use; Error 91 while none is installed. The caller of SetScreen keeps ownership.
Screen& GetScreen();
void SetScreen(Screen* screen);

// The one message box of the system: GetScreen().ShowMessage.
int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title);

}  // namespace quellbrook
