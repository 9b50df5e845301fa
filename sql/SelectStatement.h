#pragma once

#include "base/TaggedValue.h"

#include <string>
#include <vector>

namespace quellbrook {

// A SELECT, with one value for each "?" in order.
struct SelectStatement {
    std::string sql;
    std::vector<TaggedValue> parameters;
};

}  // namespace quellbrook
