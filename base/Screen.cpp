#include "base/Screen.h"

#include "base/Error.h"

namespace quellbrook {

namespace {

Screen* installed = nullptr;

}  // namespace

Screen& GetScreen() {
    if (!installed) Raise(ErrorNumber::NullObject, "GetScreen");
    return *installed;
}

void SetScreen(Screen* screen) { installed = screen; }

int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) {
    return GetScreen().ShowMessage(prompt, buttons, title);
}

}  // namespace quellbrook
