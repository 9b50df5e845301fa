#pragma once

#include <functional>

namespace quellbrook {

class Connection;
class OdbcConnection;

// Copies all rows of a department in our schema, with their keys, into an empty one on a server, in a transaction of
// the caller. The progress goes from 0 to 100; an exception from it ends the copy.
void CopyDepartment(Connection& from, OdbcConnection& to, const std::function<void(int percent)>& progress);

}  // namespace quellbrook
