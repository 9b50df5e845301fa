#pragma once

#include "app/Options.h"

namespace quellbrook {

// Registers the address scheme for this program with the department of the options. Requires a QCoreApplication. Prints
// the outcome and returns the exit code, 0 or 1.
int RunRegistration(const Options& options);

}  // namespace quellbrook
