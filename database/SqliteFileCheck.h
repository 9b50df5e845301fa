#pragma once

#include <string>

namespace quellbrook {

// Fails with Error 5 and a sentence unless the file is a whole database of ours that this program can read and write.
// Changes no byte of it.
void CheckSqliteFile(const std::string& path, int busyMilliseconds);

}  // namespace quellbrook
