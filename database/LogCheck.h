#pragma once

#include <string>

namespace quellbrook {

// Whether the write-ahead log beside the file does not continue it, as after a backup has replaced the file. SQLite
// would apply such a log and mix the two. Compares the marks of batches: a log whose first batch does not follow the
// file's last one belongs to a later file.
bool HasLogOfAnotherFile(const std::string& path);

// Whether the file is whole if its log is ignored.
bool IsWholeWithoutLog(const std::string& path);

}  // namespace quellbrook
