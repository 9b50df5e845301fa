#pragma once

namespace quellbrook {

struct Options;

// Runs --create and prints what was created. Returns the program's exit code.
int RunCreation(const Options& options);

}  // namespace quellbrook
