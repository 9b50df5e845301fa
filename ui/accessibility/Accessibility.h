#pragma once

namespace quellbrook {

// Gives the controls their roles and their press action in the accessibility tree. Their names are their accessible
// names. More than one call changes nothing.
void InstallAccessibility();

}  // namespace quellbrook
