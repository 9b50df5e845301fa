#pragma once

namespace quellbrook {

// How the description of a failure begins when it could not be found out whether the database has carried the batch
// out.
inline constexpr const char* UnknownOutcomeText =
    "It could not be found out whether this transfer was completed. Check these items before you go on.";

}  // namespace quellbrook
