#pragma once

class QWidget;

namespace quellbrook {

// Keeps a form above its owner's window without giving it to the owner: forms end with their makers. Null: no owner.
void SetOwner(QWidget& form, const QWidget* owner);

}  // namespace quellbrook
