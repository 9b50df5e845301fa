#pragma once

class QWidget;

namespace quellbrook {

// Shows a form modeless and runs an event loop until the form is hidden or destroyed or the application quits. An
// existing form is hidden afterwards. The categorization wizard's form will use it.
void RunUntilClosed(QWidget& form);

}  // namespace quellbrook
