#pragma once

#include <string>

namespace quellbrook {

// Opens the address in a command line of the host with the program that is registered for its scheme. Error 5 with a
// sentence if there is no address or no such program.
void RunInDesktop(const std::string& commandLine);

// The address in such a command line: from "tessarine://" to the end; empty if there is none.
std::string AddressInCommand(const std::string& commandLine);

}  // namespace quellbrook
