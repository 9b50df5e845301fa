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

// Reads the current record from the database, limited to what the session's user may see. Refuses a user who may not
// view records of this kind, and a number without a record. Does not catch failures of the database.
RecordAnswer ReadRecord(const RecordAddress& address);

}  // namespace quellbrook
