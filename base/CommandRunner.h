#pragma once

#include <functional>
#include <string>

namespace quellbrook {

// Starts a command line of the host. Fails with an Error when nothing could be started.
using CommandRunner = std::function<void(const std::string& commandLine)>;

// Runs through the installed runner; Error 5 with a sentence while none is installed.
void RunCommand(const std::string& commandLine);
void SetCommandRunner(CommandRunner runner);

}  // namespace quellbrook
