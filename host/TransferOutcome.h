#pragma once

#include "base/Error.h"

namespace quellbrook {

// The start of a transfer's failure if it is unknown whether the database committed it.
inline constexpr const char* UnknownOutcomeText =
    "It could not be found out whether this transfer was completed. Check these items before you go on.";

// A batch whose commit failed and may have been completed all the same. The description is the database's.
class UnknownOutcome : public Error {
public:
    using Error::Error;
};

}  // namespace quellbrook
