#pragma once

#include <chrono>
#include <string>

namespace quellbrook {

// Raises error 5 with a message for the user unless the file is a complete database of this program, of this or an
// older version, that can be read and written, and is on this machine. Changes nothing but the rights to the file and
// its companions: only the owner keeps them.
void CheckSqliteFile(const std::string& path, std::chrono::milliseconds lockLimit);

// Raises error 5 with a message for the user unless the file is a database on this machine that can be read and
// written, and has the tables and columns of HostTables. Changes nothing.
void CheckHostFile(const std::string& path, std::chrono::milliseconds lockLimit);

// Whether CheckSqliteFile checks the whole file for damage. Only a file of up to 64 MiB, since it takes long.
bool IsCheckedWhenOpened(const std::string& path);

}  // namespace quellbrook
