#pragma once

#include <chrono>
#include <string>

namespace quellbrook {

// Raises error 5 with a message for the user unless the file is a complete database of this program, of this or an
// older version, that can be read and written, and is on this machine. Changes nothing but the rights to the file and
// its companions: only the owner keeps them.
void CheckSqliteFile(const std::string& path, std::chrono::milliseconds lockLimit);

}  // namespace quellbrook
