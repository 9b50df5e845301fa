#include "database/LockWait.h"

#include <sqlite3.h>

#include <cstdint>
#include <thread>
#include <utility>

namespace quellbrook {

namespace {

using std::chrono::milliseconds;

constexpr int shortPauses = 10;
constexpr int64_t shortPause = 5, longPause = 50;  // milliseconds

void Sleep(milliseconds time) { std::this_thread::sleep_for(time); }

LockPause& Pause() {
    static LockPause pause = Sleep;
    return pause;
}

int64_t PausesBefore(int count) {
    return count <= shortPauses ? count * shortPause : shortPauses * shortPause + (count - shortPauses) * longPause;
}

// SQLite's callback. The argument is the limit itself.
int WaitOnce(void* limit, int count) noexcept {
    if (PausesBefore(count) >= static_cast<int64_t>(reinterpret_cast<intptr_t>(limit))) return 0;
    try {
        Pause()(milliseconds(count < shortPauses ? shortPause : longPause));
        return 1;
    } catch (...) {
        return 0;  // the statement fails with the lock
    }
}

}  // namespace

void SetLockPause(LockPause pause) { Pause() = pause ? std::move(pause) : Sleep; }

void PauseForDatabase(milliseconds time) { Pause()(time); }

void WaitForLocks(sqlite3* database, milliseconds limit) {
    sqlite3_busy_handler(database, WaitOnce, reinterpret_cast<void*>(static_cast<intptr_t>(limit.count())));
}

}  // namespace quellbrook
