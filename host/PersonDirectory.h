#pragma once

#include "base/TaggedValue.h"
#include "sql/Row.h"

#include <string>

namespace quellbrook {

class PersonDirectory {
public:
    // The display name; "Unknown (id)" for an unknown id. Error 94 for NULL.
    std::string NameForId(const TaggedValue& personId);

    // "Raman, Priya" from the columns LastName and FirstName.
    static std::string NameOf(const Row& person);
};

}  // namespace quellbrook
