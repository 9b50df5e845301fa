#pragma once

#include "app/Options.h"

namespace quellbrook {

// Checks the department of the options for --verify; first restores its side tables for --repair, on a server only
// CurrentPlace. Requires a
// QCoreApplication. Prints a line for each rule, and below it what breaks the rule. Returns the exit code: 0 if nothing
// is wrong, otherwise 1.
int RunVerification(const Options& options);

}  // namespace quellbrook
