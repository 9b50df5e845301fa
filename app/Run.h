#pragma once

#include "app/ComponentLibrary.h"
#include "app/Options.h"

#include <functional>

namespace quellbrook {

// Runs the reference host, or its tour. Requires a QApplication. openComponent returns the component's entry point for
// classes, or throws. Returns the exit code: 0; 1 if the component or the department cannot be opened or the tour
// fails; 2 if the address of a record is refused; 143 after a signal.
int RunHost(const Options& options, const std::function<ClassObjectGetter()>& openComponent);

}  // namespace quellbrook
