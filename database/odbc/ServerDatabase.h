#pragma once

#include "database/odbc/OdbcLink.h"

#include <string>

namespace quellbrook {

// Creates our schema in an empty database of a server. Error 5 with a message for the user if it has any table or view;
// then, and after any other failure, nothing has changed.
void CreateServerDatabase(const std::string& connectionString, const ServerLimits& limits = {});

}  // namespace quellbrook
