#pragma once

#include <vector>

namespace quellbrook {

// A table or view of a host, with the columns of it that the component reads or writes.
struct HostTable {
    const char* name;
    std::vector<const char*> columns;
};

// What a schema of a host's own needs. The accounts and settings of DatabaseSession are not among them.
const std::vector<HostTable>& HostTables();

}  // namespace quellbrook
