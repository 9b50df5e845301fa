#pragma once

#include <cstdint>
#include <string>

// The host's own access to its database, without the component. Failures throw std::runtime_error.

// Creates the file with the host's tables and a few rows, if it does not exist.
void CreateRecords(const std::string& path);

// The first column of the first row.
int64_t ReadNumber(const std::string& path, const std::string& sql);
