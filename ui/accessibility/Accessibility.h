#pragma once

namespace quellbrook {

// Sets up the roles and press actions of the controls in the accessibility tree. Further calls have no effect.
void InstallAccessibility();

}  // namespace quellbrook
