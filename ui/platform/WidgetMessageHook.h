#pragma once

namespace quellbrook {

// From now on MakeMessageHook gives hooks on the keys of the whole application: one key-down and, for a key with a
// text, a character message for each press, one key-up for each release, before any shortcut or widget sees it. wParam
// of a key is 18 for Alt and the toolkit's key code for all others; of a character it is the code point. Delete has no
// character here. Input methods are not hooked.
void InstallWidgetMessageHook();

}  // namespace quellbrook
