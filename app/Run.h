#pragma once

#include "app/Options.h"

namespace quellbrook {

// Registers the address scheme, with QCoreApplication standing, and prints what was done; the exit code: 0, or 1 where
// it can't be.
int RunRegistration(const Options& options);

// The reference host from start to end, with QApplication standing; the exit code: 0, or 1 where the department can't
// be opened or the tour did not hold.
int RunHost(const Options& options);

}  // namespace quellbrook
