#pragma once

#include <string>

namespace quellbrook::bench {

// Creates a database that contains only `count` storage locations, ten per container, five levels deep.
void CreateLocationsOnly(const std::string& path, int count);

}  // namespace quellbrook::bench
