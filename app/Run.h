#pragma once

#include "app/Options.h"

namespace quellbrook {

// Runs the reference host, its gallery or its tour. Requires a QApplication. Returns the exit code: 0, or 1 if the
// department cannot be opened or the tour fails.
int RunHost(const Options& options);

}  // namespace quellbrook
