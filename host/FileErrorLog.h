#pragma once

#include "base/ErrorLog.h"

#include <memory>
#include <string>

namespace quellbrook {

// A log in a rotating file, which only its owner can read: 5 files of 1 MiB. Error 5 if the file can't be written.
std::unique_ptr<ErrorLog> MakeFileErrorLog(const std::string& path);

}  // namespace quellbrook
