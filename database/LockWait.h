#pragma once

#include <chrono>
#include <functional>

struct sqlite3;

namespace quellbrook {

// Passes time while a statement waits for a lock of another connection or for a server. The default sleeps. A user
// interface replaces it to keep its windows painted meanwhile; it must not run anything else, since a transfer may be
// under way.
using LockPause = std::function<void(std::chrono::milliseconds)>;

// Null restores the default.
void SetLockPause(LockPause pause);

// Runs the pause once.
void PauseForDatabase(std::chrono::milliseconds time);

// Lets the statements of a connection wait for locks, until their pauses reach the limit.
void WaitForLocks(sqlite3* database, std::chrono::milliseconds limit);

}  // namespace quellbrook
