#pragma once

#include <sqlite3.h>
#include <unistd.h>

namespace quellbrook::testing {

// Ends the work of all SQLite connections that are opened during its lifetime after a number of steps: their
// statements fail, or the process ends without cleaning up. One at a time.
class InterruptedSqlite {
public:
    enum class End { Failure, Crash };

    explicit InterruptedSqlite(int steps, End end = End::Failure) {
        s_remaining = steps;
        s_end = end;
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(&Watch));
    }
    ~InterruptedSqlite() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(&Watch)); }
    InterruptedSqlite(const InterruptedSqlite&) = delete;
    InterruptedSqlite& operator=(const InterruptedSqlite&) = delete;

    bool HasStruck() const { return s_remaining <= 0; }

private:
    static int Watch(sqlite3* database, char**, const void*) {
        sqlite3_progress_handler(database, operationsInStep, &Count, nullptr);
        return SQLITE_OK;
    }
    static int Count(void*) {
        if (--s_remaining > 0) return 0;
        if (s_end == End::Crash) _exit(0);
        return 1;
    }

    static constexpr int operationsInStep = 100;
    static inline int s_remaining = 0;
    static inline End s_end = End::Failure;
};

}  // namespace quellbrook::testing
