#pragma once

#include "app/Options.h"

namespace quellbrook {

// Runs the reference host, its gallery or its tour. Requires a QApplication. Returns the exit code: 0; 1 if the
// department cannot be opened or the tour fails; 2 if the address of a record is refused; 143 after a signal.
int RunHost(const Options& options);

}  // namespace quellbrook
