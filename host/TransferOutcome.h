#pragma once

namespace quellbrook {

// The start of a failure's description if it is unknown whether the database committed the batch.
inline constexpr const char* UnknownOutcomeText =
    "It is not known whether this transfer was completed. Check these items before you continue.";

}  // namespace quellbrook
