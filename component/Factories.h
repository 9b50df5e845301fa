#pragma once

#include "component/ClassFactory.h"

#include <cstdint>
#include <string_view>

namespace quellbrook {

// The factory of the class; null for an unknown identifier. Adds no reference.
ClassFactory* FindFactory(std::string_view classId);

}  // namespace quellbrook
