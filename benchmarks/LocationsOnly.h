#pragma once

#include <string>

namespace quellbrook::bench {

// A database with nothing in it but `count` storage locations, ten to a container, five deep.
void CreateLocationsOnly(const std::string& path, int count);

}  // namespace quellbrook::bench
