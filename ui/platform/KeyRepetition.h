#pragma once

class QKeyEvent;

namespace quellbrook {

// From now on, IsRepetition knows the releases of keys. Further calls have no effect.
void WatchKeyRepetition();

// Whether a key press repeats a key that is held. Qt on X11 does not mark all of them, but there a repeated press has
// the time stamp of the release before it.
bool IsRepetition(const QKeyEvent& press);

}  // namespace quellbrook
