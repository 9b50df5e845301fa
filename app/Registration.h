#pragma once

#include "app/Options.h"

namespace quellbrook {

// Registers this program, with the department of the options, for the address scheme. Requires a QCoreApplication.
// Prints the outcome and returns the exit code, 0 or 1.
int RunRegistration(const Options& options);

}  // namespace quellbrook
