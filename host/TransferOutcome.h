#pragma once

namespace quellbrook {

// The start of a failure's description if it is unknown whether the database committed the batch.
inline constexpr const char* UnknownOutcomeText =
    "It could not be found out whether this transfer was completed. Check these items before you go on.";

}  // namespace quellbrook
