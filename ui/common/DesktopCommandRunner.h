#pragma once

#include <string>

namespace quellbrook {

// Lets the desktop open the address in a command line of the host, in whatever program is registered for its scheme.
void InstallDesktopCommandRunner();

// The address in such a command line: from "tessarine://" on; empty without one.
std::string AddressInCommand(const std::string& commandLine);

}  // namespace quellbrook
