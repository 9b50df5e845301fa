#pragma once

class QWidget;

namespace quellbrook {

// Keeps a form above its owner's window without making the owner its parent: forms are destroyed by their creators.
// Null: no owner.
void SetOwner(QWidget& form, const QWidget* owner);

}  // namespace quellbrook
