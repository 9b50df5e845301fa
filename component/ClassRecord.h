#pragma once

#include <string>

namespace quellbrook {

// The registration record, the file quellbrook/classes.ini in one of the platform's data folders. Its group Library has
// the path of the component's library, its group Classes the identifier of each public class.

// The text of a record. It contains "@QUELLBROOK_LIBRARY@" where the path of the library goes.
const char* ClassRecordTemplate();
// The file name of the record of this machine or of this user. Empty for a user without a home directory.
std::string ClassRecordPath(bool ofMachine);
// Writes or replaces the file atomically, with read permission for all users. Throws a std::exception on failure.
void WriteClassRecord(const std::string& path, const std::string& library);
// Deletes the file if it exists. Throws a std::exception on failure.
void DeleteClassRecord(const std::string& path);

}  // namespace quellbrook
