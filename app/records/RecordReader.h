#pragma once

#include "app/records/Record.h"

#include <variant>

namespace quellbrook {

// One sentence that explains why a record cannot be shown.
struct RecordRefusal {
    std::string sentence;

    bool operator==(const RecordRefusal&) const = default;
};

using RecordAnswer = std::variant<Record, RecordRefusal>;

// Reads the record as it is in the database now, as far as the user of the session may see it. Refuses a user who may
// not view records of this kind, and a number without a record. Failures of the database pass through.
RecordAnswer ReadRecord(const RecordAddress& address);

}  // namespace quellbrook
