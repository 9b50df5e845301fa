#pragma once

#include "tests/support/RecordingScreen.h"
#include "ui/common/ViewHelpers.h"

namespace quellbrook::testing {

// TrySetFocus counts its calls across tests. Its message, at the 201st call, resets the count.
inline void ResetFocusCalls(RecordingScreen& screen) {
    while (screen.Messages().empty()) TrySetFocus(nullptr);
    screen.TakeMessages();
}

// The next call shows the message.
inline void UseUpFocusCalls(RecordingScreen& screen) {
    ResetFocusCalls(screen);
    for (int call = 1; call < 200; ++call) TrySetFocus(nullptr);
}

}  // namespace quellbrook::testing
