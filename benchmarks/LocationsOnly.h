#pragma once

#include <string>

namespace quellbrook::bench {

// Creates a database with only `count` storage locations, ten to a container, five levels deep.
void CreateLocationsOnly(const std::string& path, int count);

}  // namespace quellbrook::bench
