#pragma once

#include <string>

namespace quellbrook {

// Whether there is a write-ahead log beside the file that does not continue it, as after a backup was put in place of
// the file. SQLite would apply such a log and mix the two. The file is certainly older than its log if the log's first
// batch does not follow the file's last one.
bool HasLogOfAnotherFile(const std::string& path);

// Whether the file is whole if its log is ignored.
bool IsWholeWithoutLog(const std::string& path);

}  // namespace quellbrook
