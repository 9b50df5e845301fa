#pragma once

#include "app/records/Record.h"

#include <variant>

namespace quellbrook {

// Why a record can't be shown: one sentence.
struct RecordRefusal {
    std::string sentence;

    bool operator==(const RecordRefusal&) const = default;
};

using RecordAnswer = std::variant<Record, RecordRefusal>;

// Reads the record from the host's database as it stands now, as far as the user of the session may see it. Refused are
// a user without the right to view records of this kind, and a number that no record has. A picture that can't be had
// is said to be so in the record. Failures of the database pass on.
RecordAnswer ReadRecord(const RecordAddress& address);

}  // namespace quellbrook
