#pragma once

#include "base/TaggedValue.h"
#include "sql/Row.h"

#include <string>

namespace quellbrook {

class PersonDirectory {
public:
    // The display name; "Unknown (id)" for an id that the host does not know. NULL is Error 94.
    std::string NameForId(const TaggedValue& personId);

    // "Raman, Priya" from the columns LastName and FirstName.
    static std::string NameOf(const Row& person);
};

}  // namespace quellbrook
