#pragma once

namespace quellbrook {

// Gives the controls their roles and press actions in the accessibility tree. Further calls have no effect.
void InstallAccessibility();

}  // namespace quellbrook
