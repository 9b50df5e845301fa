#pragma once

#include <chrono>
#include <string>

namespace quellbrook {

// Raises error 5 with a message for the user unless the file is a complete database of this program that
// can be read and written. Does not change the file.
void CheckSqliteFile(const std::string& path, std::chrono::milliseconds lockLimit);

}  // namespace quellbrook
