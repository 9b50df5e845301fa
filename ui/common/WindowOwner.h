#pragma once

class QWidget;

namespace quellbrook {

// Keeps a form above its owner's window without making the owner its parent, because its creator destroys the form.
// Null means no owner.
void SetOwner(QWidget& form, const QWidget* owner);

}  // namespace quellbrook
