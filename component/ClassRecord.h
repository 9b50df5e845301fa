#pragma once

#include <string>

namespace quellbrook {

// The record of where the component's library is: quellbrook/classes.ini in one of the platform's data folders. Its
// group Library has the Path, its group Classes the identifier of each public class.

// The text of a record, with the variable "@QUELLBROOK_LIBRARY@" for the path.
const char* ClassRecordTemplate();
// Where the record of the machine or of this user is. Empty without a home directory.
std::string ClassRecordPath(bool ofMachine);
// Replaces the record as a whole, readable for everyone. Throws std::exception if it can't be written.
void WriteClassRecord(const std::string& path, const std::string& library);
// Does nothing if there is no record. Throws std::exception if it can't be deleted.
void DeleteClassRecord(const std::string& path);

}  // namespace quellbrook
