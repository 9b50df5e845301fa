#pragma once

#include "database/odbc/OdbcLink.h"

#include <functional>
#include <string>

namespace quellbrook {

class Connection;

// The rows of a new database: all rows of another department, of which the progress goes from 0 to 100.
struct DepartmentContents {
    Connection* from = nullptr;
    std::function<void(int percent)> progress;
};

// Creates our schema in an empty database of a server, and its contents if they are given. Error 5 with a message for
// the user if it has any table or view; then, and after any other failure, nothing has changed.
void CreateServerDatabase(const std::string& connectionString, const ServerLimits& limits = {},
                          const DepartmentContents& contents = {});

}  // namespace quellbrook
