#pragma once

class QWidget;

namespace quellbrook {

// Shows a form modeless and runs an event loop until the form is hidden or destroyed or the application quits. An
// existing form is hidden afterwards. For a form that has no owner, such as that of the categorization wizard.
void RunUntilClosed(QWidget& form);

}  // namespace quellbrook
